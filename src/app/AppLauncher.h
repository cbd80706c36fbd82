#pragma once

#include "toolkit/application/Launcher.h"

namespace Tesselor {

/// The launcher of this application: its classes, embedded documents and fonts, and images below the texture root.
class AppLauncher : public Toolkit::Launcher {
protected:
  void RegisterComponents() override;
  void InstallProviders() override;
};

} // namespace Tesselor
