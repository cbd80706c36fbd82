#pragma once

#include "toolkit/text/TextEnums.h"

namespace Toolkit {

/// A font family of the FontCollection; 0 is the first one registered and the default.
using FamilyId = uint16_t;

/// What decides how a text is shaped. `size` is the em in device-independent pixels.
struct TextStyle {
  float size = 12;
  FontWeight weight = FontWeight::Normal;
  FontStyle style = FontStyle::Normal;
  FamilyId family = 0;
  friend bool operator==(const TextStyle&, const TextStyle&) = default;
};

/// Device-independent pixels.
struct TextSize {
  float width = 0;
  float height = 0;
  friend bool operator==(const TextSize&, const TextSize&) = default;
};

/// Text lengths are rounded up to this step, so that a box made exactly as wide as its text never wraps it.
inline constexpr float TextStep = 1.0f / 64.0f;
float RoundUpTextLength(double length);

} // namespace Toolkit
