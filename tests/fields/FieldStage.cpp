#include "FieldStage.h"

#include "ToolkitEnvironment.h"
#include "fields/FieldRegistration.h"
#include "workspace/NodeFieldBlueprint.h"

namespace TestSupport {

std::string Print(const cJSON* json) { return Tesselor::PrintJson(json, Tesselor::JsonForm::Compact); }

Toolkit::Ptr<Tesselor::BaseField> MakeField(const std::string& type, const std::string& options, bool applyDefaults) {
  Tesselor::NodeFieldBlueprint blueprint;
  blueprint.Id = "K";
  blueprint.Type = type;
  blueprint.Options.reset(options.empty() ? nullptr : cJSON_Parse(options.c_str()));
  EXPECT_TRUE(options.empty() || blueprint.Options) << options;
  return Tesselor::sCreateField(&blueprint, applyDefaults);
}

void Load(Tesselor::BaseField& field, const std::string& object) {
  const Json json = Parse(object);
  ASSERT_TRUE(json) << object;
  field.Deserialize(json.get(), "K");
}

std::string Saved(Tesselor::BaseField& field) {
  const Json object(cJSON_CreateObject());
  field.Serialize(object.get(), "K");
  return Print(object.get());
}

FieldStage::FieldStage(Tesselor::BaseField& field) : field(field) {
  History().Clear();
  column->AddChild(&field);
  column->AddChild(elsewhere.Get());
  Put(*column, {1000, 4000});
}

FieldStage::~FieldStage() {
  TakeDown();
  column->ClearChildren();
  History().Clear();
}

void FieldStage::Undo() {
  History().UndoLast();
  Settle();
}

void FieldStage::Redo() {
  History().RedoLast();
  Settle();
}

FieldTest::FieldTest() { ToolkitEnvironment::Start(&Tesselor::RegisterFieldTypes); }

} // namespace TestSupport
