#include "support/CapturedBoxes.h"
#include "workspace/ColorNames.h"
#include "workspace/NodeDictionary.h"

#include <gtest/gtest.h>

namespace {

using Tesselor::NodeBlueprint;
using Tesselor::NodeDictionary;
using TestSupport::CapturedBoxes;

void Add(NodeDictionary& dictionary, const std::string& schema) {
  const auto parsed = Tesselor::ParseJson(schema);
  ASSERT_TRUE(parsed) << schema;
  dictionary.AddSchema(parsed.json.get());
}

/// The blueprint `id` of a schema with these further members.
const NodeBlueprint* AddNode(NodeDictionary& dictionary, const std::string& id, const std::string& members) {
  Add(dictionary,
      R"({"color": "red", "id": ")" + id + R"(", "title": "A title")" + (members.empty() ? "" : ", " + members) + "}");
  return dictionary.FindBlueprint(id);
}

TEST(NodeDictionary, KnowsTheBuiltInTypesBeforeAnythingIsRead) {
  NodeDictionary dictionary;
  EXPECT_EQ(dictionary.nodeIds, (std::vector<std::string>{"Generic", "Link"}));
  ASSERT_EQ(dictionary.categories.size(), 1u);
  EXPECT_EQ(*dictionary.categories.Find("Generic"), std::vector<std::string>{"Generic"});

  const NodeBlueprint* generic = dictionary.FindBlueprint("Generic");
  ASSERT_TRUE(generic);
  EXPECT_EQ(generic->title, "Raw JSON Node");
  EXPECT_EQ(generic->color, Toolkit::Colors::DimGray);
  ASSERT_EQ(generic->inputs.size(), 1u);
  EXPECT_EQ(generic->inputs[0]->id, "Generic");
  EXPECT_EQ(generic->inputs[0]->Type, "Generic");
  EXPECT_FALSE(generic->inputs[0]->Multiple);
  EXPECT_TRUE(generic->outputs.empty());
  ASSERT_EQ(generic->content.size(), 1u);
  EXPECT_EQ(generic->content[0]->Id, "Generic");
  EXPECT_EQ(generic->content[0]->Type, "RawJson");
  EXPECT_FALSE(generic->isPassthrough);

  const NodeBlueprint* link = dictionary.FindBlueprint("Link");
  ASSERT_TRUE(link && link->inputs.size() == 1 && link->outputs.size() == 1);
  EXPECT_EQ(link->color, Toolkit::Color::FromBytes(84, 73, 112));
  EXPECT_EQ(link->inputs[0]->id, "GenericIn");
  EXPECT_EQ(link->outputs[0]->id, "GenericOut");
  EXPECT_EQ(link->outputs[0]->Label, "Children");
  EXPECT_TRUE(link->inputs[0]->Multiple && link->outputs[0]->Multiple && link->isPassthrough);
  EXPECT_EQ(link->outputs[0]->color, Toolkit::Colors::DimGray);
}

TEST(NodeDictionary, DropsASchemaWithoutColourIdOrTitleSilently) {
  CapturedBoxes boxes;
  NodeDictionary dictionary;
  for (const char* schema : {"[]", "3", R"({"id": "A", "title": "A"})", R"({"color": 3, "id": "A", "title": "A"})",
                             R"({"color": "red", "title": "A"})", R"({"color": "red", "id": "A", "title": null})"})
    Add(dictionary, schema);
  EXPECT_EQ(dictionary.nodeIds.size(), 2u);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST(NodeDictionary, KeepsTheFirstOfTwoSchemasAndListsTheIdTwice) {
  NodeDictionary dictionary;
  const NodeBlueprint* first = AddNode(dictionary, "A", R"("Description": "first")");
  EXPECT_EQ(AddNode(dictionary, "A", R"("Description": "second")"), first);
  EXPECT_EQ(first->Description, "first");
  AddNode(dictionary, "Link", "");
  EXPECT_TRUE(dictionary.FindBlueprint("Link")->isPassthrough);
  EXPECT_EQ(dictionary.nodeIds, (std::vector<std::string>{"Generic", "Link", "A", "A", "Link"}));
}

TEST(NodeDictionary, ReadsPinsByStrictTypesAndKeysOfAnyCase) {
  NodeDictionary dictionary;
  const NodeBlueprint* node = AddNode(dictionary, "A", R"(
    "INPUTS": {"x": {"Color": "Blue", "ID": "In", "spacingabove": 1.5, "multiple": true, "ismap": true, "type": "T",
                     "label": "L", "description": "D", "FIELDS": [{"id": "F", "type": "Int", "options": {"Min": 2}}]}},
    "outputs": [{"id": "no colour"},
                {"color": "red", "SpacingAbove": "2", "Multiple": 1, "IsMap": "true", "Type": 3},
                {"color": "red", "id": "Out", "SpacingAbove": 2, "Multiple": false}])");
  ASSERT_TRUE(node && node->inputs.size() == 1 && node->outputs.size() == 2);
  const auto& in = *node->inputs[0];
  EXPECT_EQ(in.color, Toolkit::Color::FromBytes(37, 67, 174));
  EXPECT_EQ(in.id + in.Type + in.Label + in.Description, "InTLD");
  EXPECT_EQ(in.SpacingAbove, 1);
  EXPECT_TRUE(in.Multiple && in.IsMap);
  ASSERT_EQ(in.fields.size(), 1u);
  EXPECT_EQ(in.fields[0]->Id + in.fields[0]->Type, "FInt");
  // The copy outlives the JSON that the schema was read from.
  EXPECT_EQ(cJSON_GetObjectItem(in.fields[0]->Options.get(), "Min")->valueint, 2);

  const auto& odd = *node->outputs[0];
  EXPECT_TRUE(odd.id.empty() && odd.Type.empty() && odd.SpacingAbove == 0 && !odd.Multiple && !odd.IsMap);
  EXPECT_EQ(node->outputs[1]->SpacingAbove, 2);
}

TEST(NodeDictionary, KeepsTheOrderOfSchemaKeysAndPassesOverBrokenOnes) {
  NodeDictionary dictionary;
  const NodeBlueprint* node = AddNode(dictionary, "A", R"("Schema": {
    "Type": "$Const:Foo", "Child": {"Node": "Bar", "pin": "Out"}, "Broken": 3, "Half": {"node": "Bar"},
    "Name": "NameField", "Name": "later", "Child": {"node": "Baz", "pin": "Out"}})");
  ASSERT_TRUE(node);
  EXPECT_EQ(node->schemaKeys, (std::vector<std::string>{"Type", "Child", "Broken", "Half", "Name", "Name", "Child"}));
  EXPECT_EQ(*node->schema.Find("Type"), "$Const:Foo");
  EXPECT_EQ(*node->schema.Find("Name"), "NameField");
  ASSERT_TRUE(node->pinSchema.Find("Child"));
  EXPECT_EQ(node->pinSchema.Find("Child")->node + node->pinSchema.Find("Child")->pin, "BazOut");
  EXPECT_EQ(node->schema.size(), 2u);
  EXPECT_EQ(node->pinSchema.size(), 1u);
}

TEST(NodeDictionary, ReadsAReferenceAsFarAsItsKeysGo) {
  const std::string rest = R"(, "inputs": [{"color": "red", "id": "In"}], "outputs": [{"color": "red"}],
                             "content": [{"Id": "F", "Type": "Int"}], "Schema": {"K": "F"}, "ispassthrough": true)";
  const struct {
    const char* members;
    bool isReference;
    const char* keys;
  } cases[] = {
      {R"("isreference": false, "filerefkey": "a", "filerefvalue": "b", "modifykey": "c")", true, "abc"},
      {R"("isreference": true, "filerefkey": "a", "filerefvalue": 1, "modifykey": "c")", true, "a"},
      {R"("isreference": true, "filerefvalue": "b", "modifykey": "c")", true, ""},
      {R"("isreference": "true", "filerefkey": "a")", false, ""},
  };
  for (const auto& c : cases) {
    NodeDictionary dictionary;
    const NodeBlueprint* node = AddNode(dictionary, "A", c.members + rest);
    ASSERT_TRUE(node) << c.members;
    EXPECT_EQ(node->isReference, c.isReference) << c.members;
    EXPECT_EQ(node->fileRefKey + node->fileRefValue + node->modifyKey, c.keys) << c.members;
    EXPECT_EQ(node->inputs.size(), 1u);
    EXPECT_EQ(node->outputs.empty() && node->content.empty() && node->schemaKeys.empty(), c.isReference) << c.members;
    EXPECT_EQ(node->isPassthrough, !c.isReference) << c.members;
  }
  NodeDictionary dictionary;
  EXPECT_FALSE(AddNode(dictionary, "A", R"("ispassthrough": "true")")->isPassthrough);
}

TEST(NodeDictionary, FallsBackToBlueForAColourThatIsNone) {
  const struct {
    const char* text;
    Toolkit::Color color;
    const char* unknown;
  } cases[] = {
      {"BLUE", Toolkit::Color::FromBytes(37, 67, 174), nullptr},
      {"Grey", Toolkit::Color::FromBytes(92, 107, 120), nullptr},
      {"255,128,0", Toolkit::Color::FromBytes(255, 128, 0), nullptr},
      {" 1, +2,  3 and more", Toolkit::Color::FromBytes(1, 2, 3), nullptr},
      {"Mauve", Toolkit::Color::FromBytes(37, 67, 174), "mauve"},
      {"#FF0000", Toolkit::Color::FromBytes(37, 67, 174), "#ff0000"},
      {"", Toolkit::Color::FromBytes(37, 67, 174), ""},
      {"1,2", Toolkit::Color::FromBytes(37, 67, 174), "1,2"},
      {"1,2,3,4", Toolkit::Color::FromBytes(37, 67, 174), "1,2,3,4"},
      {"1,2,", Toolkit::Color::FromBytes(37, 67, 174), "1,2,"},
      {"1,2,99999999999", Toolkit::Color::FromBytes(37, 67, 174), "1,2,99999999999"},
  };
  for (const auto& c : cases) {
    CapturedBoxes boxes;
    NodeDictionary dictionary;
    Add(dictionary, R"({"id": "A", "title": "A", "color": ")" + std::string(c.text) + "\"}");
    ASSERT_TRUE(dictionary.FindBlueprint("A")) << c.text;
    EXPECT_EQ(dictionary.FindBlueprint("A")->color, c.color) << c.text;
    std::vector<std::string> expected;
    if (c.unknown)
      expected.push_back("Attention!: Color: [" + std::string(c.unknown) +
                         "] does not exist. Blue will be used as default");
    EXPECT_EQ(boxes.Texts(), expected);
  }
}

} // namespace
