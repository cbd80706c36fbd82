#include "toolkit/application/Launcher.h"

#include "toolkit/application/Application.h"
#include "toolkit/application/ImageFiles.h"
#include "toolkit/application/ToolkitRegistration.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/display/SdlDisplay.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/visual/Input.h"
#include "toolkit/visual/LayoutQueue.h"

#include <cstdio>

namespace Toolkit {

namespace {

/// What the loop shows and where.
struct Scene {
  Window& window;
  InputState& input;
  Display& display;
  FrameRecorder frames{&ImageFiles::Find};

  void FollowSize() {
    if (display.TakeSizeChange()) window.SetClientSize(display.ClientSize());
  }
  void ShowFrame() {
    LayoutQueue& layout = LayoutQueue::Current();
    if (!layout.TakeVisualChange()) return;
    input.UpdateHover();
    layout.Run();
    layout.TakeVisualChange();
    if (display.ShowsFrames()) display.Present(frames.Record(window, display.ClientSize(), display.Scale()));
  }
};

/// Of the loop that turns.
Scene* currentScene = nullptr;

} // namespace

bool Launcher::TurnWhileWaiting() {
  if (!currentScene) return true;
  currentScene->display.DropInput();
  Dispatcher::Current().RunDue();
  if (currentScene->window.IsClosed()) return false;
  currentScene->FollowSize();
  currentScene->ShowFrame();
  return true;
}

std::unique_ptr<Display> Launcher::CreateDisplay() {
  if (SdlDisplay::IsAvailable()) return std::make_unique<SdlDisplay>();
  return std::make_unique<HeadlessDisplay>();
}

int Launcher::Run() {
  RegisterToolkitTypes();
  RegisterComponents();
  InstallProviders();
  Ptr<Object> document = GUI::Load(applicationFile);
  auto* application = DynamicCast<Application>(document);
  if (!application) {
    std::fprintf(stderr, "The application document '%s' cannot be loaded.\n", applicationFile.c_str());
    return 1;
  }
  const Type* windowType = GUI::ClassOf(application->StartupUri());
  Ptr<Object> made = windowType ? Ptr<Object>::Adopt(windowType->Create()) : nullptr;
  auto* window = DynamicCast<Window>(made);
  if (!window) {
    std::fprintf(stderr, "The startup window '%s' cannot be made.\n", std::string(application->StartupUri()).c_str());
    return 1;
  }
  const int result = RunWindow(*window);
  window->DetachAsRoot();
  return result;
}

int Launcher::RunWindow(Window& window) {
  InputState input(window);
  std::unique_ptr<Display> display = CreateDisplay();
  std::string error, title(window.GetTitle());
  if (!display->Open(window, input, title, error)) {
    // A desktop that cannot be reached is no reason to refuse work that needs none.
    Log(__FILE__, __LINE__, LogLevel::Warning, "Display", "The display cannot be opened: " + error);
    display = std::make_unique<HeadlessDisplay>();
  }
  if (display->ShowsFrames()) window.PresentMessageBoxes();
  Scene scene{window, input, *display};
  struct Current {
    explicit Current(Scene& scene) { currentScene = &scene; }
    ~Current() { currentScene = nullptr; }
  } const current(scene);
  Dispatcher& dispatcher = Dispatcher::Current();
  LayoutQueue& layout = LayoutQueue::Current();
  window.SetClientSize(display->ClientSize());
  while (!window.IsClosed()) {
    dispatcher.RunDue();
    scene.FollowSize();
    layout.RaiseLoaded();
    if (window.IsClosed()) break;
    scene.ShowFrame();
    display->SetCursor(input.Cursor());
    display->SetTextInput(input.CaretRectangle());
    if (window.GetTitle() != title) {
      title = std::string(window.GetTitle());
      display->SetTitle(title);
    }
    if (!display->HasUser() && !dispatcher.HasWork()) {
      std::fputs("Nothing is left to do and no display is there to go on with; see the log for what happened.\n",
                 stderr);
      return 1;
    }
    // Layout that came meanwhile, and what a frame left for the next one, wait only for the input that has come.
    const bool isDue = !layout.IsEmpty() || (display->ShowsFrames() && layout.HasVisualChange());
    display->WaitForInput(isDue ? 0 : dispatcher.TimeToNext());
    if (display->TakeCloseRequest()) window.RequestClose();
  }
  return Application::Current()->ExitCode();
}

} // namespace Toolkit
