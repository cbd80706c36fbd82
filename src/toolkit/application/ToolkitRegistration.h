#pragma once

namespace Toolkit {

/// Describes every class of the toolkit, so that documents find them by name and their properties exist. Call it
/// once before any toolkit object is made; further calls do nothing.
void RegisterToolkitTypes();

} // namespace Toolkit
