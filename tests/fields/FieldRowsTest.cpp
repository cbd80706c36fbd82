// Lists and dictionaries: their rows, buttons and undo, and the fields that choose files.
#include "FieldStage.h"

#include "ChosenFile.h"
#include "Expected.h"
#include "TemporaryDirectory.h"
#include "fields/AssetIdReader.h"
#include "fields/FieldDictionary.h"
#include "fields/FieldFilePath.h"
#include "fields/FieldList.h"
#include "toolkit/controls/ButtonBase.h"

namespace {

using namespace TestSupport;
using Tesselor::BaseField;
using Tesselor::FieldDictionary;
using Tesselor::FieldFilePath;
using Tesselor::FieldList;
using Toolkit::Button;
using Toolkit::TextBox;
using Toolkit::Visibility;

class FieldRows : public FieldTest {};

/// The buttons of a row in tree order.
enum RowButton { Up, Down, Folder, Remove };
Button* ButtonOf(BaseField& field, size_t row, RowButton button) { return All<Button>(&field).at(row * 4 + button); }
/// It stands behind the list.
Button* AddButton(BaseField& field) { return All<Button>(&field).back(); }

TEST_F(FieldRows, MakeOneStepOfEachButtonAndEachStayInARow) {
  std::string told = Play("List", "", R"({"K":["a","b","c"]})",
                          {"up0", "down2", "up2", "down0", "remove1", "add", "save", "undo", "undo", "undo", "undo",
                           "redo", "redo", "redo", "redo", "save"});
  told += Play("List", "", R"({"K":["a"]})", {"type x", "type xy", "away", "stay", "away", "undo"});
  // The steps of a dictionary keep its order, and all rows of one key.
  told += Play("Dictionary", "", R"({"K":{"b":"1","a":"2","b":"3"}})",
               {"up1", "save", "add", "type6 Z", "away", "type5 4", "away", "undo", "undo", "redo", "redo"});
  told += Play("Object", R"({"Fields":[{"Id":"L","Type":"List"},{"Id":"D","Type":"Dictionary"}]})",
               R"({"K":{"L":["a"],"D":{"k":"v"}}})", {"type x", "type2 y", "away", "save"});
  ExpectText("RowSteps", told);
}

TEST_F(FieldRows, ConvertWhatIsTypedByTheirType) {
  const char* const texts[] = {"5",   "true", "yes", "7x",  "x",     "True", "",    "5.0",        "5.5",        "1.5x",
                               "1e3", "1e30", ".0",  "nan", "1e999", "-1",   "12a", "3000000000", "-2147483648"};
  std::string dump;
  for (const std::string kind : {"List", "Dictionary"})
    for (const std::string type : {"string", "uuid", "bool", "int", "float", "mixed"}) {
      if (kind == "List" && (type == "bool" || type == "mixed")) continue;
      for (const char* text : texts) {
        const auto field = MakeField(kind, R"({"Type":")" + type + "\"}");
        Load(*field, kind == "List" ? R"({"K":["a"]})" : R"({"K":{"k":"a"}})");
        FieldStage stage(*field);
        stage.Type(text, kind == "List" ? 0 : 1);
        boxes.boxes.clear();
        dump += kind + " of " + type + " '" + text + "': " + Saved(*field);
        for (const std::string& box : boxes.Texts()) dump += ", " + box;
        dump += "\n";
      }
    }
  ExpectText("RowsByType", dump);
}

TEST_F(FieldRows, PutTheCaretIntoTheRowThatIsAdded) {
  for (const char* type : {"List", "Dictionary"}) {
    const auto field = MakeField(type);
    // A second control does the same for itself.
    const auto second = BaseField::MakeSecondControl(*field);
    for (BaseField* control : {field.Get(), second.Get()}) {
      FieldStage stage(*control);
      const size_t boxesInRow = type == std::string("List") ? 1 : 2;
      const size_t before = All<TextBox>(*control).size() / boxesInRow;
      const auto focusedRow = [&] {
        const auto rowBoxes = All<TextBox>(*control);
        for (size_t i = 0; i < rowBoxes.size(); ++i)
          if (rowBoxes[i]->IsFocused()) return static_cast<int>(i / boxesInRow);
        return -1;
      };
      stage.Click(AddButton(*control));
      EXPECT_EQ(focusedRow(), static_cast<int>(before));
      static_cast<Stage&>(stage).Type("a");
      stage.Press(Toolkit::Key::Return);
      EXPECT_EQ(focusedRow(), static_cast<int>(before) + 1);
      static_cast<Stage&>(stage).Type("c");
      EXPECT_EQ(stage.History().Size(), 3u) << "a row, its text, the next row";
      stage.Focus(All<TextBox>(*control).at(before * boxesInRow));
      stage.Press(Toolkit::Key::Return);
      EXPECT_EQ(focusedRow(), static_cast<int>(before) + 1) << "below the row in which it was pressed";
      static_cast<Stage&>(stage).Type("b");
      stage.FocusElsewhere();
      EXPECT_NE(field->GetValueAsString().find(boxesInRow == 1 ? "a b c" : "a  b  c"), std::string::npos);
      const size_t steps = stage.History().Size();
      for (size_t i = 0; i < steps; ++i) stage.Undo();
      EXPECT_EQ(All<TextBox>(*control).size() / boxesInRow, before);
      for (size_t i = 0; i < steps; ++i) stage.Redo();
    }
  }
}

TEST_F(FieldRows, RefuseUnknownItemTypes) {
  MakeField("List", R"({"Type":"Bool"})");
  MakeField("Dictionary", R"({"Type":"NOPE"})");
  MakeField("Dictionary", R"({"Type":"Bool"})");
  MakeField("List", R"({"Type":5})");
  EXPECT_EQ(boxes.Texts(),
            (std::vector<std::string>{"Attention!: The following type is not supported by field List: bool",
                                      "Attention!: The following type is not supported by field List: nope"}));
}

TEST_F(FieldRows, TakeTheIdOfAChosenFileIntoUuidRows) {
  TemporaryDirectory directory;
  for (const char* type : {"List", "Dictionary"}) {
    const auto field = MakeField(type, R"({"Type":"uuid"})");
    FieldStage stage(*field);
    stage.Click(AddButton(*field));
    ChosenFile chosen(directory.Write("hero.main.json", R"({"Id":"the-id"})"));
    stage.Click(ButtonOf(*field, 0, Folder));
    EXPECT_EQ(stage.History().Size(), 2u);
    const std::string shown = type == std::string("List") ? "the-id" : " the-id";
    EXPECT_EQ(field->GetValueAsString(), shown);
    stage.Click(AddButton(*field));
    stage.Undo();
    stage.Undo();
    EXPECT_EQ(field->GetValueAsString(), type == std::string("List") ? "" : " ");
    EXPECT_EQ(ButtonOf(*field, 0, Folder)->GetVisibility(), Visibility::Visible) << "a row that undo made";
    stage.Redo();
    EXPECT_EQ(ButtonOf(*field, 0, Folder)->GetVisibility(), Visibility::Visible) << "a row that redo made";
    chosen.path = directory.Write("other.json", R"({"Id":"other-id"})");
    stage.Click(ButtonOf(*field, 0, Folder));
    EXPECT_NE(field->GetValueAsString().find("other-id"), std::string::npos) << "its button works";
  }
  const auto plain = Make<FieldList>("List");
  plain->SetValues({"a"});
  EXPECT_EQ(plain->GetList()->Get(0)->GetSelectFileButtonVisibility(), Visibility::Collapsed);
}

TEST_F(FieldRows, TellOfFilesWithoutAnId) {
  TemporaryDirectory directory;
  const struct {
    const char* content;
    bool isTold;
    const char* value;
  } cases[] = {{R"({"id":"found"})", false, "found"}, {R"({"Name":"x"})", true, ""}, {"{]", true, ""}, {"", true, ""},
               {R"([{"Id":"x"}])", true, ""},         {R"({"Id":5})", false, ""}};
  for (const auto& c : cases) {
    const auto field = Make<FieldFilePath>("FilePath", R"({"UseUUID":true})");
    FieldStage stage(*field);
    boxes.boxes.clear();
    log.lines.clear();
    ChosenFile chosen(directory.Write("as.set.json", c.content));
    stage.Click(stage.First<Button>());
    const std::string text = "The loaded asset 'as.set' does not contain an 'Id' field.";
    EXPECT_EQ(boxes.Texts(), c.isTold ? std::vector<std::string>{"Attention!: " + text} : std::vector<std::string>())
        << c.content;
    EXPECT_EQ(log.Contains(text), c.isTold) << c.content;
    EXPECT_EQ(field->GetFileUUID()->GetValue(), c.value) << c.content;
    EXPECT_EQ(stage.History().Size(), *c.value ? 1u : 0u) << c.content;
    EXPECT_EQ(field->GetFileName(), *c.value ? "as.set" : "") << c.content;
  }
}

TEST_F(FieldRows, UndoTheNameOfAChosenFileAlone) {
  TemporaryDirectory directory;
  const auto field = Make<FieldFilePath>("FilePath", R"({"UseUUID":true})");
  Load(*field, R"({"K":"old-id","$K_FileName":"old"})");
  FieldStage stage(*field);
  ChosenFile chosen;
  stage.Click(stage.First<Button>());
  EXPECT_EQ(stage.History().Size(), 0u) << "the dialog was cancelled";
  chosen.path = directory.Write("new.json", R"({"Id":"new-id"})");
  stage.Click(stage.First<Button>());
  EXPECT_EQ(Saved(*field), R"({"K":"new-id","$K_FileName":"new"})");
  stage.Undo();
  EXPECT_EQ(Saved(*field), R"({"K":"new-id","$K_FileName":"old"})");
  stage.Redo();
  stage.Type("typed");
  stage.FocusElsewhere();
  stage.Undo();
  EXPECT_EQ(Saved(*field), R"({"K":"new-id","$K_FileName":"new"})");
}

TEST_F(FieldRows, GiveTheirBoxesTheWidthOfTheSchema) {
  for (const char* type : {"List", "Dictionary"}) {
    const auto field = MakeField(type, R"({"Width":150})");
    FieldStage stage(*field);
    stage.Click(AddButton(*field));
    ExpectLayout(type + std::string("Field"), *field);
  }
}

TEST_F(FieldRows, CutAFileNameFromItsPath) {
  const struct {
    const char* path;
    const char* stem;
  } cases[] = {{"/a/b.c/d.e.f", "d.e"}, {"C:\\dir\\file.json", "file"}, {"plain", "plain"},
               {"/a.b/plain", "plain"}, {"/dir/.hidden", ""},           {"", ""}};
  for (const auto& c : cases) EXPECT_EQ(Tesselor::FileStem(c.path), c.stem) << c.path;
}

} // namespace
