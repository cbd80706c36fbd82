#pragma once

#include <string>
#include <string_view>

namespace Toolkit {
class FrameworkElement;
}

namespace Tesselor {

class BaseField;

/// How the user is told of a field: by its caption, and by its node, where that is known, short enough for one line and
/// tells more than `value`, which is told as well.
std::string NameOf(const BaseField& field, std::string_view value = {});

/// The same of the field that `control` belongs to; `otherwise` if it belongs to none.
std::string NameOfFieldOf(const Toolkit::FrameworkElement* control, std::string_view otherwise,
                          std::string_view value = {});

} // namespace Tesselor
