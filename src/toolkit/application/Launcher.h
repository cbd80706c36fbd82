#pragma once

#include "toolkit/application/Window.h"
#include "toolkit/display/Display.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace Toolkit {

/// Runs an application: loads its document, opens the startup window on a display and turns the loop until the
/// window closes.
class Launcher {
public:
  virtual ~Launcher() = default;
  void SetArguments(int argc, const char* const* argv) { arguments.assign(argv, argv + argc); }
  void SetApplicationFile(std::string_view documentName) { applicationFile = documentName; }
  /// The application's exit code when its window has closed; 1, with the reason on the standard error stream, if it
  /// could not start, or if nobody can act any more and the window is still open.
  int Run();
  /// Runs what is due and repaints the window while the caller waits for something outside of the loop, such as a
  /// dialog of the desktop. What the user does to the window meanwhile is dropped. False once the window is closed, so
  /// that nothing is worth waiting for. Does nothing while no loop turns.
  static bool TurnWhileWaiting();

protected:
  const std::vector<std::string>& Arguments() const { return arguments; }
  /// Makes the classes of the application known to documents.
  virtual void RegisterComponents() {}
  /// Installs providers of documents, fonts and images.
  virtual void InstallProviders() {}
  /// The desktop's display if there is one, else a headless one.
  virtual std::unique_ptr<Display> CreateDisplay();

private:
  int RunWindow(Window& window);
  std::vector<std::string> arguments;
  std::string applicationFile;
};

} // namespace Toolkit
