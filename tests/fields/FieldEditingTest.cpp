// Editing by real input: what the boxes make of it and which undo steps come of it.
#include "FieldStage.h"

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

TEST_F(FieldEditing, FiltersWhatIsTypedIntoNumberBoxes) {
  const struct {
    const char* type;
    const char* options;
    const char* typed;
    const char* text;
    const char* saved;
  } cases[] = {
      {"Int", "", "a1b", "1", R"({"K":1})"},
      {"Int", "", "ab1", "1", R"({"K":1})"},
      {"Int", "", "1-2", "1-2", R"({"K":1})"},
      {"Int", R"({"Min":1})", "", "1", R"({"K":1})"},
      {"Int", R"({"Max":-3})", "", "-3", R"({"K":-3})"},
      {"Int", R"({"Min":1,"Max":9})", "12", "9", R"({"K":9})"},
      {"Int", R"({"Min":9,"Max":1})", "5", "5", R"({"K":5})"},
      {"Float", "", "1e", "1", R"({"K":1})"},
      {"Float", "", "1e5", "1e5", R"({"K":100000})"},
      {"Float", R"({"Max":2})", "3", "2.000000", R"({"K":2})"},
      {"Float", "", "x.5y", ".5", R"({"K":0.5})"},
  };
  for (const auto& c : cases) {
    const auto field = MakeField(c.type, c.options);
    FieldStage stage(*field);
    stage.Type(c.typed);
    EXPECT_EQ(stage.First<TextBox>()->GetText(), c.text) << c.type << " " << c.typed;
    EXPECT_EQ(field->GetValueAsString(), c.text) << c.type << " " << c.typed;
    EXPECT_EQ(Saved(*field), c.saved) << c.type << " " << c.typed;
  }
}

TEST_F(FieldEditing, WritesZeroForATextThatIsNoNumber) {
  const struct {
    const char* type;
    const char* typed;
    const char* box;
  } cases[] = {
      {"Int", "", "Attention!: Can't convert  to integer."},
      {"Int", "--5", "Attention!: Can't convert --5 to integer."},
      {"Int", "99999999999", "Attention!: Can't convert 99999999999 to integer."},
      {"Float", ".", "Attention!: Can't convert . to double."},
      {"Float", "", "Attention!: Can't convert  to double."},
  };
  for (const auto& c : cases) {
    const auto field = MakeField(c.type, R"({"Default":0})");
    FieldStage stage(*field);
    stage.Type(c.typed);
    EXPECT_FALSE(field->IsDefault()) << c.typed;
    boxes.boxes.clear();
    EXPECT_EQ(Saved(*field), R"({"K":0})") << c.typed;
    EXPECT_EQ(boxes.Texts(), std::vector<std::string>{c.box});
    ASSERT_FALSE(boxes.boxes.empty());
    EXPECT_EQ(boxes.boxes[0].image, Toolkit::MessageBoxImage::Error);
  }
}

TEST_F(FieldEditing, MakesOneStepPerStayOfTheFocus) {
  for (const char* type : {"String", "SmallString", "Int", "Float", "Mixed", "RawJson"}) {
    const auto field = MakeField(type);
    FieldStage stage(*field);
    const std::string first = field->GetValueAsString();
    auto* box = stage.First<TextBox>();
    stage.Type("1");
    stage.Type("12");
    EXPECT_EQ(stage.History().Size(), 0u) << type;
    stage.FocusElsewhere();
    EXPECT_EQ(stage.History().Size(), 1u) << type;
    stage.Type("3");
    stage.Type("12");
    stage.FocusElsewhere();
    EXPECT_EQ(stage.History().Size(), 1u) << type << ": the text came back";
    stage.Type("5");
    stage.FocusElsewhere();
    stage.Undo();
    EXPECT_EQ(box->GetText(), "12") << type;
    stage.Undo();
    EXPECT_EQ(box->GetText(), first) << type;
    stage.Redo();
    stage.Redo();
    EXPECT_EQ(field->GetValueAsString(), "5") << type;
  }
}

TEST_F(FieldEditing, TakesAChangeByCodeAsTheNewStartingValue) {
  const auto field = Make<FieldInt>("Int");
  FieldStage stage(*field);
  Load(*field, R"({"K":7})");
  stage.Focus(stage.First<TextBox>());
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 0u);
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

TEST_F(FieldEditing, MakesOneStepPerClickOnACheckBox) {
  const auto field = MakeField("Checkbox");
  FieldStage stage(*field);
  auto* box = stage.First<Toolkit::CheckBox>();
  stage.Click(box);
  EXPECT_EQ(field->GetValueAsString(), "true");
  stage.Click(box);
  EXPECT_EQ(stage.History().Size(), 2u);
  stage.Undo();
  EXPECT_TRUE(box->IsChecked());
  // A redo sets what was recorded, whatever came between.
  static_cast<Tesselor::FieldCheckbox&>(*field).GetFieldCheckboxData()->SetValue(false);
  stage.Redo();
  EXPECT_FALSE(box->IsChecked());
  stage.Undo();
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "false");
}

TEST_F(FieldEditing, MakesOneStepPerStayOnASlider) {
  const auto field = MakeField("IntSlider");
  FieldStage stage(*field);
  auto* slider = stage.First<Toolkit::Slider>();
  stage.Click(slider);
  EXPECT_EQ(field->GetValueAsString(), "50");
  stage.Press(Toolkit::Key::PageUp);
  EXPECT_EQ(field->GetValueAsString(), "60");
  EXPECT_EQ(All<Toolkit::TextBox>(field.Get()).size(), 0u);
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 1u);
  stage.Focus(slider);
  stage.Press(Toolkit::Key::PageUp);
  stage.Press(Toolkit::Key::PageDown);
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 1u);
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "0");
  EXPECT_EQ(slider->GetValueNumber(), 0);
}

TEST_F(FieldEditing, KeepsASliderValueOutsideItsBounds) {
  const auto field = MakeField("IntSlider", R"({"Min":10,"Max":20})");
  FieldStage stage(*field);
  Load(*field, R"({"K":500})");
  stage.Settle();
  EXPECT_EQ(Saved(*field), R"({"K":500})");
}

/// Stands for the node of a field.
class Owner final : public Tesselor::FieldOwner {
public:
  std::string NodeName() const override { return name; }
  void SetNodeName(std::string_view newName) override { name = newName; }
  std::string FindUpstreamName() override { return upstream; }
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
  EXPECT_EQ(stage.History().Size(), 0u) << "the buttons make no steps";
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
  const std::string deep(1001, '[');
  const struct {
    const char* step;
    std::string typed;
    const char* saved;
    bool isRefused;
  } steps[] = {
      {"the initial text", "", "{\"K\":{\n    \n}}", true},
      {"valid", R"({"a":1})", R"({"K":{"a":1}})", false},
      {"a tail", R"({"a":2},)", R"({"K":{"a":1}})", true},
      {"a scalar", " 5 ", R"({"K": 5 })", false},
      {"a byte order mark", "\xef\xbb\xbf{}", R"({"K": 5 })", true},
      {"too deep", deep + std::string(1001, ']'), R"({"K": 5 })", true},
      {"empty again", "", R"({"K": 5 })", true},
  };
  const auto field = Make<FieldRawJson>("RawJson", R"({"Label":"Raw"})");
  FieldStage stage(*field);
  for (const auto& step : steps) {
    boxes.boxes.clear();
    stage.Type(step.typed);
    EXPECT_EQ(Saved(*field), step.saved) << step.step;
    EXPECT_EQ(field->GetValueAsString(), step.typed) << step.step;
    const std::vector<std::string> box = {
        "Attention!: Field 'Raw' does not hold valid JSON. The last valid value is saved instead."};
    EXPECT_EQ(boxes.Texts(), step.isRefused ? box : std::vector<std::string>()) << step.step;
  }
}

TEST_F(FieldEditing, RemembersValidJsonBetweenSaves) {
  const auto field = Make<FieldRawJson>("RawJson", R"({"Default":"{]"})");
  FieldStage stage(*field);
  EXPECT_EQ(Saved(*field), "{\"K\":{\n    \n}}") << "a default that is no JSON";
  Load(*field, R"({"K":[1]})");
  stage.Type("nope");
  EXPECT_EQ(Saved(*field), R"({"K":[1]})");
  stage.Type("[2]");
  stage.FocusElsewhere();
  stage.Type("nope");
  EXPECT_EQ(Saved(*field), R"({"K":[2]})") << "the end of an editing session";
  stage.Type("[3]");
  stage.FocusElsewhere();
  stage.Undo();
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "[1]");
  stage.Type("nope");
  EXPECT_EQ(Saved(*field), R"({"K":[1]})") << "what was undone to";
  stage.FocusElsewhere();
  stage.Type("[4]");
  stage.FocusElsewhere();
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "nope");
  EXPECT_EQ(Saved(*field), R"({"K":[4]})") << "an undo without the focus";
}

} // namespace
