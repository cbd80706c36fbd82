#pragma once

#include "toolkit/base/DependencyProperty.h"
#include "toolkit/base/Value.h"

#include <string_view>

namespace Toolkit {

/// Conversions between texts of documents, values of bindings and kinds of properties.
class ValueConversion {
public:
  /// Reads an attribute's text as a value of the property. False if the text does not fit.
  static bool FromText(std::string_view text, const DependencyProperty& property, Value& result);
  /// Reads a text as a value of a plain kind; `enumeration` is needed for enums.
  static bool FromText(std::string_view text, ValueKind kind, const EnumDescription* enumeration, Value& result);
  static bool ColorFromText(std::string_view text, Color& color);

  /// Brings a binding's value to the kind of the property it goes to. False if that cannot be done.
  static bool Convert(const Value& value, const DependencyProperty& property, Value& result);
  static bool Convert(const Value& value, ValueKind kind, Value& result);
  /// The value as text: numbers in their shortest form, booleans as "True" and "False".
  static SharedString ToText(const Value& value);
  /// Applies a format: "D" and "F<n>" alone, or a text with one "{0}" or "{0:<format>}".
  static SharedString Format(std::string_view format, const Value& value);
};

} // namespace Toolkit
