#include "document/SchemaKey.h"

#include "nodes/NodeKeys.h"
#include "workspace/NodeBlueprint.h"

#include <cjson/cJSON.h>
#include <string_view>

namespace Tesselor {

bool IsEditorKey(const char* key) {
  const std::string_view text = key;
  if (text == Keys::FormerFloatingNodes) return true;
  return text.starts_with('$') && text != Keys::Key && text != Keys::Value;
}

std::string ResolveSchemaKey(const NodeBlueprint& blueprint, const char* key, const cJSON* value) {
  std::string result = key;
  const std::string asField = result + "$Ref";
  const std::string asPin = result + "$Pin";
  if (blueprint.schema.Contains(asField)) result = asField;
  const bool fitsPin =
      cJSON_IsObject(value) || (cJSON_IsArray(value) && (!value->child || cJSON_IsObject(value->child)));
  if (fitsPin && blueprint.pinSchema.Contains(asPin)) result = asPin;
  return result;
}

} // namespace Tesselor
