#include "FieldStage.h"

#include "ToolkitEnvironment.h"
#include "fields/FieldRegistration.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/Slider.h"
#include "workspace/NodeFieldBlueprint.h"

#include <algorithm>

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

std::string FieldTest::Play(const std::string& type, const std::string& options, const std::string& file,
                            const std::vector<std::string>& steps) {
  const auto field = MakeField(type, options);
  if (!file.empty()) Load(*field, file);
  FieldStage stage(*field);
  std::string told = type + options + " " + file + "\n";
  for (const std::string& step : steps) {
    const size_t digit = step.find_first_of("0123456789 "), space = step.find(' ');
    const bool hasIndex = digit < space && digit != std::string::npos;
    boxes.boxes.clear();
    Act(stage, step.substr(0, digit), hasIndex ? static_cast<size_t>(step[digit] - '0') : 0,
        space == std::string::npos ? "" : step.substr(space + 1));
    told += "  " + step + ": '" + field->GetValueAsString() + "'";
    for (const Toolkit::TextBox* box : All<Toolkit::TextBox>(*field)) told += " [" + std::string(box->GetText()) + "]";
    const std::vector<Toolkit::Button*> buttons = All<Toolkit::Button>(*field);
    for (size_t i = 0; i < buttons.size(); ++i)
      told += (i % 4 ? "" : " ") +
              std::string(buttons[i]->GetVisibility() == Toolkit::Visibility::Visible ? 1 : 0, "udfr"[i % 4]);
    const size_t undone = stage.History().UndoneCount();
    told += " " + std::to_string(stage.History().Size() - undone) + " done, " + std::to_string(undone) + " undone";
    if (step == "save") told += ", writes " + Saved(*field);
    for (const std::string& box : boxes.Texts()) told += "; " + box;
    told += "\n";
  }
  return told;
}

void FieldTest::Act(FieldStage& stage, const std::string& verb, size_t index, const std::string& rest) {
  /// The buttons of a row in tree order.
  static const std::vector<std::string> rowButtons{"up", "down", "folder", "remove"};
  const auto button = std::find(rowButtons.begin(), rowButtons.end(), verb);
  const std::vector<Toolkit::Button*> buttons = All<Toolkit::Button>(stage.field);
  if (button != rowButtons.end())
    stage.Click(buttons.at(index * 4 + static_cast<size_t>(button - rowButtons.begin())));
  else if (verb == "add")
    stage.Click(buttons.back());
  else if (verb == "type")
    stage.Type(rest, index);
  else if (verb == "check")
    stage.Click(stage.First<Toolkit::CheckBox>());
  else if (verb == "slide")
    stage.Click(stage.First<Toolkit::Slider>());
  else if (verb == "stay")
    stage.Focus(Find<Toolkit::UIElement>(stage.field, [](const Toolkit::UIElement& element) {
      return element.Get<bool>(Toolkit::UIElement::FocusableProperty);
    }));
  else if (verb == "key")
    stage.Press(rest == "PageUp" ? Toolkit::Key::PageUp : Toolkit::Key::PageDown);
  else if (verb == "away")
    stage.FocusElsewhere();
  else if (verb == "undo")
    stage.Undo();
  else if (verb == "redo")
    stage.Redo();
  else if (verb == "load")
    Load(stage.field, rest);
  else
    EXPECT_EQ(verb, "save");
  stage.Settle();
}

} // namespace TestSupport
