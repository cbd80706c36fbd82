#include "fields/AssetIdReader.h"

#include "platform/JsonFile.h"
#include "platform/MessageBoxes.h"

namespace Tesselor {

std::string FileStem(std::string_view path) {
  // npos + 1 is 0: a path without a separator is all name.
  const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
  return std::string(name.substr(0, name.rfind('.')));
}

std::optional<std::string> ReadAssetId(const std::string& path) {
  const JsonParseResult parsed = ParseJson(ReadTextFile(path).value_or(std::string()));
  const cJSON* id = parsed ? cJSON_GetObjectItem(parsed.json.get(), "Id") : nullptr;
  if (!id) {
    const std::string text = "The loaded asset '" + FileStem(path) + "' does not contain an 'Id' field.";
    ReportError(text, text, AttentionCaption);
    return std::nullopt;
  }
  return JsonText(id);
}

} // namespace Tesselor
