// What each kind of field reads, shows and writes.
#include "FieldStage.h"

#include "fields/FieldLabel.h"
#include "fields/FieldObject.h"

namespace {

using namespace TestSupport;
using Tesselor::BaseField;

class FieldValues : public FieldTest {};

struct ValueCase {
  const char* type;
  const char* options;
  /// The object that the field reads the member "K" of; empty if it reads nothing.
  const char* file;
  const char* text;
  const char* saved;
  bool isOffered;
};

std::ostream& operator<<(std::ostream& out, const ValueCase& c) {
  return out << c.type << " " << c.options << " " << c.file;
}

const ValueCase valueCases[] = {
    // Text.
    {"String", "", "", "", R"({"K":""})", true},
    {"String", R"({"Default":"d"})", "", "d", R"({"K":"d"})", true},
    {"String", R"({"Default":5})", "", "", R"({"K":""})", true},
    {"String", R"({"Default":"d"})", R"({"k":"v"})", "v", R"({"K":"v"})", true},
    {"String", "", R"({"K":5})", "", R"({"K":""})", true},
    {"SmallString", "", "", "", R"({"K":""})", true},
    {"SmallString", R"({"Default":""})", "", "", "{}", false},
    {"SmallString", R"({"Default":"d"})", "", "d", R"({"K":"d"})", false},
    {"SmallString", R"({"Default":"","Required":true})", "", "", R"({"K":""})", true},
    {"SmallString", R"({"Default":""})", R"({"K":""})", "", R"({"K":""})", true},
    {"SmallString", R"({"IsUUID":true,"Default":"x"})", "", "x", R"({"K":"x"})", false},
    {"SmallString", R"({"DEFAULT":"d","required":1})", R"({"K":null})", "d", R"({"K":"d"})", false},
    {"Spacer", R"({"Default":"d"})", R"({"K":"d"})", "d", R"({"K":"d"})", true},
    // Truth values.
    {"Checkbox", "", "", "false", R"({"K":false})", true},
    {"Checkbox", R"({"Default":true})", "", "true", R"({"K":true})", false},
    {"Checkbox", R"({"Default":"true"})", "", "false", R"({"K":false})", false},
    {"Checkbox", R"({"Default":true})", R"({"K":false})", "false", R"({"K":false})", true},
    {"Checkbox", R"({"Default":true})", R"({"K":1})", "true", R"({"K":true})", false},
    // Whole numbers.
    {"Int", "", "", "0", R"({"K":0})", true},
    {"Int", R"({"Default":5})", "", "5", R"({"K":5})", false},
    {"Int", R"({"Default":"5"})", "", "0", R"({"K":0})", false},
    {"Int", R"({"Default":5})", R"({"K":5})", "5", R"({"K":5})", true},
    {"Int", R"({"Default":5})", R"({"K":true})", "5", R"({"K":5})", false},
    {"Int", "", R"({"K":2.7})", "2", R"({"K":2})", true},
    {"Int", "", R"({"K":1e15})", "2147483647", R"({"K":2147483647})", true},
    {"Int", R"({"Min":1,"Max":9})", R"({"K":12})", "9", R"({"K":9})", true},
    {"Int", R"({"Min":1,"Max":9})", R"({"K":-3})", "1", R"({"K":1})", true},
    {"Int", R"({"Default":0,"Min":1})", "", "0", R"({"K":0})", false},
    {"IntSlider", "", "", "0", R"({"K":0})", true},
    {"IntSlider", R"({"Default":30})", "", "30", R"({"K":30})", true},
    {"IntSlider", R"({"Max":50})", R"({"K":70.9})", "70", R"({"K":70})", true},
    {"IntSlider", R"({"Min":10})", R"({"K":"7"})", "0", R"({"K":0})", true},
    // Numbers.
    {"Float", "", "", "0.0", R"({"K":0})", true},
    {"Float", R"({"Default":5})", "", "5.0", R"({"K":5})", false},
    {"Float", R"({"Default":"5"})", "", "0.0", R"({"K":0})", true},
    {"Float", "", R"({"K":0.1})", "0.1", R"({"K":0.1})", true},
    {"Float", "", R"({"K":1.23456789})", "1.234568", R"({"K":1.234568})", true},
    {"Float", "", R"({"K":3})", "3.0", R"({"K":3})", true},
    {"Float", R"({"Default":0})", R"({"K":-1e12})", "-1000000000000.0", R"({"K":-1000000000000})", true},
    {"Float", R"({"Max":2.5})", R"({"K":2.4})", "2.000000", R"({"K":2})", true},
    {"Float", R"({"Default":1.5})", R"({"K":"2"})", "1.5", R"({"K":1.5})", false},
    // No value at all.
    {"Label", R"({"Text":"Heading"})", R"({"K":"v"})", "", "{}", true},
    // Any scalar.
    {"Mixed", "", "", "", R"({"K":""})", true},
    {"Mixed", R"({"Default":"5"})", "", "5", R"({"K":5})", true},
    {"Mixed", R"({"Default":5})", "", "", R"({"K":""})", true},
    {"Mixed", "", R"({"K":true})", "true", R"({"K":true})", true},
    {"Mixed", "", R"({"K":"false"})", "false", R"({"K":false})", true},
    {"Mixed", "", R"({"K":5})", "5.000000", R"({"K":5})", true},
    {"Mixed", "", R"({"K":0.1234567})", "0.123457", R"({"K":0.123457})", true},
    {"Mixed", R"({"Default":"d"})", R"({"K":null})", "d", R"({"K":"d"})", true},
    {"Mixed", R"({"Default":"d"})", R"({"K":[1]})", "d", R"({"K":"d"})", true},
    // JSON as text.
    {"RawJson", "", "", "{\n    \n}", "{\"K\":{\n    \n}}", true},
    {"RawJson", R"({"Default":"[1]"})", "", "[1]", R"({"K":[1]})", true},
    {"RawJson", "", R"({"K":{"a":[1,2]}})", "{\n\t\"a\":\t[1, 2]\n}", "{\"K\":{\n\t\"a\":\t[1, 2]\n}}", true},
    {"RawJson", "", R"({"K":null})", "null", R"({"K":null})", true},
    // One of a list.
    {"Enum", R"({"Values":["A","B"]})", "", "", "{}", true},
    {"Enum", R"({"Values":["A","B"],"Default":"B"})", "", "B", R"({"K":"B"})", false},
    {"Enum", R"({"Values":["A","B"],"Default":"B"})", R"({"K":"A"})", "A", R"({"K":"A"})", true},
    {"Enum", R"({"Values":["A",5,"B"]})", R"({"K":"B"})", "B", R"({"K":"B"})", true},
    {"Enum", R"({"Values":["A","B"],"Default":"B"})", R"({"K":1})", "B", R"({"K":"B"})", false},
    {"Enum", R"({"Values":"A"})", "", "", "{}", true},
    {"EnumFilterable", R"({"Values":["A","B"],"Default":"B"})", R"({"K":"A"})", "A", R"({"K":"A"})", true},
    // Lists.
    {"List", "", "", "", "{}", true},
    {"List", "", R"({"K":[]})", "", R"({"K":[]})", true},
    {"List", "", R"({"K":[1,"a",true]})", " a ", R"({"K":["","a",""]})", true},
    {"List", R"({"Type":"INT"})", R"({"K":[1,"2",3.7]})", "1 0 3", R"({"K":[1,0,3]})", true},
    {"List", R"({"Type":"float"})", R"({"K":[1.5,1.23456789]})", "1.500000 1.234568", R"({"K":[1.5,1.234568]})", true},
    {"List", R"({"Type":"uuid"})", R"({"K":{"a":"b"}})", "", "{}", true},
    // Dictionaries.
    {"Dictionary", "", "", "", "{}", true},
    {"Dictionary", "", R"({"K":{}})", "", "{}", true},
    {"Dictionary", "", R"({"K":{"b":"x","a":1}})", "b x a ", R"({"K":{"b":"x","a":""}})", true},
    {"Dictionary", "", R"({"K":{"a":"1","a":"2"}})", "a 1 a 2", R"({"K":{"a":"1","a":"2"}})", true},
    {"Dictionary", R"({"Type":"bool"})", R"({"K":{"a":true,"b":"true"}})", "a true b false",
     R"({"K":{"a":true,"b":false}})", true},
    {"Dictionary", R"({"Type":"Int"})", R"({"K":{"a":5}})", "a 5", R"({"K":{"a":5}})", true},
    {"Dictionary", R"({"Type":"float"})", R"({"K":{"a":5}})", "a 5.000000", R"({"K":{"a":5}})", true},
    {"Dictionary", R"({"Type":"mixed"})", R"({"K":{"a":5,"b":true,"c":"x","d":null,"e":[1]}})",
     "a 5.000000 b true c x d  e ", R"({"K":{"a":5,"b":true,"c":"x","d":"","e":""}})", true},
    {"Dictionary", "", R"({"K":["a"]})", "", "{}", true},
    // Files.
    {"FilePath", "", "", "", R"({"K":""})", true},
    {"FilePath", R"({"Default":"d"})", "", "d", R"({"K":"d"})", true},
    {"FilePath", R"({"UseUUID":"yes"})", R"({"K":"a.b"})", "a.b", R"({"K":"a.b"})", true},
    {"FilePath", R"({"UseUUID":true,"Default":"d"})", "", "", R"({"K":"d","$K_FileName":""})", true},
    {"FilePath", R"({"UseUUID":true})", R"({"K":"u","$k_filename":"n"})", "n", R"({"K":"u","$K_FileName":"n"})", true},
    {"FilePath", R"({"UseUUID":true})", R"({"K":"u"})", "", R"({"K":"u","$K_FileName":""})", true},
    // Objects.
    {"Object", "", "", "", R"({"K":{}})", true},
    {"Object", R"({"Fields":[{"Id":"A","Type":"Int","Options":{"Default":5}},{"Id":"B"},{"Type":"Int"},7,
        {"Id":"C","Type":"SmallString","Options":{"Default":""}}]})",
     "", "", R"({"K":{"A":5}})", true},
    {"Object", R"({"Fields":[{"Id":"A","Type":"Int"},{"Id":"B","Type":"Object",
        "Options":{"Fields":[{"Id":"C","Type":"Checkbox"}]}}]})",
     R"({"K":{"a":7,"b":{"C":true},"Lost":1}})", "", R"({"K":{"A":7,"B":{"C":true}}})", true},
    {"Object", R"({"Fields":[{"Id":"A","Type":"Int"},{"Id":"A","Type":"String"}]})", R"({"K":{"A":"x"}})", "",
     R"({"K":{"A":"x","A":"x"}})", true},
    {"Object", R"({"Fields":[{"Id":"A","Type":"Int"}]})", R"({"K":[1]})", "", R"({"K":{"A":0}})", true},
};

TEST_F(FieldValues, AreReadShownAndWrittenByTheirKind) {
  for (const ValueCase& c : valueCases) {
    const auto field = MakeField(c.type, c.options);
    ASSERT_TRUE(field) << c;
    if (*c.file) Load(*field, c.file);
    EXPECT_EQ(field->GetValueAsString(), c.text) << c;
    EXPECT_EQ(field->ShouldSerialize(), c.isOffered) << c;
    EXPECT_EQ(Saved(*field), c.saved) << c;
    // What was written reads back as the same.
    if (Saved(*field) != "{}") {
      Load(*field, Saved(*field));
      EXPECT_TRUE(field->HasLoadedValue() || c.type == std::string("Label")) << c;
    }
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(FieldValues, LeaveDefaultsOutWhereNoneAreApplied) {
  const struct {
    const char* type;
    const char* options;
    const char* text;
    bool isDefault;
  } cases[] = {
      {"SmallString", R"({"Default":"d"})", "", false},
      {"Int", R"({"Default":5})", "0", false},
      {"Float", R"({"Default":0})", "0.0", true},
      {"Checkbox", R"({"Default":true})", "false", false},
      {"String", R"({"Default":"d"})", "", false},
      {"Mixed", R"({"Default":"d"})", "", false},
      {"IntSlider", R"({"Default":5})", "0", false},
      {"FilePath", R"({"Default":"d"})", "", false},
      {"Enum", R"({"Values":["A"],"Default":"A"})", "", false},
  };
  for (const auto& c : cases) {
    const auto field = MakeField(c.type, c.options, false);
    EXPECT_EQ(field->GetValueAsString(), c.text) << c.type;
    EXPECT_EQ(field->IsDefault(), c.isDefault) << c.type;
  }
  const auto object = MakeField("Object", R"({"Fields":[{"Id":"A","Type":"Int","Options":{"Default":5}}]})", false);
  EXPECT_EQ(Saved(*object), R"({"K":{"A":0}})");
}

TEST_F(FieldValues, StayInTheFileOnceTheyWereLoaded) {
  const auto field = MakeField("Int", R"({"Default":5})");
  Load(*field, R"({"K":7})");
  field->DeserializeValue(Parse("5").get());
  EXPECT_TRUE(field->IsDefault());
  EXPECT_TRUE(field->ShouldSerialize());
  const auto marked = MakeField("Int", R"({"Default":5})");
  marked->MarkLoaded();
  EXPECT_TRUE(marked->ShouldSerialize());
}

TEST_F(FieldValues, AreTakenFromAnItemByNumbersAndListsOnly) {
  const struct {
    const char* type;
    const char* item;
    const char* text;
    bool isLoaded;
  } cases[] = {
      {"Int", "7", "7", true},         {"Int", "\"7\"", "0", false},         {"Float", "7.25", "7.25", true},
      {"Float", "null", "0.0", false}, {"List", "[\"a\"]", "a", true},       {"List", "\"a\"", "", false},
      {"String", "\"a\"", "", false},  {"Checkbox", "true", "false", false},
  };
  for (const auto& c : cases) {
    const auto field = MakeField(c.type);
    field->DeserializeValue(Parse(c.item).get());
    EXPECT_EQ(field->GetValueAsString(), c.text) << c.type << " " << c.item;
    EXPECT_EQ(field->HasLoadedValue(), c.isLoaded) << c.type << " " << c.item;
  }
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
  const auto makeAll = [] {
    for (const ValueCase& c : valueCases) {
      const auto field = MakeField(c.type, c.options);
      if (*c.file) Load(*field, c.file);
      FieldStage stage(*field);
    }
  };
  // The first round fills what is shared for good: compiled documents and measured texts.
  makeAll();
  const size_t alive = Toolkit::Object::LiveCount();
  makeAll();
  EXPECT_EQ(Toolkit::Object::LiveCount(), alive);
}

TEST_F(FieldValues, KeepTheirInitialValueForADefaultOfAnotherKind) {
  const struct {
    const char* type;
    /// The kinds of JSON that the field takes as its default.
    const char* taken;
  } cases[] = {
      {"String", "text"},   {"SmallString", "text"},    {"Spacer", "text"},
      {"Int", "number"},    {"Float", "number"},        {"IntSlider", "number"},
      {"Checkbox", "true"}, {"Mixed", "text"},          {"RawJson", "text"},
      {"Enum", "text"},     {"EnumFilterable", "text"}, {"FilePath", "text"},
      {"List", ""},         {"Dictionary", ""},         {"Object", ""},
      {"Label", ""},
  };
  const struct {
    const char* kind;
    const char* json;
  } defaults[] = {{"text", "\"7\""}, {"number", "7"}, {"true", "true"},        {"false", "false"},
                  {"null", "null"},  {"list", "[7]"}, {"object", R"({"a":7})"}};
  for (const auto& c : cases) {
    const auto untouched = MakeField(c.type, R"({"Values":["A","7"]})");
    for (const auto& value : defaults) {
      const auto field = MakeField(c.type, std::string(R"({"Values":["A","7"],"Default":)") + value.json + "}");
      const bool isTaken = c.taken == std::string(value.kind);
      EXPECT_EQ(field->GetValueAsString() != untouched->GetValueAsString(), isTaken) << c.type << " " << value.json;
      EXPECT_EQ(Saved(*field) != Saved(*untouched), isTaken) << c.type << " " << value.json;
    }
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(FieldValues, ReadOtherKindsAsZeroWhereANumberIsExpected) {
  EXPECT_EQ(Saved(*MakeField("IntSlider", R"({"Default":true})")), R"({"K":0})");
  const auto bounded = MakeField("Int", R"({"Max":true})");
  FieldStage stage(*bounded);
  Load(*bounded, R"({"K":1})");
  EXPECT_EQ(Saved(*bounded), R"({"K":0})");
  const auto list = MakeField("List", R"({"Type":"int"})");
  Load(*list, R"({"K":[true,null,{},"3",3]})");
  EXPECT_EQ(list->GetValueAsString(), "0 0 0 0 3");
}

/// Text that is easily damaged on its way through boxes and files.
std::vector<std::string> AwkwardTexts() {
  std::string longText;
  while (longText.size() < 200000) longText += "\xc3\xa9";
  return {"\"quoted\\\" \t\n\r",
          "\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\xd7\xa9\xd6\xb8\xd8\xb9",
          "\x01\x1f\x7f\xc2\x85\xe2\x80\xa8",
          "</a>&{}{Binding x}",
          "bytes \xff\xc3 that are no text",
          longText,
          std::string(100000, 'x')};
}

TEST_F(FieldValues, RoundTripAnyTextThroughTheirBoxes) {
  for (const std::string& text : AwkwardTexts()) {
    const Json value(cJSON_CreateString(text.c_str()));
    const std::string quoted = Print(value.get());
    const std::string whole = "{\"K\":" + quoted + "}";
    const struct {
      const char* type;
      const char* options;
      std::string json;
    } cases[] = {
        {"String", "", whole},
        {"SmallString", "", whole},
        {"Mixed", "", whole},
        {"RawJson", "", whole},
        {"FilePath", "", whole},
        {"FilePath", R"({"UseUUID":true})", "{\"K\":" + quoted + ",\"$K_FileName\":" + quoted + "}"},
        {"List", "", "{\"K\":[" + quoted + ",\"\"]}"},
        {"List", R"({"Type":"uuid"})", "{\"K\":[" + quoted + "]}"},
        {"Dictionary", "", "{\"K\":{" + quoted + ":" + quoted + "}}"},
        {"Dictionary", R"({"Type":"mixed"})", "{\"K\":{" + quoted + ":" + quoted + "}}"},
        {"Object", R"({"Fields":[{"Id":"A","Type":"String"}]})", "{\"K\":{\"A\":" + quoted + "}}"},
    };
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.type) + " " + text.substr(0, 20));
      const auto field = MakeField(c.type, c.options);
      Load(*field, c.json);
      FieldStage stage(*field);
      // A stay of the focus without typing changes nothing.
      for (auto* box : All<Toolkit::TextBox>(field.Get())) {
        if (box->GetVisibility() != Toolkit::Visibility::Visible) continue;
        stage.Focus(box);
        stage.FocusElsewhere();
      }
      EXPECT_EQ(Saved(*field) == c.json, true);
      EXPECT_EQ(stage.History().Size(), 0u);
    }
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(FieldValues, TakeAnyTypedTextUnchanged) {
  for (const std::string& text : AwkwardTexts()) {
    // What keyboards and input methods send is text without control characters.
    if (static_cast<unsigned char>(text[0]) < 0x20 || text.find('\n') != std::string::npos) continue;
    const Json value(cJSON_CreateString(text.c_str()));
    const std::string quoted = Print(value.get());
    for (const char* type : {"String", "SmallString", "Mixed", "List", "Dictionary"}) {
      SCOPED_TRACE(std::string(type) + " " + text.substr(0, 20));
      const auto field = MakeField(type);
      if (type == std::string("List")) Load(*field, R"({"K":["a"]})");
      if (type == std::string("Dictionary")) Load(*field, R"({"K":{"a":"b"}})");
      const std::string before = Saved(*field);
      FieldStage stage(*field);
      const size_t count = All<Toolkit::TextBox>(field.Get()).size();
      for (size_t i = 0; i < count; ++i) stage.Type(text, i);
      stage.FocusElsewhere();
      const std::string json = type == std::string("List")         ? "{\"K\":[" + quoted + "]}"
                               : type == std::string("Dictionary") ? "{\"K\":{" + quoted + ":" + quoted + "}}"
                                                                   : "{\"K\":" + quoted + "}";
      EXPECT_EQ(Saved(*field) == json, true) << Saved(*field).substr(0, 100);
      while (stage.History().UndoneCount() < stage.History().Size()) stage.Undo();
      EXPECT_EQ(Saved(*field), before);
      while (stage.History().UndoneCount() > 0) stage.Redo();
      EXPECT_EQ(Saved(*field) == json, true) << "redone";
    }
  }
}

} // namespace
