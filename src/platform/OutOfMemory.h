#pragma once

namespace Tesselor {

/// From now on the process ends with exit code 1, and a line on standard error and in the log, when there is no memory
/// for an object. What is being written at that time stands beside the file that it was to replace, which stays as it
/// was. The JSON library's own blocks are counted elsewhere, since a load or a save can be refused for them.
void EndWhenOutOfMemory();

} // namespace Tesselor
