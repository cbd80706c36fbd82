#pragma once

#include <string>

struct cJSON;

namespace Tesselor {

struct NodeBlueprint;

/// Whether a key is one of the editor's own, which no schema sees, whatever it lists.
bool IsEditorKey(const char* key);
/// The key of the schema behind a key of the file: of a pair of field and pin, the one that the value fits.
std::string ResolveSchemaKey(const NodeBlueprint& blueprint, const char* key, const cJSON* value);

} // namespace Tesselor
