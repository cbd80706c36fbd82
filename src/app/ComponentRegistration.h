#pragma once

namespace Tesselor {

/// Makes every class of the application known to the toolkit by name.
void RegisterComponents();

} // namespace Tesselor
