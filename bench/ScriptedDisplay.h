#pragma once

#include "app/AppLauncher.h"
#include "editor/MainView.h"
#include "editor/NodeEditorCanvas.h"
#include "editor/WorkKeeper.h"
#include "platform/ExecutableDirectory.h"
#include "platform/LogFile.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/render/TileRasterizer.h"
#include "toolkit/visual/Input.h"
#include "workspace/AssetFileIndex.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace Bench {

inline constexpr int Width = 1920, Height = 1080;
inline constexpr Toolkit::Point Middle{Width / 2.0f, Height / 2.0f};

/// Of all threads, in milliseconds.
inline double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// The part of it that the kernel took, such as for memory's first use, in milliseconds.
inline double KernelTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_stime.tv_sec) * 1e3 + static_cast<double>(usage.ru_stime.tv_usec) * 1e-3;
}

template <class T> T* FindFirst(Toolkit::UIElement& element, const std::function<bool(T&)>& fits) {
  if (T* found = Toolkit::DynamicCast<T>(&element); found && fits(*found)) return found;
  for (size_t i = 0; i < element.VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = element.VisualChild(i))
      if (T* found = FindFirst<T>(*child, fits)) return found;
  return nullptr;
}

/// A display that keeps its pixels in memory and plays a script: each time the program waits for input it gets the next
/// step of it, and the time from there to the end of the frame that follows is taken.
class ScriptedDisplay : public Toolkit::Display {
public:
  explicit ScriptedDisplay(int threads) : rasterizer(threads), pixels(static_cast<size_t>(Width * Height)) {}

  bool Open(Toolkit::UIElement& window, Toolkit::InputState& state, const std::string&, std::string&) override {
    root = &window;
    input = &state;
    return true;
  }
  Toolkit::Size ClientSize() const override { return {Width, Height}; }
  bool HasUser() const override { return true; }
  bool ShowsFrames() const override { return true; }
  bool TakeCloseRequest() override { return false; }
  bool TakeSizeChange() override { return false; }
  void SetTitle(const std::string&) override {}

  void Present(const Toolkit::FrameRecorder::Frame& frame) override {
    const auto start = Clock::now();
    if (!frame.damage.empty())
      rasterizer.Draw(*frame.list, {pixels.data(), Width, Height, Width}, {}, frame.damage, 0xff24242a);
    if (frameStart == Clock::time_point()) return;
    Note(Milliseconds(Clock::now() - start));
    hasFrame = true;
  }

  void WaitForInput(double) override {
    // What changes nothing to see takes its time all the same.
    if (frameStart != Clock::time_point() && !hasFrame) Note(0);
    frameStart = {};
    hasFrame = false;
    if (steps.empty() && !IsOpened()) return;
    if (next == steps.size()) {
      // Nobody is there to be asked about unsaved changes.
      View().Close();
      return;
    }
    frameStart = Clock::now();
    processorStart = ProcessorTime();
    kernelStart = KernelTime();
    steps[next++]();
  }

protected:
  /// Of the steps since the last `Take`, one entry a frame, or one for a step without a frame, in milliseconds.
  struct Times {
    std::vector<double> wall, processor, kernel, drawing;
  };

  /// Adds all steps, once the document is there.
  virtual void MakeSteps() = 0;
  void Add(std::function<void()> step) { steps.push_back(std::move(step)); }
  Times Take() { return std::exchange(taken, {}); }
  Tesselor::MainView& View() { return static_cast<Tesselor::MainView&>(*root); }

  Toolkit::UIElement* root = nullptr;
  Toolkit::InputState* input = nullptr;
  Tesselor::NodeEditorCanvas* canvas = nullptr;

private:
  using Clock = std::chrono::steady_clock;
  static double Milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
  }

  void Note(double drawing) {
    taken.drawing.push_back(drawing);
    taken.wall.push_back(Milliseconds(Clock::now() - frameStart));
    taken.processor.push_back(ProcessorTime() - processorStart);
    taken.kernel.push_back(KernelTime() - kernelStart);
  }

  bool IsOpened() {
    canvas = FindFirst<Tesselor::NodeEditorCanvas>(*root, [](auto&) { return true; });
    if (!canvas || Toolkit::Dispatcher::Current().HasWork()) return false;
    MakeSteps();
    return true;
  }

  Toolkit::TileRasterizer rasterizer;
  std::vector<Toolkit::Pixel> pixels;
  std::vector<std::function<void()>> steps;
  size_t next = 0;
  Clock::time_point frameStart;
  double processorStart = 0, kernelStart = 0;
  bool hasFrame = false;
  Times taken;
};

/// Runs the whole editor with an asset on a display that `makeDisplay` makes.
inline int RunEditor(const char* program, const char* asset,
                     std::function<std::unique_ptr<Toolkit::Display>()> makeDisplay) {
  class ScriptedLauncher : public Tesselor::AppLauncher {
  public:
    explicit ScriptedLauncher(std::function<std::unique_ptr<Toolkit::Display>()> make) : make(std::move(make)) {}

  protected:
    std::unique_ptr<Toolkit::Display> CreateDisplay() override { return make(); }

  private:
    std::function<std::unique_ptr<Toolkit::Display>()> make;
  };
  // What is kept of unsaved work is the measurement's own.
  std::string state = (std::filesystem::temp_directory_path() / "tesselor-bench-XXXXXX").string();
  setenv("XDG_STATE_HOME", mkdtemp(state.data()), 1);
  Tesselor::LogFile::Open("");
  Tesselor::ExecutableDirectory::SetFromProgram(program);
  Tesselor::AssetFileIndex& index = Tesselor::AssetFileIndex::Instance();
  index.assetToLoad = asset;
  index.BuildAsync(asset);
  ScriptedLauncher launcher(std::move(makeDisplay));
  launcher.SetApplicationFile("App.xaml");
  const int result = launcher.Run();
  std::filesystem::remove_all(state);
  return result;
}

} // namespace Bench
