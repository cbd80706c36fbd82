#pragma once

#include "toolkit/base/Color.h"
#include "toolkit/base/Geometry.h"
#include "toolkit/base/Object.h"
#include "toolkit/base/SharedString.h"

#include <cstdint>
#include <string>
#include <type_traits>

namespace Toolkit {

enum class ValueKind : uint8_t {
  None,
  Bool,
  Int,
  Float,
  Double,
  Enum,
  String,
  Object,
  Color,
  Point,
  Size,
  Rect,
  Thickness,
  CornerRadius,
  GridLength,
  Type,
  /// Only as the declared kind of a property that takes any value, such as `Content`.
  Any,
};

/// One value of a property, of any of the kinds above. Strings and objects are shared, not copied. 24 bytes.
class Value {
public:
  Value() : kind(ValueKind::None) {}
  Value(bool value) : kind(ValueKind::Bool) { data.integer = value; }
  Value(int32_t value) : kind(ValueKind::Int) { data.integer = value; }
  Value(float value) : kind(ValueKind::Float) { data.number = value; }
  Value(double value) : kind(ValueKind::Double) { data.real = value; }
  Value(const SharedString& value);
  Value(std::string_view value) : Value(SharedString(value)) {}
  Value(const std::string& value) : Value(SharedString(value)) {}
  Value(const char* value) : Value(SharedString(value)) {}
  Value(Object* object);
  template <class T> Value(T* object) : Value(static_cast<Object*>(object)) {
    static_assert(std::is_base_of_v<Object, T>);
  }
  template <class T> Value(const Ptr<T>& object) : Value(static_cast<Object*>(object.Get())) {}
  Value(const Color& value) : kind(ValueKind::Color) { data.floats = {value.r, value.g, value.b, value.a}; }
  Value(const Point& value) : kind(ValueKind::Point) { data.floats = {value.x, value.y, 0, 0}; }
  Value(const Size& value) : kind(ValueKind::Size) { data.floats = {value.width, value.height, 0, 0}; }
  Value(const Rect& value) : kind(ValueKind::Rect) { data.floats = {value.x, value.y, value.width, value.height}; }
  Value(const Thickness& value) : kind(ValueKind::Thickness) {
    data.floats = {value.left, value.top, value.right, value.bottom};
  }
  Value(const CornerRadius& value) : kind(ValueKind::CornerRadius) {
    data.floats = {value.topLeft, value.topRight, value.bottomRight, value.bottomLeft};
  }
  Value(const GridLength& value) : kind(ValueKind::GridLength) {
    data.floats = {value.value, static_cast<float>(value.unit), 0, 0};
  }
  Value(const Type* type) : kind(ValueKind::Type) { data.type = type; }
  template <class E, std::enable_if_t<std::is_enum_v<E>, int> = 0> Value(E value) : kind(ValueKind::Enum) {
    data.integer = static_cast<int32_t>(value);
  }
  static Value FromEnum(int32_t value) {
    Value result;
    result.kind = ValueKind::Enum;
    result.data.integer = value;
    return result;
  }

  Value(const Value& other) : kind(other.kind), data(other.data) { Retain(); }
  Value(Value&& other) noexcept : kind(other.kind), data(other.data) { other.kind = ValueKind::None; }
  Value& operator=(Value other) noexcept {
    std::swap(kind, other.kind);
    std::swap(data, other.data);
    return *this;
  }
  ~Value() {
    if (kind == ValueKind::String || kind == ValueKind::Object) Drop();
  }

  ValueKind Kind() const { return kind; }
  bool IsNone() const { return kind == ValueKind::None; }

  /// The value as a `T`; a default `T` if it is of another kind. Numbers of different width convert.
  template <class T> T As() const;

  bool AsBool() const { return kind == ValueKind::Bool && data.integer != 0; }
  int32_t AsInt() const;
  float AsFloat() const;
  double AsDouble() const;
  SharedString AsString() const;
  std::string_view AsStringView() const;
  Object* AsObject() const { return kind == ValueKind::Object ? data.object : nullptr; }
  const Type* AsType() const { return kind == ValueKind::Type ? data.type : nullptr; }

  /// Equal kind and equal content; strings by bytes, objects by identity.
  friend bool operator==(const Value& a, const Value& b);

private:
  struct Floats {
    float a, b, c, d;
  };
  union Data {
    int32_t integer;
    float number;
    double real;
    SharedString::Block* string;
    Object* object;
    const Type* type;
    Floats floats;
  };
  void Retain();
  void Drop();

  ValueKind kind;
  Data data{};
};

template <class T> T Value::As() const {
  if constexpr (std::is_same_v<T, bool>) {
    return AsBool();
  } else if constexpr (std::is_same_v<T, int32_t>) {
    return AsInt();
  } else if constexpr (std::is_same_v<T, float>) {
    return AsFloat();
  } else if constexpr (std::is_same_v<T, double>) {
    return AsDouble();
  } else if constexpr (std::is_same_v<T, SharedString>) {
    return AsString();
  } else if constexpr (std::is_same_v<T, std::string>) {
    return std::string(AsStringView());
  } else if constexpr (std::is_same_v<T, const Type*>) {
    return AsType();
  } else if constexpr (std::is_enum_v<T>) {
    return kind == ValueKind::Enum ? static_cast<T>(data.integer) : T{};
  } else if constexpr (std::is_pointer_v<T>) {
    return DynamicCast<std::remove_pointer_t<T>>(AsObject());
  } else if constexpr (std::is_same_v<T, Color>) {
    return kind == ValueKind::Color ? Color{data.floats.a, data.floats.b, data.floats.c, data.floats.d} : Color{};
  } else if constexpr (std::is_same_v<T, Point>) {
    return kind == ValueKind::Point ? Point{data.floats.a, data.floats.b} : Point{};
  } else if constexpr (std::is_same_v<T, Size>) {
    return kind == ValueKind::Size ? Size{data.floats.a, data.floats.b} : Size{};
  } else if constexpr (std::is_same_v<T, Rect>) {
    return kind == ValueKind::Rect ? Rect{data.floats.a, data.floats.b, data.floats.c, data.floats.d} : Rect{};
  } else if constexpr (std::is_same_v<T, Thickness>) {
    return kind == ValueKind::Thickness ? Thickness{data.floats.a, data.floats.b, data.floats.c, data.floats.d}
                                        : Thickness{};
  } else if constexpr (std::is_same_v<T, CornerRadius>) {
    return kind == ValueKind::CornerRadius ? CornerRadius{data.floats.a, data.floats.b, data.floats.c, data.floats.d}
                                           : CornerRadius{};
  } else if constexpr (std::is_same_v<T, GridLength>) {
    return kind == ValueKind::GridLength
               ? GridLength{data.floats.a, static_cast<GridUnit>(static_cast<int>(data.floats.b))}
               : GridLength{};
  } else {
    static_assert(!sizeof(T), "no such kind of value");
  }
}

/// The kind under which a C++ type is declared as a property.
template <class T> constexpr ValueKind KindOf() {
  if constexpr (std::is_same_v<T, bool>)
    return ValueKind::Bool;
  else if constexpr (std::is_same_v<T, int32_t>)
    return ValueKind::Int;
  else if constexpr (std::is_same_v<T, float>)
    return ValueKind::Float;
  else if constexpr (std::is_same_v<T, double>)
    return ValueKind::Double;
  else if constexpr (std::is_same_v<T, SharedString> || std::is_same_v<T, std::string>)
    return ValueKind::String;
  else if constexpr (std::is_same_v<T, Color>)
    return ValueKind::Color;
  else if constexpr (std::is_same_v<T, Point>)
    return ValueKind::Point;
  else if constexpr (std::is_same_v<T, Size>)
    return ValueKind::Size;
  else if constexpr (std::is_same_v<T, Rect>)
    return ValueKind::Rect;
  else if constexpr (std::is_same_v<T, Thickness>)
    return ValueKind::Thickness;
  else if constexpr (std::is_same_v<T, CornerRadius>)
    return ValueKind::CornerRadius;
  else if constexpr (std::is_same_v<T, GridLength>)
    return ValueKind::GridLength;
  else if constexpr (std::is_same_v<T, const Type*>)
    return ValueKind::Type;
  else if constexpr (std::is_enum_v<T>)
    return ValueKind::Enum;
  else if constexpr (std::is_same_v<T, Value>)
    return ValueKind::Any;
  else
    return ValueKind::Object;
}

} // namespace Toolkit
