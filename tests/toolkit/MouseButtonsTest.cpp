#include "toolkit/MarkupTest.h"

namespace Toolkit {
namespace {

class MouseButtonsTest : public StageTest {};

TEST_F(MouseButtonsTest, RaiseTheirOwnEventsBeforeThoseOfAny) {
  Show("<Border x:Name=\"B\" Background=\"Red\"/>");
  FrameworkElement& element = Find("B");
  std::string heard;
  for (const RoutedEvent* event :
       {&UIElement::PreviewMouseDownEvent, &UIElement::MouseDownEvent, &UIElement::PreviewMouseUpEvent,
        &UIElement::MouseUpEvent, &UIElement::PreviewMouseLeftButtonDownEvent, &UIElement::MouseLeftButtonDownEvent,
        &UIElement::PreviewMouseLeftButtonUpEvent, &UIElement::MouseLeftButtonUpEvent,
        &UIElement::PreviewMouseRightButtonDownEvent, &UIElement::MouseRightButtonDownEvent,
        &UIElement::PreviewMouseRightButtonUpEvent, &UIElement::MouseRightButtonUpEvent})
    Listen(element, *event, [&](const RoutedEventArgs& args) { heard += args.event->name.Text() + ' '; });
  // What the arguments say is the same all along the way.
  std::string details;
  const auto note = [&](const RoutedEventArgs& args) {
    const auto& mouse = static_cast<const MouseButtonEventArgs&>(args);
    details = std::to_string(static_cast<int>(mouse.changedButton)) +
              (mouse.buttonState == MouseButtonState::Pressed ? " pressed " : " released ") +
              std::to_string(mouse.clickCount);
    for (const MouseButtonState state : {mouse.leftButton, mouse.middleButton, mouse.rightButton})
      details += state == MouseButtonState::Pressed ? " down" : " up";
  };
  Listen(element, UIElement::PreviewMouseDownEvent, note);
  Listen(element, UIElement::PreviewMouseUpEvent, note);
  struct Case {
    MouseButton button;
    const char *press, *pressed, *release, *released;
  };
  for (const Case& c : {
           Case{MouseButton::Left, "PreviewMouseLeftButtonDown PreviewMouseDown MouseLeftButtonDown MouseDown ",
                "0 pressed 2 down up up", "PreviewMouseLeftButtonUp PreviewMouseUp MouseLeftButtonUp MouseUp ",
                "0 released 1 up up up"},
           Case{MouseButton::Middle, "PreviewMouseDown MouseDown ", "1 pressed 2 up down up", "PreviewMouseUp MouseUp ",
                "1 released 1 up up up"},
           Case{MouseButton::Right, "PreviewMouseRightButtonDown PreviewMouseDown MouseRightButtonDown MouseDown ",
                "2 pressed 2 up up down", "PreviewMouseRightButtonUp PreviewMouseUp MouseRightButtonUp MouseUp ",
                "2 released 1 up up up"},
       }) {
    heard.clear();
    Press({5, 5}, c.button, 2);
    EXPECT_EQ(heard, c.press);
    EXPECT_EQ(details, c.pressed);
    heard.clear();
    Release({5, 5}, c.button);
    EXPECT_EQ(heard, c.release);
    EXPECT_EQ(details, c.released);
  }
}

} // namespace
} // namespace Toolkit
