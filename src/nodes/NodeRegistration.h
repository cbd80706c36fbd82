#pragma once

namespace Tesselor {

/// Describes every node class and the pins to the toolkit. Called once, behind the field classes and before the first
/// document is loaded.
void RegisterNodeTypes();

} // namespace Tesselor
