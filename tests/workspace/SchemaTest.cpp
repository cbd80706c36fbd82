#include "Expected.h"
#include "workspace/WorkspaceDump.h"

#include <gtest/gtest.h>

namespace {

using Tesselor::NodeDictionary;

TEST(NodeDictionary, ReadsSchemas) {
  const std::string head = R"({"color": "red", "id": "A", "title": "A title", )";
  const std::string reference =
      R"("inputs": [{"color": "red", "id": "In"}], "outputs": [{"color": "red"}],
         "content": [{"Id": "F", "Type": "Int"}], "Schema": {"K": "F"}, "ispassthrough": true, )";
  const auto colored = [](const std::string& color) {
    return R"({"id": "A", "title": "A", "color": ")" + color + "\"}";
  };
  const struct {
    const char* name;
    std::vector<std::string> schemas;
  } cases[] = {
      {"the built-in types", {}},
      {"no colour, id or title",
       {"[]", "3", R"({"id": "A", "title": "A"})", R"({"color": 3, "id": "A", "title": "A"})",
        R"({"color": "red", "title": "A"})", R"({"color": "red", "id": "A", "title": null})"}},
      {"the first of two stays",
       {head + R"("Description": "first"})", head + R"("Description": "second"})",
        R"({"color": "red", "id": "Link", "title": "other"})"}},
      {"pins with keys of any case and members of strict types", {head + R"(
        "INPUTS": {"x": {"Color": "Blue", "ID": "In", "spacingabove": 1.5, "multiple": true, "ismap": true, "type": "T",
                   "label": "L", "description": "D", "FIELDS": [{"id": "F", "type": "Int", "options": {"Min": 2}}]}},
        "outputs": [{"id": "no colour"},
                    {"color": "red", "SpacingAbove": true, "Multiple": 1, "IsMap": "true", "Type": 3},
                    {"color": "red", "id": "Out", "SpacingAbove": 2, "Multiple": false}]})"}},
      {"the order of keys, and broken ones", {head + R"("Schema": {
        "Type": "$Const:Foo", "Child": {"Node": "Bar", "pin": "Out"}, "Broken": 3, "Half": {"node": "Bar"},
        "Name": "NameField", "Name": "later", "Child": {"node": "Baz", "pin": "Out"}}})"}},
      {"a reference",
       {head + reference + R"("isreference": false, "filerefkey": "a", "filerefvalue": "b", "modifykey": "c"})"}},
      {"a reference as far as its keys go",
       {head + reference + R"("isreference": true, "filerefkey": "a", "filerefvalue": 1, "modifykey": "c"})"}},
      {"a reference without keys",
       {head + reference + R"("isreference": true, "filerefvalue": "b", "modifykey": "c"})"}},
      {"no reference", {head + reference + R"("isreference": "true", "filerefkey": "a"})"}},
      {"no passthrough", {head + R"("ispassthrough": "true"})"}},
      {"a colour by name", {colored("BLUE")}},
      {"another name", {colored("Grey")}},
      {"a colour by numbers", {colored(" 1, +2,  3 and more")}},
      {"an unknown colour", {colored("Mauve")}},
      {"hexadecimal digits", {colored("#FF0000")}},
      {"an empty colour", {colored("")}},
      {"two numbers", {colored("1,2")}},
      {"four numbers", {colored("1,2,3,4")}},
      {"a number missing", {colored("1,2,")}},
      {"a number too large", {colored("1,2,99999999999")}},
  };
  TestSupport::CapturedBoxes boxes;
  TestSupport::CapturedLog log;
  std::string dump;
  for (const auto& c : cases) {
    NodeDictionary dictionary;
    for (const std::string& schema : c.schemas) dictionary.AddSchema(Tesselor::ParseJson(schema).json.get());
    dump += c.name + std::string("\n") + TestSupport::TakeMessages(log, boxes) + "  ids";
    for (const std::string& id : dictionary.nodeIds) dump += " " + id;
    dump += "\n";
    // The built-in types are the same in all.
    for (const auto& [id, node] : dictionary.blueprints)
      if (c.schemas.empty() || id == "A") dump += TestSupport::Dump(id, *node);
  }
  TestSupport::ExpectText("Schemas", dump);
}

} // namespace
