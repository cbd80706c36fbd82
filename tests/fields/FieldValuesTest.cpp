// What each kind of field reads, shows and writes.
#include "FieldStage.h"

#include "Expected.h"
#include "fields/FieldLabel.h"
#include "fields/FieldObject.h"

#include <memory>
#include <set>

namespace {

using namespace TestSupport;
using Tesselor::BaseField;

class FieldValues : public FieldTest {};

using Words = std::vector<std::string>;

/// Each of the types with each of the options and each of the objects that it reads the member "K" of; empty ones stand
/// for none.
struct Matrix {
  Words types, options, files;
};

const Matrix matrices[] = {
    {{"String", "SmallString", "Spacer", "Mixed", "FilePath"},
     {"", R"({"Default":"d"})", R"({"Default":""})", R"({"Default":"","Required":true})",
      R"({"DEFAULT":"5","required":1})", R"({"IsUUID":true,"Default":"x","UseUUID":"yes"})"},
     {"", R"({"K":"v"})", R"({"k":"a.b"})", R"({"K":""})", R"({"K":5})", R"({"K":0.1234567})", R"({"K":true})",
      R"({"K":"false"})", R"({"K":null})", R"({"K":[1]})"}},
    {{"Int", "IntSlider", "Float"},
     {"", R"({"Default":5})", R"({"Default":0,"Min":1})", R"({"Min":1,"Max":9})", R"({"Max":2.5})",
      R"({"Default":true,"Max":true})"},
     {"", R"({"K":5})", R"({"K":2.4})", R"({"K":70.9})", R"({"K":1e15})", R"({"K":-3})", R"({"K":-1e12})",
      R"({"K":0.1})", R"({"K":1.23456789})", R"({"K":"7"})", R"({"K":true})"}},
    {{"Checkbox"}, {"", R"({"Default":true})"}, {"", R"({"K":false})", R"({"K":true})", R"({"K":1})"}},
    {{"Label"}, {R"({"Text":"Heading"})"}, {R"({"K":"v"})"}},
    {{"RawJson"}, {"", R"({"Default":"[1]"})"}, {"", R"({"K":{"a":[1,2]}})", R"({"K":null})"}},
    {{"Enum", "EnumFilterable"},
     {R"({"Values":["A",5,"B"]})", R"({"Values":["A","B"],"Default":"B"})"},
     {"", R"({"K":"A"})", R"({"K":"B"})", R"({"K":1})"}},
    {{"Enum"},
     {R"({"Label":"Mood","Values":["A","B"],"Default":"b"})", R"({"Label":"Mood","Values":[1]})", R"({"Values":"A"})"},
     {"", R"({"K":"Stale"})"}},
    {{"List", "Dictionary"},
     {"", R"({"Type":"INT"})", R"({"Type":"float"})", R"({"Type":"uuid"})"},
     {"", R"({"K":[]})", R"({"K":{}})", R"({"K":[1,"a",true,"2",3.7,1.23456789]})",
      R"({"K":{"b":"x","a":1,"c":1.23456789}})", R"({"K":{"a":"1","a":"2"}})"}},
    {{"Dictionary"},
     {R"({"Type":"bool"})", R"({"Type":"mixed"})"},
     {R"({"K":{"a":5,"b":true,"c":"x","d":null,"e":[1],"f":"true"}})"}},
    {{"FilePath"},
     {R"({"UseUUID":true})", R"({"UseUUID":true,"Default":"d"})"},
     {"", R"({"K":"u"})", R"({"K":"u","$k_filename":"n"})"}},
    {{"Object"},
     {"", R"({"Fields":[{"Id":"A","Type":"Int","Options":{"Default":5}},{"Id":"B"},{"Type":"Int"},7,
        {"Id":"C","Type":"SmallString","Options":{"Default":""}}]})",
      R"({"Fields":[{"Id":"A","Type":"Int"},{"Id":"B","Type":"Object",
        "Options":{"Fields":[{"Id":"C","Type":"Checkbox"}]}}]})",
      R"({"Fields":[{"Id":"A","Type":"Int"},{"Id":"A","Type":"String"}]})"},
     {"", R"({"K":{"a":7,"b":{"C":true},"Lost":1}})", R"({"K":{"A":"x"}})", R"({"K":[1]})"}},
};

template <class Action> void ForEachCase(const Action& action) {
  for (const Matrix& matrix : matrices)
    for (const std::string& type : matrix.types)
      for (const std::string& options : matrix.options)
        for (const std::string& file : matrix.files) {
          const auto field = MakeField(type, options);
          ASSERT_TRUE(field) << type << " " << options;
          if (!file.empty()) Load(*field, file);
          action(*field, type + options + (file.empty() ? "" : " reads " + file));
        }
}

TEST_F(FieldValues, AreReadShownAndWrittenByTheirKind) {
  std::string dump;
  ForEachCase([&](BaseField& field, const std::string& name) {
    const std::string saved = Saved(field);
    dump += name + ": '" + field.GetValueAsString() + "'" + (field.IsDefault() ? " default" : "") +
            (field.ShouldSerialize() ? ", writes " : ", left out: ") + saved + "\n";
    for (const std::string& box : boxes.Texts()) dump += "  box " + box + "\n";
    for (const std::string& line : log.lines) dump += "  log " + line + "\n";
    boxes.boxes.clear();
    log.lines.clear();
    // What was written reads back as the same.
    if (saved == "{}" || name.starts_with("Label")) return;
    Load(field, saved);
    EXPECT_TRUE(field.HasLoadedValue()) << name;
  });
  ExpectText("FieldValues", dump);
}

TEST_F(FieldValues, TakeTheSameRoomBeforeTheirControlsAreMade) {
  const char* large = R"({"K":"a text of several\nlines, wider \u4e16\u754c than most boxes that it stands in"})";
  std::set<std::string> waited;
  for (const Matrix& matrix : matrices)
    for (const std::string& type : matrix.types)
      for (const std::string& options : matrix.options) {
        Words files = matrix.files;
        files.insert(files.begin(), R"({"K":"first"})");
        files.emplace_back(large);
        const auto size = std::make_shared<Tesselor::FieldSize>();
        auto column = Toolkit::MakePtr<Toolkit::StackPanel>();
        std::vector<Toolkit::Ptr<BaseField>> fields;
        for (const std::string& file : files) {
          fields.push_back(MakeField(type, options));
          fields.back()->ShareSize(size);
          if (!file.empty()) Load(*fields.back(), file);
          column->AddChild(fields.back().Get());
        }
        Stage stage(*column, {1000, 4000});
        for (size_t i = 0; i < fields.size(); ++i) {
          BaseField& field = *fields[i];
          if (field.HasControls()) continue;
          waited.insert(type);
          const Toolkit::Size before = field.RenderSize();
          const std::string value = field.GetValueAsString(), saved = Saved(field);
          field.MakeControls();
          stage.Settle();
          EXPECT_EQ(field.RenderSize(), before) << type << options << " reads " << files[i];
          EXPECT_GT(field.VisualChild(0)->DesiredSize().height, 0);
          EXPECT_EQ(field.GetValueAsString(), value) << type << options << " reads " << files[i];
          EXPECT_EQ(Saved(field), saved) << type << options << " reads " << files[i];
        }
        stage.TakeDown();
        column->ClearChildren();
      }
  // What was measured holds for the same room only.
  const auto size = std::make_shared<Tesselor::FieldSize>();
  for (const float width : {500.0f, 500.0f, 50.0f}) {
    const auto field = MakeField("String");
    field->ShareSize(size);
    const bool isKnown = size->isKnown && size->available.width == width;
    Stage stage(*field, {width, 100});
    EXPECT_EQ(field->HasControls(), !isKnown) << width;
    stage.TakeDown();
  }
  // The size of the others follows from what they hold.
  EXPECT_EQ(waited, (std::set<std::string>{"Checkbox", "Enum", "EnumFilterable", "Float", "Int", "Label", "Mixed",
                                           "SmallString", "Spacer", "String"}));
}

TEST_F(FieldValues, TakeTheCommonOptionsInAnyLetterCase) {
  const auto field = MakeField("Int", R"({"label":"L","DESCRIPTION":"D","Active":false,"Label":"second"})");
  EXPECT_EQ(field->GetLabel(), "L");
  EXPECT_EQ(field->GetString(BaseField::DescriptionProperty), "D");
  EXPECT_FALSE(field->IsActive());
  const auto wrong = MakeField("Int", R"({"Label":5,"Active":1,"Required":"true"})");
  EXPECT_EQ(wrong->GetLabel(), "Data");
  EXPECT_TRUE(wrong->IsActive());
  EXPECT_FALSE(wrong->IsRequired());
  EXPECT_EQ(MakeField("Int", "[1]")->GetLabel(), "Data");

  const auto marked = MakeField("Int", R"({"Default":5})");
  marked->MarkLoaded();
  EXPECT_TRUE(marked->IsDefault() && marked->ShouldSerialize());

  const auto label = MakeField("Label", R"({"Label":"L","Active":false,"FontSize":20.5})");
  EXPECT_EQ(label->GetLabel(), "Label");
  EXPECT_TRUE(label->IsActive());
  EXPECT_EQ(label->Get<double>(Tesselor::FieldLabel::FontSizeProperty), 20.5);
}

TEST_F(FieldValues, ComeInKnownTypesOnly) {
  EXPECT_FALSE(MakeField("string"));
  EXPECT_EQ(boxes.Texts(), std::vector<std::string>{"Error: Unable to create Field: string"});
  const auto object = MakeField("Object", R"({"Fields":[{"Id":"B","Type":"Int"},{"Id":"A","Type":"Nope"}]})");
  EXPECT_EQ(Saved(*object), R"({"K":{"B":0}})");
  EXPECT_EQ(boxes.boxes.size(), 2u);
}

TEST_F(FieldValues, LeaveNothingBehind) {
  const auto showAll = [] { ForEachCase([](BaseField& field, const std::string&) { FieldStage stage(field); }); };
  // The first round fills what is shared for good: compiled documents and measured texts.
  showAll();
  const size_t alive = Toolkit::Object::LiveCount();
  showAll();
  EXPECT_EQ(Toolkit::Object::LiveCount(), alive);
}

TEST_F(FieldValues, TakeJsonOfTheirOwnKindAlone) {
  const std::string values[] = {"\"7\"", "7", "7.25", "true", "false", "null", "[7]", R"(["7"])", R"({"a":7})"};
  const auto describe = [](const BaseField& field) {
    return "'" + field.GetValueAsString() + "'" + (field.IsDefault() ? " default" : "") +
           (field.HasLoadedValue() ? " loaded" : "");
  };
  std::string dump;
  for (const char* type : {"String", "SmallString", "Spacer", "Int", "Float", "IntSlider", "Checkbox", "Mixed",
                           "RawJson", "Enum", "EnumFilterable", "FilePath", "List", "Dictionary", "Object", "Label"})
    for (const std::string& value : values) {
      const std::string options = R"({"Values":["A","7"],"Default":)" + value + "}";
      const auto field = MakeField(type, options), bare = MakeField(type, options, false), item = MakeField(type);
      item->DeserializeValue(Parse(value).get());
      dump += type + (" " + value) + ": as the default " + describe(*field) + " " + Saved(*field) +
              "; where none is applied " + describe(*bare) + "; as an item " + describe(*item) + "\n";
    }
  ExpectText("ValuesOfOtherKinds", dump);
  EXPECT_TRUE(boxes.boxes.empty());
  const auto object = MakeField("Object", R"({"Fields":[{"Id":"A","Type":"Int","Options":{"Default":5}}]})", false);
  EXPECT_EQ(Saved(*object), R"({"K":{"A":0}})");
}

/// Text that is easily damaged on its way through boxes and files.
std::vector<std::string> AwkwardTexts() {
  std::string longText;
  while (longText.size() < 200000) longText += "\xc3\xa9";
  return {"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\xd7\xa9\xd6\xb8\xd8\xb9",
          "</a>&{}{Binding x}",
          "bytes \xff\xc3 that are no text",
          longText,
          std::string(100000, 'x'),
          "\x01\x1f\x7f\xc2\x85\xe2\x80\xa8",
          "\"quoted\\\" \t\n\r"};
}

TEST_F(FieldValues, RoundTripAnyTextThroughTheirBoxes) {
  for (const std::string& text : AwkwardTexts()) {
    const std::string quoted = Print(Json(cJSON_CreateString(text.c_str())).get());
    const std::string whole = "{\"K\":" + quoted + "}", pair = "{\"K\":{" + quoted + ":" + quoted + "}}";
    const struct {
      const char* type;
      const char* options;
      std::string json;
      /// What the field reads before the text is typed into its boxes; empty where typing makes something else of it.
      const char* before = "";
    } cases[] = {
        {"String", "", whole, R"({"K":""})"},
        {"SmallString", "", whole, R"({"K":""})"},
        {"Mixed", "", whole, R"({"K":""})"},
        {"RawJson", "", whole},
        {"FilePath", "", whole},
        {"FilePath", R"({"UseUUID":true})", "{\"K\":" + quoted + ",\"$K_FileName\":" + quoted + "}"},
        {"List", "", "{\"K\":[" + quoted + "]}", R"({"K":["a"]})"},
        {"List", R"({"Type":"uuid"})", "{\"K\":[" + quoted + ",\"\"]}"},
        {"Dictionary", "", pair, R"({"K":{"a":"b"}})"},
        {"Dictionary", R"({"Type":"mixed"})", pair},
        {"Object", R"({"Fields":[{"Id":"A","Type":"String"}]})", "{\"K\":{\"A\":" + quoted + "}}"},
    };
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.type) + " " + text.substr(0, 20));
      {
        const auto field = MakeField(c.type, c.options);
        Load(*field, c.json);
        FieldStage stage(*field);
        // A stay of the focus without typing changes nothing.
        for (Toolkit::TextBox* box : All<Toolkit::TextBox>(*field)) {
          if (!box->IsVisible()) continue;
          stage.Focus(box);
          stage.FocusElsewhere();
        }
        EXPECT_TRUE(Saved(*field) == c.json);
        EXPECT_EQ(stage.History().Size(), 0u);
      }
      // What keyboards and input methods send is text without control characters.
      if (!*c.before || text.find_first_of("\x01\n") != std::string::npos) continue;
      const auto field = MakeField(c.type, c.options);
      Load(*field, c.before);
      FieldStage stage(*field);
      for (size_t i = 0; i < All<Toolkit::TextBox>(*field).size(); ++i) stage.Type(text, i);
      stage.FocusElsewhere();
      EXPECT_TRUE(Saved(*field) == c.json) << "typed: " << Saved(*field).substr(0, 100);
      while (stage.History().UndoneCount() < stage.History().Size()) stage.Undo();
      EXPECT_TRUE(Saved(*field) == c.before) << "undone: " << Saved(*field).substr(0, 100);
      while (stage.History().UndoneCount() > 0) stage.Redo();
      EXPECT_TRUE(Saved(*field) == c.json) << "redone";
    }
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

} // namespace
