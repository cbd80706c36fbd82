#include "app/App.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(App, Toolkit::Application, "Tesselor.App")
void App::Describe(Toolkit::TypeBuilder<App>&) {}

} // namespace Tesselor
