#pragma once

namespace Tesselor {

/// Describes every field class, value carrier, row and save-state behaviour to the toolkit. Called once, before the
/// first document is loaded.
void RegisterFieldTypes();

} // namespace Tesselor
