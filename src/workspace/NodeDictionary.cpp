#include "workspace/NodeDictionary.h"

#include "platform/AsciiCase.h"
#include "toolkit/application/MessageBox.h"
#include "workspace/ColorNames.h"

#include <utility>

namespace Tesselor {

namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// Takes the text under `key` if it is one.
bool ReadText(const cJSON* object, const char* key, std::string& text) {
  const std::optional<std::string> found = JsonText(cJSON_GetObjectItem(object, key));
  if (found) text = *found;
  return found.has_value();
}

bool ReadTrue(const cJSON* object, const char* key) { return cJSON_IsTrue(cJSON_GetObjectItem(object, key)); }

void ParseFields(const cJSON* entries, std::vector<std::unique_ptr<NodeFieldBlueprint>>& fields) {
  const cJSON* entry = nullptr;
  cJSON_ArrayForEach(entry, entries) {
    auto field = std::make_unique<NodeFieldBlueprint>();
    ReadText(entry, "Id", field->Id);
    ReadText(entry, "Type", field->Type);
    if (const cJSON* options = cJSON_GetObjectItem(entry, "Options"))
      field->Options.reset(cJSON_Duplicate(options, true));
    fields.push_back(std::move(field));
  }
}

/// A member that is neither a text nor an object with both texts maps to nothing, but keeps its place in the order.
void ParseSchemaKeys(const cJSON* schema, NodeBlueprint& blueprint) {
  if (!cJSON_IsObject(schema)) return;
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, schema) {
    blueprint.schemaKeys.emplace_back(member->string);
    if (std::optional<std::string> text = JsonText(member)) {
      blueprint.schema.Insert(member->string, *std::move(text));
      continue;
    }
    NodePinTarget target;
    if (cJSON_IsObject(member) && ReadText(member, "node", target.node) && ReadText(member, "pin", target.pin))
      blueprint.pinSchema.Assign(member->string, std::move(target));
  }
}

std::unique_ptr<NodePinBlueprint> MakeGenericPin(std::string id) {
  auto pin = std::make_unique<NodePinBlueprint>();
  pin->id = std::move(id);
  pin->Type = "Generic";
  pin->color = Toolkit::Colors::DimGray;
  return pin;
}

} // namespace

NodeDictionary::NodeDictionary() { AddBuiltInTypes(); }

void NodeDictionary::AddSchema(const cJSON* schema) {
  if (!TakeSchema(schema)) lacksSchemas = true;
}

bool NodeDictionary::TakeSchema(const cJSON* schema) {
  std::string color;
  if (!ReadText(schema, "color", color)) return false;
  auto blueprint = std::make_unique<NodeBlueprint>();
  blueprint->color = ParseColor(color);

  std::string id;
  if (!ReadText(schema, "id", id) || !ReadText(schema, "title", blueprint->title)) return false;
  ReadText(schema, "Description", blueprint->Description);
  ReadText(schema, "NamingField", blueprint->namingField);
  ParsePins(cJSON_GetObjectItem(schema, "inputs"), blueprint->inputs);

  // What the key says is not asked: a schema that names it at all describes a reference.
  if (cJSON_IsBool(cJSON_GetObjectItem(schema, "isreference"))) {
    blueprint->isReference = true;
    if (ReadText(schema, "filerefkey", blueprint->fileRefKey) &&
        ReadText(schema, "filerefvalue", blueprint->fileRefValue))
      ReadText(schema, "modifykey", blueprint->modifyKey);
    return Register(id, std::move(blueprint));
  }

  blueprint->isPassthrough = ReadTrue(schema, "ispassthrough");
  ParsePins(cJSON_GetObjectItem(schema, "outputs"), blueprint->outputs);
  ParseFields(cJSON_GetObjectItem(schema, "content"), blueprint->content);
  ParseSchemaKeys(cJSON_GetObjectItem(schema, "Schema"), *blueprint);
  return Register(id, std::move(blueprint));
}

void NodeDictionary::AddToCategory(const std::string& category, const std::string& nodeId) {
  categories[category].push_back(nodeId);
}

void NodeDictionary::AddVariant(const std::string& familyId, std::unique_ptr<NodeVariant> variant) {
  variants.Assign(familyId, std::move(variant));
}

const NodeVariant* NodeDictionary::FindVariant(std::string_view id) const {
  const auto* variant = variants.Find(id);
  return variant ? variant->get() : nullptr;
}

const NodeBlueprint* NodeDictionary::FindBlueprint(std::string_view id) const {
  const auto* blueprint = blueprints.Find(id);
  return blueprint ? blueprint->get() : nullptr;
}

bool NodeDictionary::KnowsType(std::string_view id) const { return FindBlueprint(id) || FindVariant(id); }

bool NodeDictionary::NamesUnknownTypes() const {
  for (const auto& [family, variant] : variants)
    for (const auto& [value, id] : variant->Variants)
      if (!KnowsType(id)) return true;
  for (const auto& [id, blueprint] : blueprints)
    for (const auto& [key, target] : blueprint->pinSchema)
      if (!KnowsType(target.node)) return true;
  return false;
}

void NodeDictionary::AddBuiltInTypes() {
  auto generic = std::make_unique<NodeBlueprint>();
  generic->title = "Raw JSON Node";
  generic->color = Toolkit::Colors::DimGray;
  generic->inputs.push_back(MakeGenericPin("Generic"));
  auto text = std::make_unique<NodeFieldBlueprint>();
  text->Id = "Generic";
  text->Type = "RawJson";
  generic->content.push_back(std::move(text));
  Register("Generic", std::move(generic));
  AddToCategory("Generic", "Generic");

  auto link = std::make_unique<NodeBlueprint>();
  link->title = "Link";
  link->color = FindNamedColor("lightpurple").value();
  link->isPassthrough = true;
  link->inputs.push_back(MakeGenericPin("GenericIn"));
  link->inputs.back()->Multiple = true;
  link->outputs.push_back(MakeGenericPin("GenericOut"));
  link->outputs.back()->Multiple = true;
  link->outputs.back()->Label = "Children";
  Register("Link", std::move(link));
}

bool NodeDictionary::Register(const std::string& id, std::unique_ptr<NodeBlueprint> blueprint) {
  nodeIds.push_back(id);
  return blueprints.Insert(id, std::move(blueprint)).second;
}

void NodeDictionary::ParsePins(const cJSON* entries, std::vector<std::unique_ptr<NodePinBlueprint>>& pins) const {
  const cJSON* entry = nullptr;
  cJSON_ArrayForEach(entry, entries) {
    std::string color;
    if (!ReadText(entry, "color", color)) continue;
    NodePinBlueprint& pin = *pins.emplace_back(std::make_unique<NodePinBlueprint>());
    pin.color = ParseColor(color);
    ReadText(entry, "id", pin.id);
    const cJSON* spacing = cJSON_GetObjectItem(entry, "SpacingAbove");
    if (cJSON_IsNumber(spacing)) pin.SpacingAbove = spacing->valueint;
    pin.Multiple = ReadTrue(entry, "Multiple");
    pin.IsMap = ReadTrue(entry, "IsMap");
    ReadText(entry, "Type", pin.Type);
    ReadText(entry, "Label", pin.Label);
    ReadText(entry, "Description", pin.Description);
    ParseFields(cJSON_GetObjectItem(entry, "fields"), pin.fields);
  }
}

Toolkit::Color NodeDictionary::ParseColor(const std::string& text) const {
  const std::string name = LowerCase(text);
  const bool isName = !text.empty() && IsLetter(text.front());
  if (const auto color = isName ? FindNamedColor(name) : ParseNumericColor(text)) return *color;
  Toolkit::MessageBox::Show("Color: [" + name + "] does not exist. Blue will be used as default", "Attention!");
  return FindNamedColor("blue").value();
}

} // namespace Tesselor
