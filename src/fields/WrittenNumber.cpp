#include "fields/WrittenNumber.h"

#include "fields/NumberText.h"
#include "platform/MessageBoxes.h"

namespace Tesselor {

namespace {

template <class T> T NumberOrZero(std::optional<T> number, std::string_view text, const char* type) {
  if (!number) ShowError("Can't convert " + std::string(text) + " to " + type + ".", AttentionCaption);
  return number.value_or(0);
}

} // namespace

int32_t WrittenInteger(std::string_view text) { return NumberOrZero(ParseInteger(text), text, "integer"); }

double WrittenDouble(std::string_view text) { return NumberOrZero(ParseDouble(text), text, "double"); }

} // namespace Tesselor
