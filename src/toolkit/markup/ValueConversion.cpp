#include "toolkit/markup/ValueConversion.h"

#include "toolkit/base/Type.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/PathGeometry.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <unordered_map>
#include <vector>

namespace Toolkit {

namespace {
std::string_view Trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t' || text.front() == '\n')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\n')) text.remove_suffix(1);
  return text;
}

bool ParseDouble(std::string_view text, double& value) {
  text = Trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() && result.ptr == text.data() + text.size();
}

bool ParseFloats(std::string_view text, std::vector<float>& numbers) {
  size_t position = 0;
  while (position < text.size()) {
    const size_t start = text.find_first_not_of(", \t\n", position);
    if (start == std::string_view::npos) break;
    const size_t end = std::min(text.find_first_of(", \t\n", start), text.size());
    double number;
    if (!ParseDouble(text.substr(start, end - start), number)) return false;
    numbers.push_back(static_cast<float>(number));
    position = end;
  }
  return !numbers.empty();
}

// One number stands for all four sides, two for horizontal and vertical.
bool ParseFour(std::string_view text, float (&four)[4]) {
  std::vector<float> n;
  if (!ParseFloats(text, n)) return false;
  if (n.size() == 1)
    four[0] = four[1] = four[2] = four[3] = n[0];
  else if (n.size() == 2)
    four[0] = four[2] = n[0], four[1] = four[3] = n[1];
  else if (n.size() == 4)
    std::copy(n.begin(), n.end(), four);
  else
    return false;
  return true;
}

const std::unordered_map<std::string_view, uint32_t>& NamedColors() {
  static const auto* colors = new std::unordered_map<std::string_view, uint32_t>{
      {"Transparent", 0x00FFFFFF}, {"Black", 0xFF000000},      {"White", 0xFFFFFFFF},     {"Snow", 0xFFFFFAFA},
      {"LightGray", 0xFFD3D3D3},   {"Gray", 0xFF808080},       {"DimGray", 0xFF696969},   {"DarkGray", 0xFFA9A9A9},
      {"Silver", 0xFFC0C0C0},      {"Red", 0xFFFF0000},        {"Green", 0xFF008000},     {"Blue", 0xFF0000FF},
      {"Yellow", 0xFFFFFF00},      {"Orange", 0xFFFFA500},     {"OrangeRed", 0xFFFF4500}, {"Magenta", 0xFFFF00FF},
      {"LightGreen", 0xFF90EE90},  {"DodgerBlue", 0xFF1E90FF}, {"Gainsboro", 0xFFDCDCDC}, {"WhiteSmoke", 0xFFF5F5F5}};
  return *colors;
}

bool ParseGridLength(std::string_view text, GridLength& length) {
  text = Trim(text);
  if (text == "Auto") {
    length = {1, GridUnit::Auto};
    return true;
  }
  double value = 1;
  if (!text.empty() && text.back() == '*') {
    text.remove_suffix(1);
    if (!text.empty() && !ParseDouble(text, value)) return false;
    length = {static_cast<float>(value), GridUnit::Star};
    return true;
  }
  if (!ParseDouble(text, value)) return false;
  length = {static_cast<float>(value), GridUnit::Pixel};
  return true;
}
} // namespace

bool ValueConversion::ColorFromText(std::string_view text, Color& color) {
  text = Trim(text);
  uint32_t argb = 0;
  if (!text.empty() && text.front() == '#') {
    const std::string_view digits = text.substr(1);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), argb, 16);
    if (result.ec != std::errc() || result.ptr != digits.data() + digits.size()) return false;
    if (digits.size() == 3) {
      argb = 0xFF000000 | ((argb & 0xF00) * 0x1100) | ((argb & 0xF0) * 0x110) | ((argb & 0xF) * 0x11);
    } else if (digits.size() == 6) {
      argb |= 0xFF000000;
    } else if (digits.size() != 8) {
      return false;
    }
  } else {
    auto found = NamedColors().find(text);
    if (found == NamedColors().end()) return false;
    argb = found->second;
  }
  auto channel = [argb](int shift) { return static_cast<int>((argb >> shift) & 0xFF); };
  color = Color::FromBytes(channel(16), channel(8), channel(0), channel(24));
  return true;
}

bool ValueConversion::FromText(std::string_view text, ValueKind kind, const EnumDescription* enumeration,
                               Value& result) {
  switch (kind) {
  case ValueKind::String:
  case ValueKind::Any: result = Value(SharedString(text)); return true;
  case ValueKind::Bool: {
    const std::string_view word = Trim(text);
    if (word != "True" && word != "False" && word != "true" && word != "false") return false;
    result = Value(word == "True" || word == "true");
    return true;
  }
  case ValueKind::Int:
  case ValueKind::Float:
  case ValueKind::Double: {
    double number;
    if (Trim(text) == "Auto" && kind == ValueKind::Float) {
      result = Value(Auto);
      return true;
    }
    if (!ParseDouble(text, number)) return false;
    if (kind == ValueKind::Int)
      result = Value(Value(number).AsInt());
    else if (kind == ValueKind::Float)
      result = Value(static_cast<float>(number));
    else
      result = Value(number);
    return true;
  }
  case ValueKind::Enum: {
    int32_t number;
    if (!enumeration || !enumeration->Find(Trim(text), number)) return false;
    result = Value::FromEnum(number);
    return true;
  }
  case ValueKind::Color: {
    Color color;
    if (!ColorFromText(text, color)) return false;
    result = Value(color);
    return true;
  }
  case ValueKind::Thickness: {
    float n[4];
    if (!ParseFour(text, n)) return false;
    result = Value(Thickness{n[0], n[1], n[2], n[3]});
    return true;
  }
  case ValueKind::CornerRadius: {
    float n[4];
    if (!ParseFour(text, n)) return false;
    result = Value(CornerRadius{n[0], n[1], n[2], n[3]});
    return true;
  }
  case ValueKind::Point: {
    std::vector<float> n;
    if (!ParseFloats(text, n) || n.size() != 2) return false;
    result = Value(Point{n[0], n[1]});
    return true;
  }
  case ValueKind::Size: {
    std::vector<float> n;
    if (!ParseFloats(text, n) || n.size() != 2) return false;
    result = Value(Size{n[0], n[1]});
    return true;
  }
  case ValueKind::Rect: {
    std::vector<float> n;
    if (!ParseFloats(text, n) || n.size() != 4) return false;
    result = Value(Rect{n[0], n[1], n[2], n[3]});
    return true;
  }
  case ValueKind::GridLength: {
    GridLength length;
    if (!ParseGridLength(text, length)) return false;
    result = Value(length);
    return true;
  }
  default: return false;
  }
}

bool ValueConversion::FromText(std::string_view text, const DependencyProperty& property, Value& result) {
  if (property.kind != ValueKind::Object) return FromText(text, property.kind, property.enumeration, result);
  const Type& wanted = property.objectType();
  if (SolidColorBrush::StaticType().IsA(wanted) && &wanted != &Object::StaticType()) {
    Color color;
    if (!ColorFromText(text, color)) return false;
    result = Value(MakePtr<SolidColorBrush>(color));
    return true;
  }
  if (PathGeometry::StaticType().IsA(wanted) && &wanted != &Object::StaticType()) {
    Ptr<PathGeometry> geometry = PathGeometry::Parse(text);
    result = Value(geometry);
    return geometry != nullptr;
  }
  return false;
}

bool ValueConversion::Convert(const Value& value, ValueKind kind, Value& result) {
  if (value.Kind() == kind || kind == ValueKind::Any) {
    result = value;
    return true;
  }
  const bool isNumber =
      value.Kind() == ValueKind::Int || value.Kind() == ValueKind::Float || value.Kind() == ValueKind::Double;
  switch (kind) {
  case ValueKind::String:
    if (value.IsNone()) {
      result = Value(SharedString());
      return true;
    }
    if (value.Kind() == ValueKind::Object) return false;
    result = Value(ToText(value));
    return true;
  case ValueKind::Int:
    if (!isNumber) return value.Kind() == ValueKind::String && FromText(value.AsStringView(), kind, nullptr, result);
    // Rounded, since a slider between two numbers stands for the nearer one.
    result = Value(Value(std::round(value.AsDouble())).AsInt());
    return true;
  case ValueKind::Float:
    if (!isNumber) return value.Kind() == ValueKind::String && FromText(value.AsStringView(), kind, nullptr, result);
    result = Value(value.AsFloat());
    return true;
  case ValueKind::Double:
    if (!isNumber) return value.Kind() == ValueKind::String && FromText(value.AsStringView(), kind, nullptr, result);
    result = Value(value.AsDouble());
    return true;
  case ValueKind::Thickness:
    if (!isNumber) return false;
    result = Value(Thickness::Uniform(value.AsFloat()));
    return true;
  case ValueKind::GridLength:
    if (!isNumber) return false;
    result = Value(GridLength{value.AsFloat(), GridUnit::Pixel});
    return true;
  default: return false;
  }
}

bool ValueConversion::Convert(const Value& value, const DependencyProperty& property, Value& result) {
  if (property.kind == ValueKind::Object) {
    if (value.IsNone()) {
      result = Value();
      return true;
    }
    Object* object = value.AsObject();
    if (!object || !object->GetType().IsA(property.objectType())) return false;
    result = value;
    return true;
  }
  return Convert(value, property.kind, result);
}

SharedString ValueConversion::ToText(const Value& value) {
  char buffer[64];
  switch (value.Kind()) {
  case ValueKind::String: return value.AsString();
  case ValueKind::Bool: return value.AsBool() ? "True" : "False";
  case ValueKind::Int:
  case ValueKind::Enum: {
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value.AsInt());
    return std::string_view(buffer, static_cast<size_t>(end.ptr - buffer));
  }
  case ValueKind::Float: {
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value.AsFloat());
    return std::string_view(buffer, static_cast<size_t>(end.ptr - buffer));
  }
  case ValueKind::Double: {
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value.AsDouble());
    return std::string_view(buffer, static_cast<size_t>(end.ptr - buffer));
  }
  default: return {};
  }
}

SharedString ValueConversion::Format(std::string_view format, const Value& value) {
  const size_t open = format.find("{0");
  if (open == std::string_view::npos) {
    char buffer[400];
    if (!format.empty() && format.front() == 'D') {
      const auto end = std::to_chars(buffer, buffer + sizeof buffer, Value(value.AsDouble()).AsInt());
      return std::string_view(buffer, static_cast<size_t>(end.ptr - buffer));
    }
    if (!format.empty() && format.front() == 'F') {
      int digits = 2;
      if (format.size() > 1) std::from_chars(format.data() + 1, format.data() + format.size(), digits);
      const auto end =
          std::to_chars(buffer, buffer + sizeof buffer, value.AsDouble(), std::chars_format::fixed, digits);
      if (end.ec == std::errc()) return std::string_view(buffer, static_cast<size_t>(end.ptr - buffer));
    }
    return ToText(value);
  }
  const size_t close = format.find('}', open);
  if (close == std::string_view::npos) return ToText(value);
  std::string_view inner = format.substr(open + 2, close - open - 2);
  if (!inner.empty() && inner.front() == ':') inner.remove_prefix(1);
  std::string text(format.substr(0, open));
  text += Format(inner, value).View();
  text += format.substr(close + 1);
  return text;
}

} // namespace Toolkit
