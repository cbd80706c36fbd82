#include "FieldStage.h"

#include "fields/FieldEnumFilterable.h"
#include "toolkit/controls/ComboBox.h"

namespace {

using namespace TestSupport;
using Tesselor::FieldEnum;
using Tesselor::FieldEnumFilterable;

class FieldEnums : public FieldTest {};

std::string Offered(const FieldEnum& field) {
  std::string offered;
  for (size_t i = 0; i < field.GetEnumOptions()->Count(); ++i)
    offered += (i ? " " : "") + field.GetEnumOptions()->Get(i)->GetValue().ToString();
  return offered;
}

TEST_F(FieldEnums, SelectTheFirstOfEqualOptionsAndMakeAStepOfAChoice) {
  const auto field = Make<FieldEnum>("Enum", R"({"Values":["A","B","A"],"Default":"B"})");
  FieldStage stage(*field);
  auto* combo = stage.First<Toolkit::ComboBox>();
  Load(*field, R"({"K":"A"})");
  EXPECT_EQ(combo->GetSelectedIndex(), 0);
  combo->SetSelectedIndex(2);
  EXPECT_EQ(Saved(*field), R"({"K":"A"})");
  combo->SetSelectedIndex(1);
  EXPECT_TRUE(field->IsDefault());
  EXPECT_EQ(stage.History().Size(), 2u) << "none for what was loaded";
  stage.Undo();
  EXPECT_EQ(combo->GetSelectedIndex(), 2);
  stage.Undo();
  EXPECT_EQ(combo->GetSelectedIndex(), 0);
}

TEST_F(FieldEnums, NarrowTheListToWhatIsTyped) {
  const auto field =
      Make<FieldEnumFilterable>("EnumFilterable", R"({"Values":["Red","green","Blue","Dark Red"],"Default":"Blue"})");
  FieldStage stage(*field);
  auto* search = stage.First<Toolkit::TextBox>();
  auto* combo = stage.First<Toolkit::ComboBox>();
  stage.Type("rE");
  stage.Wait(199);
  EXPECT_EQ(Offered(*field), "Red green Blue Dark Red") << "the search waits until typing pauses";
  EXPECT_FALSE(combo->IsDropDownOpen());
  stage.Wait(2);
  EXPECT_EQ(Offered(*field), "Blue Red green Dark Red");
  EXPECT_EQ(search->GetText(), "rE") << "the selection moved with its option, so the search stays";
  EXPECT_TRUE(combo->IsDropDownOpen());
  EXPECT_EQ(field->GetValueAsString(), "Blue");
  EXPECT_EQ(combo->GetSelectedIndex(), 0);
  stage.Type("RED");
  stage.Wait(201);
  EXPECT_EQ(Offered(*field), "Blue Red Dark Red");
  // A choice empties the search, and the list comes back with the chosen option in front.
  combo->SetSelectedIndex(2);
  EXPECT_EQ(search->GetText(), "");
  stage.Wait(201);
  EXPECT_EQ(Offered(*field), "Dark Red Red green Blue");
  EXPECT_EQ(field->GetValueAsString(), "Dark Red");
  EXPECT_EQ(stage.History().Size(), 1u) << "none for what the search does";
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "Blue");
}

TEST_F(FieldEnums, OpenTheListThatWasTypedAtUnlessEscapeCameFirst) {
  const auto field = Make<FieldEnumFilterable>("EnumFilterable", R"({"Values":["Red","Blue"]})");
  FieldStage stage(*field);
  const Toolkit::Ptr<Tesselor::BaseField> second = Tesselor::BaseField::MakeSecondControl(*field);
  stage.column->AddChild(second.Get());
  stage.Settle();
  const auto opened = [&] {
    std::string open;
    for (Tesselor::BaseField* control : {static_cast<Tesselor::BaseField*>(field.Get()), second.Get()}) {
      auto* combo = TestSupport::All<Toolkit::ComboBox>(control).at(0);
      open += combo->IsDropDownOpen() ? "open " : "closed ";
      combo->SetIsDropDownOpen(false);
    }
    return open;
  };
  struct Case {
    Tesselor::BaseField* typedInto;
    bool escapes;
    const char* opened;
  };
  const Case cases[] = {
      {field.Get(), false, "open closed "},  {field.Get(), true, "closed closed "},
      {second.Get(), false, "closed open "}, {second.Get(), true, "closed closed "},
      {field.Get(), false, "open closed "},
  };
  for (const Case& c : cases) {
    stage.TypeInto(*TestSupport::All<Toolkit::TextBox>(c.typedInto).at(0), "re");
    stage.Wait(100);
    if (c.escapes) stage.Press(Toolkit::Key::Escape);
    stage.Wait(500);
    EXPECT_EQ(opened(), c.opened);
    EXPECT_EQ(Offered(*field), "Red");
    stage.TypeInto(*TestSupport::All<Toolkit::TextBox>(c.typedInto).at(0), "");
    stage.Wait(500);
    opened();
  }
}

TEST_F(FieldEnums, LeaveOnlyTheSelectionWhereNothingMatches) {
  const auto field = Make<FieldEnumFilterable>("EnumFilterable", R"({"Values":["A","B"]})");
  FieldStage stage(*field);
  stage.Type("longer than each");
  stage.Wait(201);
  EXPECT_EQ(Offered(*field), "");
  EXPECT_TRUE(boxes.boxes.empty());
  stage.Type("");
  stage.Wait(201);
  EXPECT_EQ(Offered(*field), "A B");
}

} // namespace
