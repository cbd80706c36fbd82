#include "toolkit/controls/Label.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Label, ContentControl, "Label")
void Label::Describe(TypeBuilder<Label>&) {}

TOOLKIT_TYPE_IMPL(ToolTip, ContentControl, "ToolTip")
void ToolTip::Describe(TypeBuilder<ToolTip>&) {}

} // namespace Toolkit
