#include "toolkit/base/Type.h"

#include "toolkit/base/Diagnostics.h"

#include <deque>
#include <unordered_map>

namespace Toolkit {

namespace {
std::unordered_map<Symbol, Type*>& Types() {
  static auto* types = new std::unordered_map<Symbol, Type*>();
  return *types;
}
std::deque<DependencyProperty>& Properties() {
  static auto* properties = new std::deque<DependencyProperty>();
  return *properties;
}
} // namespace

Type* TypeRegistry::Add(std::string_view name, const Type* base, Type::Factory factory) {
  auto* type = new Type(Symbol(name), base, factory);
  const bool added = Types().emplace(Symbol(name), type).second;
  TOOLKIT_ASSERT(added);
  return type;
}

const Type* TypeRegistry::Find(Symbol name) {
  auto found = Types().find(name);
  return found == Types().end() ? nullptr : found->second;
}

const DependencyProperty* Type::FindProperty(Symbol wanted) const {
  for (const Type* type = this; type; type = type->base)
    for (const DependencyProperty* property : type->properties)
      if (property->name == wanted) return property;
  return nullptr;
}

const ReflectedMember* Type::FindMember(Symbol wanted) const {
  for (const Type* type = this; type; type = type->base)
    for (const ReflectedMember& member : type->members)
      if (member.name == wanted) return &member;
  return nullptr;
}

const ListMember* Type::FindList(Symbol wanted) const {
  for (const Type* type = this; type; type = type->base)
    for (const ListMember& list : type->lists)
      if (list.name == wanted) return &list;
  return nullptr;
}

const RoutedEvent* Type::FindEvent(Symbol wanted) const {
  for (const Type* type = this; type; type = type->base)
    for (const RoutedEvent* event : type->events)
      if (event->name == wanted) return event;
  return nullptr;
}

const HandlerMember* Type::FindHandler(Symbol wanted, const RoutedEvent& event) const {
  for (const Type* type = this; type; type = type->base)
    for (const HandlerMember& handler : type->handlers)
      if (handler.name == wanted && handler.event == &event) return &handler;
  return nullptr;
}

Symbol Type::ContentMember() const {
  for (const Type* type = this; type; type = type->base)
    if (!type->content.IsEmpty()) return type->content;
  return {};
}

const DependencyProperty* DependencyProperty::Register(DependencyProperty property) {
  property.index = static_cast<uint16_t>(Properties().size());
  if (property.flags & Inherits) {
    static uint8_t inheritedCount = 0;
    TOOLKIT_ASSERT(inheritedCount < 16);
    property.inheritedIndex = inheritedCount++;
  }
  Properties().push_back(std::move(property));
  return &Properties().back();
}

const DependencyProperty& DependencyProperty::At(uint16_t index) { return Properties()[index]; }

const DependencyProperty* DependencyProperty::Inherited(int inheritedIndex) {
  static const DependencyProperty* found[16] = {};
  if (!found[inheritedIndex]) {
    for (const DependencyProperty& property : Properties())
      if ((property.flags & Inherits) && property.inheritedIndex == inheritedIndex) found[inheritedIndex] = &property;
  }
  return found[inheritedIndex];
}

uint16_t DependencyProperty::InheritedBitsThatMeasure() {
  // Classes are described before objects are made, so the sum does not change any more once it is asked for.
  static const uint16_t bits = [] {
    uint16_t sum = 0;
    for (const DependencyProperty& property : Properties())
      if (property.flags & AffectsMeasure) sum = static_cast<uint16_t>(sum | property.InheritedBit());
    return sum;
  }();
  return bits;
}

bool EnumDescription::Find(std::string_view text, int32_t& value) const {
  for (const auto& [name, number] : names) {
    if (name == text) {
      value = number;
      return true;
    }
  }
  return false;
}

} // namespace Toolkit
