// Which objects stand in a clipboard's text.
#include "document/ClipboardText.h"
#include "CapturedLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tesselor {
namespace {

const std::string noJson = "Pasted content is not valid JSON, ignoring...";
const std::string tooDeep = "Pasted content is nested too deeply, ignoring...";
const std::string noObject = "Pasted content is not a JSON object, ignoring...";

std::string Join(const std::vector<JsonPtr>& objects) {
  std::string text;
  for (const JsonPtr& object : objects) text += (text.empty() ? "" : " ") + PrintJson(object.get(), JsonForm::Compact);
  return text;
}

std::string Repeat(const std::string& text, size_t count) {
  std::string result;
  for (size_t i = 0; i < count; ++i) result += text;
  return result;
}

TEST(ClipboardText, IsReadAsARunOfObjects) {
  struct Case {
    std::string text;
    /// The objects, compact, with a blank between two.
    std::string objects;
    std::vector<std::string> log;
  };
  const Case cases[] = {
      {"", "", {}},
      {" \n\t", "", {}},
      {R"({"a": 1})", R"({"a":1})", {}},
      {"{\"a\":\t1\n}\n{\n}\r\n {\"b\": [2]}", R"({"a":1} {} {"b":[2]})", {}},
      {"word", "", {noJson}},
      {"two words", "", {noJson}},
      {"foo}{bar", "", {noJson, noJson}},
      {"foo} \n {bar", "", {noJson, noJson}},
      {R"({"a":1}x}{y{"b":2}{"c":3})", R"({"a":1} {"c":3})", {noJson}},
      {R"({"a":1}{"b":}{"c":3})", R"({"a":1} {"c":3})", {noJson}},
      {R"({"a":1}{"b":2)", R"({"a":1})", {noJson}},
      // What is JSON but no object.
      {"true", "", {noObject}},
      {"12 monkeys", "", {noObject}},
      {R"([{"a":1}])", "", {noObject}},
      // A cut inside of a string.
      {R"({"a":"}{"}{"b":2})", R"({"a":"}{"} {"b":2})", {}},
      {R"({"a":"x} {y} {z"} {"b":"}{"}{"c":3})", R"({"a":"x} {y} {z"} {"b":"}{"} {"c":3})", {}},
      {R"({"a":"\"}{\\"}{"b":2})", R"({"a":"\"}{\\"} {"b":2})", {}},
      {R"({"a":"}{"}junk}{"b":2})", R"({"a":"}{"} {"b":2})", {noJson}},
      {R"({"a":"}{)", "", {noJson, noJson}},
      // What stands in strings stays, comments elsewhere don't count.
      {R"({"a":"C:\\", "b": "// two  words /*"})", R"({"a":"C:\\","b":"// two  words /*"})", {}},
      {"{\"a\": /* one */ 1} // two }{\n{\"b\": 2}", R"({"a":1} {"b":2})", {}},
      {"{\"a\": 1} /* no end {}", R"({"a":1})", {}},
      {R"({"a":"x\u0000y"})", R"({"a":"x\u0000y"})", {}},
      // As deep as the parser goes, and one level more.
      {Repeat(R"({"a":)", 999) + "{}" + Repeat("}", 999), Repeat(R"({"a":)", 999) + "{}" + Repeat("}", 999), {}},
      {Repeat(R"({"a":)", 1000) + "{}" + Repeat("}", 1000) + R"({"b":2})", R"({"b":2})", {tooDeep}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text.substr(0, 100));
    TestSupport::CapturedLog log;
    EXPECT_EQ(Join(ReadClipboardText(c.text)), c.objects);
    EXPECT_EQ(log.lines, c.log);
  }
}

/// If a part of the text were read once for each cut in it, any of these would take hours.
TEST(ClipboardText, MayHoldAnyNumberOfCuts) {
  constexpr size_t Count = 400000;
  const struct {
    std::string start, middle, end;
    size_t objects, lines;
  } cases[] = {
      // In a string, in strings of an array, between strings, between objects, behind quotes of either parity.
      {R"({"a":")", "}{", R"("})", 1, 0},
      {R"({"a":")", "}{", "", Count - 1, 2},
      {R"({"a":[)", R"("}{",)", "", 0, Count + 1},
      {"", R"({"a":"}{")", "", 0, Count + 1},
      {"", R"({"a":{}{)", "", 0, Count + 1},
      {R"({")", R"("}{)", "", 0, Count + 1},
      {R"({"a":)", R"([{"a":)", "", 0, 1},
      {"}", Repeat(" ", 40) + "}", "{", 0, 2},
      {"", "/", "", 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.start + c.middle + " ... " + c.end);
    TestSupport::CapturedLog log;
    EXPECT_EQ(ReadClipboardText(c.start + Repeat(c.middle, Count) + c.end).size(), c.objects);
    EXPECT_EQ(log.lines.size(), c.lines);
  }
}

} // namespace
} // namespace Tesselor
