#include "document/AssetFile.h"

#include <filesystem>
#include <utility>

namespace Tesselor {

AssetFile AssetFile::Read(const std::string& path) {
  constexpr char opening[] = "Error Opening File";
  std::error_code error;
  if (!std::filesystem::exists(path, error)) return {nullptr, "File not found:\n" + path, opening};
  const std::optional<std::string> text = ReadTextFile(path);
  if (!text) return {nullptr, "Failed to open file:\n" + path, opening};
  JsonParseResult parsed = ParseJson(*text);
  if (parsed) return {std::move(parsed.json), {}, {}};
  const std::string detail = parsed.detail.empty() ? "unknown error" : parsed.detail;
  return {nullptr, "Invalid JSON in file:\n" + path + "\n\nError: " + detail, "Error Parsing File"};
}

} // namespace Tesselor
