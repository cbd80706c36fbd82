#include "editor/FirstField.h"

#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/controls/TextBox.h"

namespace Tesselor {

namespace {

template <class Test> bool FocusFirst(Toolkit::UIElement& element, const Test& isWanted) {
  if (isWanted(element) && element.Focus()) return true;
  for (size_t i = 0; i < element.VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = element.VisualChild(i); child && FocusFirst(*child, isWanted)) return true;
  return false;
}

} // namespace

bool FocusFirstTextBox(Toolkit::UIElement& element) {
  return FocusFirst(element, [](auto& e) { return Toolkit::DynamicCast<Toolkit::TextBox>(&e) != nullptr; });
}

bool FocusFirstControl(Toolkit::UIElement& element) {
  return FocusFirst(element, [](auto&) { return true; });
}

bool FocusFirstField(BaseNode& node) {
  // One that nobody has seen yet has no controls.
  if (auto* content = Toolkit::DynamicCast<ContentNode>(&node)) content->MakeControls();
  // What it shows is there from the first layout on.
  node.UpdateLayout();
  if (auto* group = Toolkit::DynamicCast<GroupNode>(&node)) {
    group->BeginTitleEdit();
    return true;
  }
  const bool isComment = Toolkit::DynamicCast<CommentNode>(&node) != nullptr;
  auto* body = node.FindName<Toolkit::UIElement>(isComment ? "CommentTextBox" : "NodeContent");
  return body && FocusFirstControl(*body);
}

} // namespace Tesselor
