#pragma once

#include "toolkit/base/SharedString.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

struct cJSON;

namespace Tesselor {

/// Every option key that some field class reads.
enum class FieldOption : uint8_t {
  Active,
  Default,
  Description,
  Fields,
  FontSize,
  Height,
  IsNodeName,
  IsUUID,
  Label,
  LargeChange,
  Max,
  Min,
  Required,
  Text,
  TickFrequency,
  Type,
  UseUUID,
  Values,
  Width,
  Count
};

/// The number cut toward zero and saturated at the limits; 0 for an item of another type.
int32_t IntegerMember(const cJSON* item);

/// The options of one schema entry by key, found in a single walk: fields are made by the ten thousands, and a search
/// per key would walk the same few members again and again. Keys match in any letter case; of equal keys the first
/// counts. Holds pointers into the JSON only, so it must not outlive it.
class FieldOptions {
public:
  /// `options` may be null.
  explicit FieldOptions(const cJSON* options);

  const cJSON* Item(FieldOption option) const { return items[static_cast<size_t>(option)]; }
  bool Has(FieldOption option) const { return Item(option) != nullptr; }

  /// The item's `IntegerMember`, whatever its type; nothing if the key is absent.
  std::optional<int32_t> Integer(FieldOption option) const;
  /// Nothing unless the item is true or false.
  std::optional<bool> Boolean(FieldOption option) const;
  /// Whether the item is JSON true.
  bool IsTrue(FieldOption option) const;
  /// The number's double member; nothing for other types.
  std::optional<double> Number(FieldOption option) const;
  /// Null unless the item is a string.
  const char* Text(FieldOption option) const;
  /// As `Text`. All fields of one schema entry get the same bytes, as long as not too many other texts come between.
  std::optional<Toolkit::SharedString> SharedText(FieldOption option) const;

private:
  std::array<const cJSON*, static_cast<size_t>(FieldOption::Count)> items{};
};

} // namespace Tesselor
