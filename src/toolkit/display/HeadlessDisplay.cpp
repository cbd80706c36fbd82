#include "toolkit/display/Display.h"

#include <chrono>
#include <thread>

namespace Toolkit {

void HeadlessDisplay::WaitForInput(double milliseconds) {
  if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
}

} // namespace Toolkit
