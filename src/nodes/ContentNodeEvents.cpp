// The part of ContentNode that answers the events of its document.

#include "nodes/ContentNode.h"

#include <string_view>

namespace Tesselor {

using Toolkit::RoutedEventHandler;
using Toolkit::Visibility;

bool ContentNode::ConnectEvent(Toolkit::Object* source, const char* eventName, const char* handlerName) {
  const std::string_view event = eventName;
  const std::string_view handler = handlerName;
  auto* element = Toolkit::DynamicCast<UIElement>(source);
  if (!element) return false;
  if (event == "PreviewMouseDown") {
    if (handler == "Comment_MouseDown") {
      element->AddHandler(PreviewMouseDownEvent, RoutedEventHandler::From<&ContentNode::Comment_MouseDown>(this));
      return true;
    }
    if (handler == "CommentToggle_MouseDown") {
      element->AddHandler(PreviewMouseDownEvent, RoutedEventHandler::From<&ContentNode::CommentToggle_MouseDown>(this));
      return true;
    }
    if (handler == "OutputPinsToggle_MouseDown") {
      element->AddHandler(PreviewMouseDownEvent,
                          RoutedEventHandler::From<&ContentNode::OutputPinsToggle_MouseDown>(this));
      return true;
    }
    if (handler == "Node_MouseDown") {
      element->AddHandler(PreviewMouseDownEvent, RoutedEventHandler::From<&BaseNode::Node_MouseDown>(this));
      return false;
    }
  }
  if (event == "PreviewMouseUp" && handler == "Node_MouseUp") {
    element->AddHandler(PreviewMouseUpEvent, RoutedEventHandler::From<&BaseNode::Node_MouseUp>(this));
    return false;
  }
  if (event == "PreviewKeyUp" && handler == "CommentTextBox_KeyUp") {
    element->AddHandler(PreviewKeyUpEvent, RoutedEventHandler::From<&ContentNode::CommentTextBox_KeyUp>(this));
    return true;
  }
  if (event == "MouseDown" && handler == "Node_MouseDown") {
    element->AddHandler(MouseDownEvent, RoutedEventHandler::From<&BaseNode::Node_MouseDown>(this));
    return true;
  }
  if (event == "MouseUp" && handler == "Node_MouseUp") {
    element->AddHandler(MouseUpEvent, RoutedEventHandler::From<&BaseNode::Node_MouseUp>(this));
    return true;
  }
  return false;
}

void ContentNode::Comment_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.clickCount != 2) return;
  SetValue(CommentTextVisibilityProperty, Visibility::Collapsed);
  SetValue(CommentInputVisibilityProperty, Visibility::Visible);
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
