// Editing by real input: what the boxes make of it and which undo steps come of it.
#include "FieldStage.h"

#include "Expected.h"
#include "fields/FieldCheckbox.h"
#include "fields/FieldFloat.h"
#include "fields/FieldInt.h"
#include "fields/FieldIntSlider.h"
#include "fields/FieldOwner.h"
#include "fields/FieldRawJson.h"
#include "fields/FieldSmallText.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/Image.h"
#include "toolkit/controls/Slider.h"

namespace {

using namespace TestSupport;
using Tesselor::FieldInt;
using Tesselor::FieldRawJson;
using Tesselor::FieldSmallText;
using Toolkit::Button;
using Toolkit::TextBox;

class FieldEditing : public FieldTest {};

TEST_F(FieldEditing, KeepsNumberBoxesToNumbersAndWritesZeroForOthers) {
  std::string dump;
  for (const auto& [type, options] : {std::pair("Int", R"({"Default":0})"),
                                      {"Int", R"({"Min":1})"},
                                      {"Int", R"({"Max":-3})"},
                                      {"Int", R"({"Min":1,"Max":9})"},
                                      {"Int", R"({"Min":9,"Max":1})"},
                                      {"Float", ""},
                                      {"Float", R"({"Max":2})"}})
    for (const char* typed :
         {"", "a1b", "ab1", "1-2", "12", "5", "--5", "99999999999", "1e", "1e5", "3", "x.5y", "."}) {
      const auto field = MakeField(type, options);
      FieldStage stage(*field);
      stage.Type(typed);
      EXPECT_EQ(stage.First<TextBox>()->GetText(), field->GetValueAsString());
      boxes.boxes.clear();
      dump += type + std::string(options) + " '" + typed + "': '" + field->GetValueAsString() + "'" +
              (field->IsDefault() ? " default, " : ", ") + Saved(*field);
      for (const auto& box : boxes.boxes)
        dump += (box.image == Toolkit::MessageBoxImage::Error ? ", error " : ", ") + box.caption + ": " + box.text;
      dump += "\n";
    }
  ExpectText("TypedNumbers", dump);
}

TEST_F(FieldEditing, MakesOneStepPerStayOfTheFocusAndPerClick) {
  std::string told;
  // The text comes back in the second stay.
  for (const char* type : {"String", "SmallString", "Int", "Float", "Mixed", "RawJson"})
    told += Play(type, "", "",
                 {"type 1", "type 12", "away", "type 3", "type 12", "away", "type 5", "away", "undo", "undo", "redo",
                  "redo", "save"});
  // A change by code is the new starting value.
  told += Play("Int", "", "", {R"(load {"K":7})", "stay", "away"});
  told += Play("Checkbox", "", "", {"check", "check", "undo", "redo", "undo", "undo", "save"});
  told +=
      Play("IntSlider", "", "", {"slide", "key PageUp", "away", "stay", "key PageUp", "key PageDown", "away", "undo"});
  // A value outside its bounds stays.
  told += Play("IntSlider", R"({"Min":10,"Max":20})", "", {R"(load {"K":500})", "stay", "away", "save"});
  ExpectText("FieldSteps", told);
}

TEST_F(FieldEditing, LetsTypingReachEveryNumberAndShowsWhatIsSaved) {
  const auto field = Make<FieldInt>("Int", R"({"Min":10,"Max":999,"Default":50})");
  FieldStage stage(*field);
  auto& box = *stage.First<TextBox>();
  stage.Type("");
  stage.Type("2");
  EXPECT_EQ(box.GetText(), "2");
  stage.Focus(&box);
  stage.Press(Toolkit::Key::End);
  static_cast<Stage&>(stage).Type("5");
  EXPECT_EQ(field->GetValueAsString(), "25");
  stage.Type("125-3");
  stage.FocusElsewhere();
  EXPECT_EQ(box.GetText(), "125");
  EXPECT_EQ(Saved(*field), R"({"K":125})");
  stage.Type("2");
  stage.FocusElsewhere();
  EXPECT_EQ(Saved(*field), R"({"K":10})");
  EXPECT_EQ(stage.History().Size(), 2u);
  stage.Undo();
  EXPECT_EQ(box.GetText(), "125") << "the step holds what was left, not what was typed";
  stage.Redo();
  EXPECT_EQ(box.GetText(), "10");
  Load(*field, R"({"K":2})");
  EXPECT_EQ(box.GetText(), "10") << "what comes from a file does not grow";
}

TEST_F(FieldEditing, RedoesWhatWasRecordedWhateverCameBetween) {
  const auto field = Make<Tesselor::FieldCheckbox>("Checkbox");
  FieldStage stage(*field);
  auto* box = stage.First<Toolkit::CheckBox>();
  stage.Click(box);
  stage.Click(box);
  stage.Undo();
  field->GetFieldCheckboxData()->SetValue(false);
  stage.Redo();
  EXPECT_FALSE(box->IsChecked());
  stage.Undo();
  EXPECT_TRUE(box->IsChecked());
}

TEST_F(FieldEditing, KeepsAStepAliveWithoutItsField) {
  auto field = Make<FieldInt>("Int");
  const Toolkit::Ptr<Tesselor::FieldTextData> carrier(field->GetFieldTextData());
  FieldStage* stage = new FieldStage(*field);
  stage->Type("5");
  stage->FocusElsewhere();
  stage->column->RemoveChild(field.Get());
  const Toolkit::WeakPtr<FieldInt> gone(field);
  field.Reset();
  EXPECT_FALSE(gone);
  stage->Undo();
  EXPECT_EQ(carrier->GetValue(), "0");
  delete stage;
}

/// Stands for the node of a field.
class Owner final : public Tesselor::FieldOwner {
public:
  std::string NodeName() const override { return name; }
  void SetNodeName(std::string_view newName) override { name = newName; }
  std::string FindUpstreamName() override { return upstream; }
  std::string NameForUser() const override { return name; }
  std::string name, upstream;
};

TEST_F(FieldEditing, MakesNamesAndUuidsByButton) {
  const auto field = Make<FieldSmallText>("SmallString", R"({"IsUUID":true,"IsNodeName":true,"Width":50})");
  const std::string uuid = field->GetValueAsString();
  EXPECT_EQ(uuid.size(), 36u);
  Owner owner;
  FieldStage stage(*field);
  const std::vector<Button*> buttons = All<Button>(field.Get());
  ASSERT_EQ(buttons.size(), 2u);
  std::string images;
  for (const auto* image : All<Toolkit::Image>(field.Get()))
    images += std::string(image->GetString(Toolkit::Image::SourceProperty)) + " ";
  EXPECT_EQ(images, "Assets/refresh.png Assets/bolt.png ");
  stage.Click(buttons[0]);
  EXPECT_EQ(field->GetValueAsString().size(), 36u);
  EXPECT_NE(field->GetValueAsString(), uuid);
  stage.Click(buttons[1]);
  EXPECT_EQ(field->GetValueAsString(), "_inline");
  field->SetOwnerNode(&owner);
  owner.upstream = "Up";
  stage.Click(buttons[1]);
  EXPECT_EQ(field->GetValueAsString(), "Up_inline");
  owner.name = "Own";
  stage.Click(buttons[1]);
  EXPECT_EQ(field->GetValueAsString(), "Own_inline");
  EXPECT_EQ(owner.name, "Own");
  EXPECT_EQ(stage.History().Size(), 4u);
  for (int i = 0; i < 4; ++i) stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), uuid);
  for (int i = 0; i < 4; ++i) stage.Redo();
  EXPECT_EQ(field->GetValueAsString(), "Own_inline");
  stage.Type("Given");
  stage.FocusElsewhere();
  EXPECT_EQ(owner.name, "Given");
}

TEST_F(FieldEditing, HidesTheButtonsThatTheSchemaDoesNotAskFor) {
  const auto field = Make<FieldSmallText>("SmallString", R"({"IsUUID":false})");
  EXPECT_EQ(field->GetValueAsString().size(), 36u);
  Owner owner;
  owner.name = "Own";
  field->SetOwnerNode(&owner);
  FieldStage stage(*field);
  for (const Button* button : All<Button>(field.Get()))
    EXPECT_EQ(button->GetVisibility(), Toolkit::Visibility::Collapsed);
  stage.Type("Given");
  stage.FocusElsewhere();
  EXPECT_EQ(owner.name, "Own");
}

TEST_F(FieldEditing, SavesTheLastJsonThatWasValid) {
  const std::string tooDeep = std::string(1001, '[') + std::string(1001, ']');
  std::string told = Play("RawJson", R"({"Label":"Raw"})", "",
                          {"type ", "save", R"(type {"a":1})", "save", R"(type {"a":2},)", "save", "type  5 ", "save",
                           "type \xef\xbb\xbf{}", "save", "type ", "save"});
  told += Play("RawJson", R"({"Default":"{]"})", "", {"save"});
  // What was loaded, the end of a stay, what was undone to, and an undo without the focus.
  told += Play("RawJson", "", "",
               {"load {\"K\":[1]}", "type nope", "save", "type [2]", "away", "type nope", "save", "type [3]", "away",
                "undo", "undo", "type nope", "save", "away", "type [4]", "away", "undo", "save"});
  ExpectText("RawJsonSteps", told);
  const auto field = Make<FieldRawJson>("RawJson", R"({"Label":"Raw"})");
  FieldStage stage(*field);
  stage.Type("[1]");
  EXPECT_EQ(Saved(*field), R"({"K":[1]})");
  stage.Type(tooDeep);
  EXPECT_EQ(Saved(*field), R"({"K":[1]})");
  EXPECT_EQ(field->GetValueAsString(), tooDeep);
}

} // namespace
