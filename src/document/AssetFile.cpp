#include "document/AssetFile.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace Tesselor {

namespace {

/// What is wrong with a text that parses; empty if it is one object.
std::string DescribeTopLevel(const std::string& text, const cJSON* json) {
  if (cJSON_IsObject(json)) return {};
  const size_t start = std::min(text.find_first_not_of(" \t\r\n"), text.size());
  return "The top level is no object at " + DescribePlace(text, start);
}

} // namespace

AssetFile AssetFile::Read(const std::string& path) {
  constexpr char opening[] = "Error Opening File";
  std::error_code error;
  AssetFile file;
  const auto refuse = [&file](std::string text, const char* caption) {
    file.json.reset();
    file.error = std::move(text);
    file.caption = caption;
    return std::move(file);
  };
  if (!std::filesystem::exists(path, error)) return refuse("File not found:\n" + path, opening);
  const std::optional<std::string> text = ReadTextFile(path);
  if (!text) return refuse("Failed to open file:\n" + path, opening);
  JsonParseResult parsed = ParseJson(*text, JsonTail::Refused);
  if (parsed.ranOutOfMemory) return refuse("Not enough memory to open file:\n" + path, opening);
  const std::string detail = parsed ? DescribeTopLevel(*text, parsed.json.get()) : parsed.detail;
  if (!detail.empty()) return refuse("Invalid JSON in file:\n" + path + "\n\nError: " + detail, "Error Parsing File");
  file.json = std::move(parsed.json);
  file.longNumbers = FindLongNumbers(*text);
  return file;
}

} // namespace Tesselor
