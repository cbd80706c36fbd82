#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// Tells the user what went wrong with a field's value: a box with one OK button, the error image and the caption
/// "Attention!".
void ShowFieldError(std::string text);

/// That a text could not be written as a number. 0 is written in its place.
void ShowIntegerError(std::string_view text);
void ShowDoubleError(std::string_view text);

} // namespace Tesselor
