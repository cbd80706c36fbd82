#include "toolkit/base/Value.h"

namespace Toolkit {

static_assert(sizeof(Value) == 24);

Value::Value(const SharedString& value) : kind(ValueKind::String) {
  data.string = value.block;
  Retain();
}

Value::Value(Object* object) : kind(object ? ValueKind::Object : ValueKind::None) {
  data.object = object;
  Retain();
}

void Value::Retain() {
  if (kind == ValueKind::String) {
    if (data.string) ++data.string->references;
  } else if (kind == ValueKind::Object) {
    data.object->AddRef();
  }
}

void Value::Drop() {
  if (kind == ValueKind::String) {
    SharedString::Release(data.string);
  } else {
    data.object->Release();
  }
  kind = ValueKind::None;
}

int32_t Value::AsInt() const {
  switch (kind) {
  case ValueKind::Int:
  case ValueKind::Bool:
  case ValueKind::Enum: return data.integer;
  case ValueKind::Float:
  case ValueKind::Double: {
    const double value = AsDouble();
    if (!(value > -2147483649.0)) return value != value ? 0 : INT32_MIN;
    return value >= 2147483648.0 ? INT32_MAX : static_cast<int32_t>(value);
  }
  default: return 0;
  }
}

float Value::AsFloat() const {
  switch (kind) {
  case ValueKind::Float: return data.number;
  case ValueKind::Double: return static_cast<float>(data.real);
  case ValueKind::Int: return static_cast<float>(data.integer);
  default: return 0;
  }
}

double Value::AsDouble() const {
  switch (kind) {
  case ValueKind::Float: return data.number;
  case ValueKind::Double: return data.real;
  case ValueKind::Int: return data.integer;
  default: return 0;
  }
}

SharedString Value::AsString() const {
  SharedString result;
  if (kind == ValueKind::String && data.string) {
    result.block = data.string;
    ++data.string->references;
  }
  return result;
}

std::string_view Value::AsStringView() const {
  if (kind != ValueKind::String || !data.string) return {};
  return {data.string->Text(), data.string->length};
}

bool operator==(const Value& a, const Value& b) {
  if (a.kind != b.kind) return false;
  switch (a.kind) {
  case ValueKind::None:
  case ValueKind::Any: return true;
  case ValueKind::Bool:
  case ValueKind::Int:
  case ValueKind::Enum: return a.data.integer == b.data.integer;
  case ValueKind::Float:
    return a.data.number == b.data.number || (a.data.number != a.data.number && b.data.number != b.data.number);
  case ValueKind::Double:
    return a.data.real == b.data.real || (a.data.real != a.data.real && b.data.real != b.data.real);
  case ValueKind::String: return a.data.string == b.data.string || a.AsStringView() == b.AsStringView();
  case ValueKind::Object: return a.data.object == b.data.object;
  case ValueKind::Type: return a.data.type == b.data.type;
  default:
    return a.data.floats.a == b.data.floats.a && a.data.floats.b == b.data.floats.b &&
           a.data.floats.c == b.data.floats.c && a.data.floats.d == b.data.floats.d;
  }
}

} // namespace Toolkit
