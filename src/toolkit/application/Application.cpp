#include "toolkit/application/Application.h"

#include "toolkit/visual/Style.h"

namespace Toolkit {

namespace {
Application* current = nullptr;

Style* ThemeStyle(const Type& type) {
  const ResourceDictionary* resources = ResourceDictionary::Application();
  const Value* found = resources ? resources->Find(Value(&type)) : nullptr;
  return found ? found->As<Style*>() : nullptr;
}
} // namespace

TOOLKIT_TYPE_IMPL(Application, DependencyObject, "Application")
void Application::Describe(TypeBuilder<Application>& type) {
  StartupUriProperty = type.Property<SharedString>("StartupUri");
  type.Member<&Application::GetResources, &Application::SetResources>("Resources");
}

Application::Application() { current = this; }

Application::~Application() {
  if (current != this) return;
  current = nullptr;
  ResourceDictionary::SetApplication(nullptr);
  Theme::SetLookup(nullptr);
}

Application* Application::Current() { return current; }

void Application::SetResources(ResourceDictionary* dictionary) {
  resources = Ptr<ResourceDictionary>(dictionary);
  ResourceDictionary::SetApplication(resources);
  Theme::SetLookup(&ThemeStyle);
}

} // namespace Toolkit
