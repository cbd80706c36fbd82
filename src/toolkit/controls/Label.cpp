#include "toolkit/controls/Label.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Label, ContentControl, "Label")
void Label::Describe(TypeBuilder<Label>&) {}

} // namespace Toolkit
