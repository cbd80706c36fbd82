#pragma once

#include "toolkit/base/Symbol.h"
#include "toolkit/base/Value.h"

#include <string_view>
#include <utility>
#include <vector>

namespace Toolkit {

class DependencyObject;
class DependencyProperty;
class Type;

/// The names of an enum's values in documents. Each enum used as a property has an overload
/// `const EnumDescription& DescribeEnum(E)` in its namespace.
struct EnumDescription {
  std::vector<std::pair<std::string_view, int32_t>> names;
  bool Find(std::string_view text, int32_t& value) const;
};

struct PropertyChange {
  const DependencyProperty& property;
  const Value& oldValue;
  const Value& newValue;
};

/// A property that takes its value from several layers: animation, local value, template, triggers, style,
/// inheritance, default. Registered once per class and alive until the process ends.
class DependencyProperty {
public:
  enum Flags : uint32_t {
    AffectsMeasure = 1,
    AffectsArrange = 2,
    AffectsRender = 4,
    AffectsParentMeasure = 8,
    AffectsParentArrange = 16,
    /// Descendants without a value of their own take it. At most 16 properties inherit.
    Inherits = 32,
    /// A binding without a mode of its own is two-way.
    BindsTwoWay = 64,
    /// An element that a document gives as value is made when it is first needed, not with its owner.
    DefersContent = 128,
    /// A binding without a trigger of its own carries the value to its source when the element loses the focus, not
    /// with every change.
    BindsUntilFocusIsLost = 256,
  };
  using Changed = void (*)(DependencyObject& object, const PropertyChange& change);

  Symbol name;
  ValueKind kind = ValueKind::None;
  const Type* owner = nullptr;
  Value defaultValue;
  uint32_t flags = 0;
  Changed changed = nullptr;
  const EnumDescription* enumeration = nullptr;
  /// For kind Object: the class that a value must have.
  const Type& (*objectType)() = nullptr;
  uint16_t index = 0;
  uint8_t inheritedIndex = 0;

  uint64_t MaskBit() const { return uint64_t(1) << (index & 63); }
  bool IsInherited() const { return flags & Inherits; }
  uint16_t InheritedBit() const { return IsInherited() ? static_cast<uint16_t>(1u << inheritedIndex) : 0; }

  static const DependencyProperty* Register(DependencyProperty property);
  static const DependencyProperty& At(uint16_t index);
  /// The property with that `inheritedIndex`, or null.
  static const DependencyProperty* Inherited(int inheritedIndex);
  /// The bits of all inherited properties that affect the measure, or the look.
  static uint16_t InheritedBitsThatMeasure();
};

} // namespace Toolkit
