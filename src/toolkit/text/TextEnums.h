#pragma once

#include <cstdint>

namespace Toolkit {

enum class FontWeight : uint16_t { Normal = 400, SemiBold = 600, Bold = 700 };
enum class FontStyle : uint8_t { Normal, Italic };
enum class TextWrapping : uint8_t { NoWrap, Wrap };
enum class TextTrimming : uint8_t { None, CharacterEllipsis };
enum class TextAlignment : uint8_t { Left, Center, Right };

} // namespace Toolkit
