#include "toolkit/application/Window.h"

#include "toolkit/application/MessageBoxPresenter.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/visual/LayoutQueue.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Window, ContentControl, "Window")
void Window::Describe(TypeBuilder<Window>& type) { TitleProperty = type.Property<SharedString>("Title"); }

Window::Window() : popups(MakePtr<PopupLayer>()) {
  wantsAttachment = true;
  AddVisualChild(popups.Get());
}

Window::~Window() {
  messageBoxes.reset();
  ReleaseVisualChild(popups.Get());
}

UIElement* Window::VisualChild(size_t index) const {
  return index < ContentControl::VisualChildCount() ? ContentControl::VisualChild(index) : popups.Get();
}

void Window::SetClientSize(Size size) {
  if (!IsAttached()) AttachAsRoot();
  Measure(size);
  Arrange({0, 0, size.width, size.height});
  LayoutQueue::Current().Run();
}

void Window::PresentMessageBoxes() {
  if (messageBoxes) return;
  messageBoxes = std::make_unique<MessageBoxPresenter>(*this);
  OnPresented();
}

Size Window::MeasureOverride(Size available) {
  popups->Measure(available);
  return ContentControl::MeasureOverride(available);
}

Size Window::ArrangeOverride(Size finalSize) {
  const Size taken = ContentControl::ArrangeOverride(finalSize);
  popups->Arrange({0, 0, finalSize.width, finalSize.height});
  return taken;
}

void Window::OnRoutedEvent(const RoutedEventArgs& args) {
  ContentControl::OnRoutedEvent(args);
  popups->OnWindowEvent(args);
}

void Window::OnDetached() {
  // The boxes' callbacks may hold the window.
  messageBoxes.reset();
  ContentControl::OnDetached();
}

} // namespace Toolkit
