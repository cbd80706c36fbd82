#include "document/DocumentPrint.h"

#include "platform/JsonFile.h"

#include <gtest/gtest.h>
#include <string>

namespace Tesselor {

namespace {

int Compare(DocumentPrint& print, const cJSON* value) {
  int compared = 0;
  std::string text;
  print.Append(text, value);
  EXPECT_EQ(text, PrintJson(value));
  ++compared;
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) compared += Compare(print, child);
  return compared;
}

} // namespace

TEST(DocumentPrint, CutsEveryValueOutAsThePrinterWouldPrintIt) {
  const JsonPtr document(cJSON_Parse(R"({
    "braces": "}{][,:\"\\", "": {}, "empty": [], "null": null, "flags": [true, false],
    "numbers": [0, -1.5e300, 1e-9, 12345678901], "line\n\t\"end\"": "\u0001\n\t\u00e9 \\\\",
    "nested": {"a": [[], [{}], [[1, {"b": [{"c": "x"}, {"d": {}}]}]]], "a": {"": {"": []}}},
    "last": [{"k": "]"}, "{", {"k": {"k": {"k": [0]}}}]})"));
  ASSERT_TRUE(document);
  DocumentPrint print(document.get());
  EXPECT_GE(Compare(print, document.get()), 40);
  // What is not part of the document is printed by itself.
  const JsonPtr other(cJSON_Parse(R"({"k": [1, {}]})"));
  Compare(print, other.get());
}

} // namespace Tesselor
