// Lists and dictionaries: their rows, buttons and undo, and the fields that choose files.
#include "FieldStage.h"

#include "ChosenFile.h"
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

/// The buttons of all rows; the last one, behind the list, adds a row.
Button* ButtonOf(BaseField& field, size_t row, RowButton button) { return All<Button>(&field).at(row * 4 + button); }
Button* AddButton(BaseField& field) { return All<Button>(&field).back(); }
TextBox* BoxOf(BaseField& field, size_t index) { return All<TextBox>(&field).at(index); }

/// Per row "u" and "d" for the move buttons that can be seen, "." for hidden ones.
std::string MoveButtons(const Toolkit::ObservableCollectionBase& rows) {
  std::string shown;
  for (size_t i = 0; i < rows.Count(); ++i) {
    const auto& row = static_cast<const Tesselor::FieldRowData&>(*rows.ItemAt(i));
    shown += row.GetUpButtonVisibility() == Visibility::Visible ? 'u' : '.';
    shown += row.GetDownButtonVisibility() == Visibility::Visible ? 'd' : '.';
    shown += ' ';
  }
  return shown;
}

TEST_F(FieldRows, AddRemoveAndMoveByButtonWithOneStepEach) {
  const auto field = Make<FieldList>("List");
  Load(*field, R"({"K":["a","b","c"]})");
  FieldStage stage(*field);
  stage.Click(ButtonOf(*field, 0, Up));
  stage.Click(ButtonOf(*field, 2, Down));
  EXPECT_EQ(field->GetValueAsString(), "a b c");
  EXPECT_EQ(MoveButtons(*field->GetList()), "ud ud ud ") << "as loaded, since nothing moved";
  EXPECT_EQ(stage.History().Size(), 0u);
  stage.Click(ButtonOf(*field, 2, Up));
  EXPECT_EQ(field->GetValueAsString(), "a c b");
  EXPECT_EQ(MoveButtons(*field->GetList()), ".d ud u. ");
  stage.Click(ButtonOf(*field, 0, Down));
  EXPECT_EQ(field->GetValueAsString(), "c a b");
  EXPECT_EQ(MoveButtons(*field->GetList()), ".d ud u. ");
  stage.Click(ButtonOf(*field, 1, Remove));
  EXPECT_EQ(field->GetValueAsString(), "c b");
  stage.Click(AddButton(*field));
  EXPECT_EQ(Saved(*field), R"({"K":["c","b",""]})");
  EXPECT_EQ(MoveButtons(*field->GetList()), ".d ud u. ");
  EXPECT_EQ(stage.History().Size(), 4u);
  for (const char* text : {"c b", "c a b", "a c b", "a b c"}) {
    stage.Undo();
    EXPECT_EQ(field->GetValueAsString(), text);
  }
  EXPECT_EQ(MoveButtons(*field->GetList()), ".d ud u. ");
  for (int i = 0; i < 4; ++i) stage.Redo();
  EXPECT_EQ(Saved(*field), R"({"K":["c","b",""]})");
}

TEST_F(FieldRows, MakeOneStepOfTheEditsInARow) {
  const auto field = Make<FieldList>("List");
  Load(*field, R"({"K":["a"]})");
  FieldStage stage(*field);
  stage.Type("x");
  stage.Type("xy");
  EXPECT_EQ(field->GetValueAsString(), "xy");
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 1u);
  stage.Focus(BoxOf(*field, 0));
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 1u);
  stage.Undo();
  EXPECT_EQ(BoxOf(*field, 0)->GetText(), "a");
  EXPECT_EQ(MoveButtons(*field->GetList()), ".. ");
}

TEST_F(FieldRows, TellEachRowThatDoesNotConvert) {
  const struct {
    const char* type;
    const char* options;
    const char* typed;
    const char* saved;
    const char* box;
  } cases[] = {
      {"List", R"({"Type":"int"})", "12abc", R"({"K":[12,0]})", ""},
      {"List", R"({"Type":"int"})", "x", R"({"K":[0,0]})", "Attention!: Can't convert x to integer."},
      {"List", R"({"Type":"int"})", "", R"({"K":[0,0]})", "Attention!: Can't convert  to integer."},
      {"List", R"({"Type":"float"})", "1e999", R"({"K":[0,0]})", "Attention!: Can't convert 1e999 to double."},
  };
  for (const auto& c : cases) {
    const auto field = Make<FieldList>(c.type, c.options);
    Load(*field, R"({"K":[7,0]})");
    FieldStage stage(*field);
    stage.Type(c.typed);
    boxes.boxes.clear();
    EXPECT_EQ(Saved(*field), c.saved);
    EXPECT_EQ(boxes.Texts(), *c.box ? std::vector<std::string>{c.box} : std::vector<std::string>()) << c.typed;
  }
}

TEST_F(FieldRows, DecideDictionaryValuesByTheirType) {
  const struct {
    const char* type;
    const char* value;
    const char* saved;
    const char* box;
  } cases[] = {
      {"string", "5", "\"5\"", ""},
      {"uuid", "true", "\"true\"", ""},
      {"bool", "true", "true", ""},
      {"bool", "yes", "false", "Attention!: Unknown value in a boolean dictionary: yes"},
      {"int", "7x", "7", ""},
      {"int", "x", "0", "Attention!: Can't convert x to integer."},
      {"float", "x", "0", "Attention!: Can't convert x to double."},
      {"mixed", "true", "true", ""},
      {"mixed", "True", "\"True\"", ""},
      {"mixed", "", "\"\"", ""},
      {"mixed", "5.0", "5", ""},
      {"mixed", "5.5", "5.5", ""},
      {"mixed", "1.5x", "1.5", ""},
      {"mixed", "3000000000", "3000000000", ""},
      {"mixed", "1e3", "1", ""},
      {"mixed", "1e30", "1e+30", ""},
      {"mixed", "1e999", "\"1e999\"", ""},
      {"mixed", "12abc", "12", ""},
      {"mixed", ".0", "\".0\"", ""},
      {"mixed", "nan", "null", ""},
      {"mixed", "-2147483648", "-2147483648", ""},
  };
  for (const auto& c : cases) {
    const auto field = Make<FieldDictionary>("Dictionary", std::string(R"({"Type":")") + c.type + "\"}");
    field->SetValues({{"k", c.value}});
    boxes.boxes.clear();
    EXPECT_EQ(Saved(*field), std::string("{\"K\":{\"k\":") + c.saved + "}}") << c.type << " " << c.value;
    EXPECT_EQ(boxes.Texts(), *c.box ? std::vector<std::string>{c.box} : std::vector<std::string>()) << c.value;
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

TEST_F(FieldRows, CompareDictionariesByKeyAndNotByOrder) {
  const auto field = Make<FieldDictionary>("Dictionary");
  Load(*field, R"({"K":{"b":"1","a":"2","b":"3"}})");
  FieldStage stage(*field);
  stage.Click(ButtonOf(*field, 1, Up));
  EXPECT_EQ(Saved(*field), R"({"K":{"a":"2","b":"1","b":"3"}})");
  EXPECT_EQ(stage.History().Size(), 0u) << "a move is no step";
  stage.Click(AddButton(*field));
  EXPECT_EQ(stage.History().Size(), 1u);
  stage.Type("Z", 6);
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 2u);
  stage.Type("4", 5);
  stage.FocusElsewhere();
  EXPECT_EQ(stage.History().Size(), 2u) << "the second row of a key is not looked at";
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "  a 2 b 1");
  stage.Undo();
  EXPECT_EQ(field->GetValueAsString(), "a 2 b 1");
  stage.Redo();
  stage.Redo();
  EXPECT_EQ(field->GetValueAsString(), "Z  a 2 b 1");
}

TEST_F(FieldRows, TakeTheIdOfAChosenFileIntoUuidRows) {
  TemporaryDirectory directory;
  for (const char* type : {"List", "Dictionary"}) {
    const auto field = MakeField(type, R"({"Type":"uuid"})");
    FieldStage stage(*field);
    stage.Click(AddButton(*field));
    {
      ChosenFile chosen(directory.Write("hero.main.json", R"({"Id":"the-id"})"));
      stage.Click(ButtonOf(*field, 0, Folder));
    }
    EXPECT_EQ(stage.History().Size(), 1u) << "rides in the next step";
    const std::string shown = type == std::string("List") ? "the-id" : " the-id";
    EXPECT_EQ(field->GetValueAsString(), shown);
    stage.Click(AddButton(*field));
    stage.Undo();
    EXPECT_EQ(field->GetValueAsString(), type == std::string("List") ? "" : " ");
    stage.Settle();
    EXPECT_EQ(ButtonOf(*field, 0, Folder)->GetVisibility(), Visibility::Visible) << "a row that undo made";
    stage.Redo();
    EXPECT_EQ(ButtonOf(*field, 0, Folder)->GetVisibility(), Visibility::Visible) << "a row that redo made";
    ChosenFile chosen(directory.Write("other.json", R"({"Id":"other-id"})"));
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
  {
    ChosenFile cancelled;
    stage.Click(stage.First<Button>());
  }
  EXPECT_EQ(stage.History().Size(), 0u);
  ChosenFile chosen(directory.Write("new.json", R"({"Id":"new-id"})"));
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
    for (const TextBox* box : All<TextBox>(field.Get())) {
      EXPECT_GT(box->ActualWidth(), 120) << type;
      EXPECT_LE(box->ActualWidth(), 150) << type;
    }
    EXPECT_EQ(All<TextBox>(field.Get()).size(), type == std::string("List") ? 1u : 2u);
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

TEST_F(FieldRows, FindTheirOwnRowsInsideAnObject) {
  const auto object = MakeField("Object", R"({"Fields":[{"Id":"L","Type":"List"},{"Id":"D","Type":"Dictionary"}]})");
  Load(*object, R"({"K":{"L":["a"],"D":{"k":"v"}}})");
  FieldStage stage(*object);
  stage.Type("x");
  stage.Type("y", 2);
  stage.FocusElsewhere();
  EXPECT_EQ(Saved(*object), R"({"K":{"L":["x"],"D":{"k":"y"}}})");
  EXPECT_EQ(stage.History().Size(), 2u);
}

} // namespace
