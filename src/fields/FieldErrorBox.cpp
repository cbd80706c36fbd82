#include "fields/FieldErrorBox.h"

#include "toolkit/application/MessageBox.h"

namespace Tesselor {

void ShowFieldError(std::string text) {
  Toolkit::MessageBox::Show(std::move(text), "Attention!", Toolkit::MessageBoxButton::OK,
                            Toolkit::MessageBoxImage::Error);
}

void ShowIntegerError(std::string_view text) { ShowFieldError("Can't convert " + std::string(text) + " to integer."); }

void ShowDoubleError(std::string_view text) { ShowFieldError("Can't convert " + std::string(text) + " to double."); }

} // namespace Tesselor
