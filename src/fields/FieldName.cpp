#include "fields/FieldName.h"

#include "fields/BaseField.h"
#include "fields/FieldOwner.h"

namespace Tesselor {

using Toolkit::DynamicCast;

namespace {

/// Bytes of caption and node together.
constexpr size_t LongestName = 48;

/// A nested field knows no node; the one that it stands in does.
const FieldOwner* OwnerOf(const BaseField& field) {
  for (const Toolkit::UIElement* e = &field; e; e = e->UIParent())
    if (const auto* around = DynamicCast<BaseField>(e); around && around->OwnerNode()) return around->OwnerNode();
  return nullptr;
}

} // namespace

std::string NameOf(const BaseField& field, std::string_view value) {
  std::string name(field.GetLabel());
  const FieldOwner* owner = OwnerOf(field);
  const std::string node = owner ? owner->NameForUser() : std::string();
  if (node.empty() || node == value || name.size() + node.size() > LongestName) return name;
  return name.empty() ? node : name + " of " + node;
}

std::string NameOfFieldOf(const Toolkit::FrameworkElement* control, std::string_view otherwise,
                          std::string_view value) {
  const auto* field = control ? DynamicCast<BaseField>(control->GetDataContext()) : nullptr;
  const std::string name = field ? NameOf(*field, value) : std::string();
  return name.empty() ? std::string(otherwise) : name;
}

} // namespace Tesselor
