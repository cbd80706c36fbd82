#pragma once

#include "toolkit/base/DependencyObject.h"
#include "toolkit/visual/ResourceDictionary.h"

namespace Toolkit {

/// The application document's root: the resources that all documents share, and the document of the first window.
class Application : public DependencyObject {
  TOOLKIT_TYPE(Application)
public:
  static inline const DependencyProperty* StartupUriProperty = nullptr;
  Application();
  ~Application() override;
  /// The running application, or null.
  static Application* Current();

  ResourceDictionary* GetResources() const { return resources.Get(); }
  /// Makes the dictionary the last place of every resource lookup, and the source of the theme's styles.
  void SetResources(ResourceDictionary* dictionary);
  std::string_view StartupUri() const { return GetString(StartupUriProperty); }

  /// What the launcher returns when the window has closed; 0 unless set.
  int ExitCode() const { return exitCode; }
  void SetExitCode(int code) { exitCode = code; }

private:
  Ptr<ResourceDictionary> resources;
  int exitCode = 0;
};

} // namespace Toolkit
