#pragma once

#include "platform/JsonFile.h"

namespace Tesselor {

class NodePinData;

/// Members that a schema doesn't name become nodes of their own below the pins "$AdditionalProperties$Pin" and
/// "$AdditionalParameterProperties$Pin". These functions turn such a member into the JSON of its node, and what that
/// node writes into the member again.

JsonPtr PropertyNodeJson(const cJSON* member);
/// Adds to `json` what the node of a property wrote; nothing without a key or a value.
void AddProperty(cJSON* json, const cJSON* written);

/// The key under which all parameters stand.
const char* ParametersKey(const NodePinData& pin);
JsonPtr ParameterNodeJson(const cJSON* parameter);
/// Adds to `container` what the node of a parameter wrote; nothing without a key.
void AddParameter(cJSON* container, const cJSON* written);

} // namespace Tesselor
