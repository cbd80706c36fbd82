// The part of ContentNode that answers the events of its document.

#include "nodes/ContentNode.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Descendants.h"

namespace Tesselor {

using Toolkit::Visibility;

void ContentNode::Comment_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.clickCount != 2) return;
  SetValue(CommentTextVisibilityProperty, Visibility::Collapsed);
  SetValue(CommentInputVisibilityProperty, Visibility::Visible);
  UpdateLayout();
  const auto* block = FindName<Toolkit::UIElement>("CommentBlock");
  if (auto* box = block ? Toolkit::FirstDescendant<Toolkit::TextBox>(*block) : nullptr) {
    box->Focus();
    box->SelectAll();
  }
  args.handled = true;
}

void ContentNode::CommentTextBox_KeyUp(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  if (args.key != Toolkit::Key::Return) return;
  SetValue(CommentTextVisibilityProperty, Visibility::Visible);
  SetValue(CommentInputVisibilityProperty, Visibility::Collapsed);
}

void ContentNode::CommentToggle_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs&) {
  if (Get<Visibility>(CommentInputVisibilityProperty) == Visibility::Visible) return;
  const bool isShown = Get<Visibility>(CommentBlockVisibilityProperty) != Visibility::Collapsed;
  SetValue(CommentBlockVisibilityProperty, isShown ? Visibility::Collapsed : Visibility::Visible);
}

void ContentNode::OutputPinsToggle_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs&) {
  ToggleUnusedOutputPins();
}

} // namespace Tesselor
