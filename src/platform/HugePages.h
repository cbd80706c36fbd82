#pragma once

namespace Tesselor {

/// From now on new memory comes in small pages, whatever the allocator asks for. Huge ones serve a run that only has to
/// be done soon; somebody who waits for each key waits for the clearing of two megabytes at once, and for memory that
/// the system first has to put in order. Does nothing where the system can't.
void UseSmallPages();

} // namespace Tesselor
