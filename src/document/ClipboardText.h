#pragma once

#include "platform/JsonFile.h"

#include <string>
#include <vector>

namespace Tesselor {

/// The JSON objects in the clipboard's text, in order. They stand behind each other; comments and white space don't
/// count. What is no JSON, or is JSON but no object, is left out with a line in the log for each; `isAnyTooDeep`
/// becomes true for what nests too deeply to be read. Takes time in
/// proportion to the text, whatever that is.
std::vector<JsonPtr> ReadClipboardText(const std::string& text, bool* isAnyTooDeep = nullptr);

} // namespace Tesselor
