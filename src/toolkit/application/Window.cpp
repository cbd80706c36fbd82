#include "toolkit/application/Window.h"

#include "toolkit/visual/LayoutQueue.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(Window, ContentControl, "Window")
void Window::Describe(TypeBuilder<Window>& type) { TitleProperty = type.Property<SharedString>("Title"); }

void Window::SetClientSize(Size size) {
  if (!IsAttached()) AttachAsRoot();
  Measure(size);
  Arrange({0, 0, size.width, size.height});
  LayoutQueue::Current().Run();
}

} // namespace Toolkit
