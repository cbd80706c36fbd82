#pragma once

#include "toolkit/application/Application.h"

namespace Tesselor {

/// The application document's class. All it has comes from the document.
class App : public Toolkit::Application {
  TOOLKIT_TYPE(App)
public:
  App() = default;
};

} // namespace Tesselor
