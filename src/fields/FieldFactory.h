#pragma once

#include "fields/BaseField.h"

#include <string_view>

namespace Tesselor {

struct NodeFieldBlueprint;

/// Makes the control for one field of a schema and gives it its options, if they are a JSON object. With
/// `applyDefaults` declared defaults become values. An unknown type is told to the user; null comes back.
Toolkit::Ptr<BaseField> sCreateField(const NodeFieldBlueprint* blueprint, bool applyDefaults);

/// The same from the parts of a blueprint. `options` may be null and is not kept.
Toolkit::Ptr<BaseField> CreateField(std::string_view type, const cJSON* options, bool applyDefaults);

/// Whether there are fields of that type.
bool IsFieldType(std::string_view type);

} // namespace Tesselor
