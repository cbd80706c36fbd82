#pragma once

namespace Tesselor {

/// Describes every class of the editor surface to the toolkit. Called once, before the first document is loaded and
/// after the fields and nodes are described.
void RegisterEditorTypes();

} // namespace Tesselor
