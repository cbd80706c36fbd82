// What frames of the real editor cost: opens an asset in the whole program on a display that keeps its pixels in
// memory, puts the nodes into rows, then pans, zooms, moves the mouse and types, and prints the median and the slowest
// frame of each, in milliseconds of wall time.
//
//   Frames ASSET [THREADS [ZOOM]]   1920x1080; the asset's workspace is found as the editor finds it; with a zoom, only
//                                   the scene of that zoom is measured, ten times as long

#include "app/AppLauncher.h"
#include "editor/MainView.h"
#include "editor/NodeEditorCanvas.h"
#include "nodes/ContentNode.h"
#include "platform/CommandLineOptions.h"
#include "platform/ExecutableDirectory.h"
#include "platform/LogFile.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/render/TileRasterizer.h"
#include "toolkit/visual/Input.h"
#include "workspace/AssetFileIndex.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;
using Toolkit::Point;

constexpr int Width = 1920, Height = 1080;
constexpr Point Middle{Width / 2.0f, Height / 2.0f};

/// Of all threads, in milliseconds.
double ProcessorTime() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

double Milliseconds(Clock::duration duration) { return std::chrono::duration<double, std::milli>(duration).count(); }

template <class T> T* FindFirst(Toolkit::UIElement& element, const std::function<bool(T&)>& fits) {
  if (T* found = Toolkit::DynamicCast<T>(&element); found && fits(*found)) return found;
  for (size_t i = 0; i < element.VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = element.VisualChild(i))
      if (T* found = FindFirst<T>(*child, fits)) return found;
  return nullptr;
}

/// Plays a script: each time the program waits for input it gets the next piece of it.
class ScriptedDisplay : public Toolkit::Display {
public:
  ScriptedDisplay(int threads, float onlyZoom)
      : rasterizer(threads), pixels(static_cast<size_t>(Width * Height)), onlyZoom(onlyZoom) {}

  bool Open(Toolkit::UIElement& window, Toolkit::InputState& state, const std::string&, std::string&) override {
    root = &window;
    input = &state;
    return true;
  }
  Toolkit::Size ClientSize() const override { return {Width, Height}; }
  bool HasUser() const override { return true; }
  bool ShowsFrames() const override { return true; }
  bool TakeCloseRequest() override { return isDone; }
  bool TakeSizeChange() override { return false; }
  void SetTitle(const std::string&) override {}

  void Present(const Toolkit::FrameRecorder::Frame& frame) override {
    const auto start = Clock::now();
    if (!frame.damage.empty())
      rasterizer.Draw(*frame.list, {pixels.data(), Width, Height, Width}, {}, frame.damage, 0xff24242a);
    drawing = Milliseconds(Clock::now() - start);
    if (frameStart == Clock::time_point()) return;
    times.push_back(Milliseconds(Clock::now() - frameStart));
    processorTimes.push_back(ProcessorTime() - processorStart);
    drawTimes.push_back(drawing);
  }

  void WaitForInput(double) override {
    frameStart = {};
    if (steps.empty() && !MakeSteps()) return;
    if (next == steps.size()) {
      isDone = true;
      return;
    }
    frameStart = Clock::now();
    processorStart = ProcessorTime();
    steps[next++]();
  }

private:
  /// False while the document is still being opened.
  bool MakeSteps() {
    canvas = FindFirst<Tesselor::NodeEditorCanvas>(*root, [](auto&) { return true; });
    if (!canvas || Toolkit::Dispatcher::Current().HasWork()) return false;
    const struct {
      const char* name;
      float zoom;
      float nodes;
    } scenes[] = {{"pan among 24 nodes at zoom 1", 1, 24},
                  {"pan among 300 nodes at zoom 0.25", 0.25f, 300},
                  {"pan among 5,000 nodes at zoom 0.05", 0.05f, 5000},
                  {"pan with all in view", 0, 0}};
    for (const auto& scene : scenes) {
      if (onlyZoom >= 0 && onlyZoom != scene.zoom) continue;
      Add([this, scene] {
        Report();
        // The wheel's steps reach a zoom near the one wanted.
        float reached = 1;
        while (reached > scene.zoom * 1.0001f && scene.zoom > 0) reached *= 0.9f;
        PutInRows(reached, scene.nodes);
        ZoomTo(scene.zoom);
      });
      Measure(scene.name, onlyZoom >= 0 ? 600 : 60, [this](int i) {
        const Point at{Middle.x + static_cast<float>(i % 20 * 7), Middle.y + static_cast<float>(i % 10 * 5)};
        canvas->SetTranslationClamped(start.x + at.x - Middle.x, start.y + at.y - Middle.y);
      });
      Measure("mouse move", 60, [this](int i) {
        input->MouseMove({300 + static_cast<float>(i * 20), 200 + static_cast<float>(i * 10)});
      });
    }
    if (onlyZoom >= 0) {
      Add([this] { Report(); });
      return true;
    }
    Add([this] {
      Report();
      ZoomTo(1);
    });
    Measure("zoom from 1 to 0.04 by the wheel", 30, [this](int) { input->MouseWheel(Middle, -1); });
    Measure("and back", 30, [this](int) { input->MouseWheel(Middle, 1); });
    Add([this] {
      Report();
      auto* box = FindFirst<Toolkit::TextBox>(*canvas, [](Toolkit::TextBox& b) {
        return b.IsVisible() && !b.Get<bool>(Toolkit::TextBox::IsReadOnlyProperty) && b.ActualWidth() > 50;
      });
      if (!box) return;
      const Point place = box->TransformToAncestor(canvas->GetPanel()).Map({10, 10});
      canvas->ResetViewTo(place);
      box->Focus();
    });
    Measure("keystroke", 60, [this](int i) { input->TextInput(i % 2 ? "a" : "b"); });
    Add([this] { Report(); });
    return true;
  }

  void Add(std::function<void()> step) { steps.push_back(std::move(step)); }

  void Measure(const std::string& name, int count, const std::function<void(int)>& step) {
    Add([this, name] {
      Report();
      measured = name;
      times.clear();
      processorTimes.clear();
      drawTimes.clear();
    });
    for (int i = 0; i < count; ++i) Add([step, i] { step(i); });
  }

  void Report() {
    if (measured.empty() || times.empty()) return;
    // The first frame belongs to what came before.
    const auto median = [](std::vector<double> values) {
      std::sort(values.begin(), values.end());
      return values[values.size() / 2];
    };
    std::printf("%-36s median %7.2f  slowest %7.2f  CPU %7.2f  of it drawing %7.2f  (%zu frames, %zu nodes and %zu "
                "curves in view, zoom "
                "%.4f)\n",
                measured.c_str(), median(times), *std::max_element(times.begin(), times.end()), median(processorTimes),
                median(drawTimes), times.size(), CountInView(true), CountInView(false),
                static_cast<double>(canvas->GetZoom()));
    measured.clear();
  }

  /// The nodes, or the other children of the canvas, whose boxes meet the view.
  size_t CountInView(bool nodes) const {
    const Toolkit::Canvas& panel = *canvas->GetPanel();
    const Toolkit::Matrix inverse = panel.TransformToAncestor(nullptr).Inverse();
    const Point low = inverse.Map({}), high = inverse.Map({Width, Height});
    const Toolkit::Rect view{low.x, low.y, high.x - low.x, high.y - low.y};
    size_t count = 0;
    for (size_t i = 0; i < panel.ChildCount(); ++i) {
      const Toolkit::UIElement& child = *panel.Child(i);
      const auto* node = Toolkit::DynamicCast<Tesselor::ContentNode>(&child);
      if ((node != nullptr) != nodes || !child.IsVisible()) continue;
      const Toolkit::Rect box = child.DrawnBounds();
      const Point at = child.Offset();
      count += view.Intersects({box.x + at.x, box.y + at.y, box.width, box.height});
    }
    return count;
  }

  /// Puts the nodes into rows in the proportions of the view: so that `inView` of them take its area at that zoom, over
  /// each other where they are larger; or a little apart, if that is 0.
  void PutInRows(float zoom, float inView) {
    constexpr float Gap = 30;
    std::vector<Tesselor::ContentNode*> nodes;
    Toolkit::Canvas& panel = *canvas->GetPanel();
    float width = 0, height = 0;
    for (size_t i = 0; i < panel.ChildCount(); ++i) {
      auto* node = Toolkit::DynamicCast<Tesselor::ContentNode>(panel.Child(i));
      if (!node) continue;
      nodes.push_back(node);
      width = std::max(width, node->ActualWidth() + Gap);
      height = std::max(height, node->ActualHeight() + Gap);
    }
    if (inView > 0) {
      const float spread = std::sqrt(static_cast<float>(Width) * Height / inView / width / height) / zoom;
      width *= spread;
      height *= spread;
    }
    const float count = static_cast<float>(nodes.size());
    const auto columns = static_cast<size_t>(std::ceil(std::sqrt(count * height / width * Width / Height)));
    const float rows = std::ceil(count / static_cast<float>(columns));
    extent = {static_cast<float>(columns) * width, rows * height};
    for (size_t i = 0; i < nodes.size(); ++i) {
      Toolkit::Canvas::SetLeft(nodes[i], Centre + static_cast<float>(i % columns) * width - extent.width / 2);
      Toolkit::Canvas::SetTop(nodes[i], Centre + static_cast<float>(i / columns) * height - extent.height / 2);
    }
    panel.UpdateLayout();
  }

  void ZoomTo(float zoom) {
    if (zoom == 0) zoom = std::min(Width / extent.width, Height / extent.height);
    canvas->ResetViewTo({Centre, Centre});
    while (canvas->GetScaleTransform()->GetScaleX() > zoom * 1.0001f) {
      const float before = canvas->GetScaleTransform()->GetScaleX();
      input->MouseWheel(Middle, -1);
      if (canvas->GetScaleTransform()->GetScaleX() == before) break;
    }
    start = {canvas->GetTranslateTransform()->GetX(), canvas->GetTranslateTransform()->GetY()};
  }

  /// Of the canvas's panel.
  static constexpr float Centre = 750000;
  Toolkit::Size extent;
  Toolkit::TileRasterizer rasterizer;
  std::vector<Toolkit::Pixel> pixels;
  /// Negative for all scenes.
  float onlyZoom;
  Toolkit::UIElement* root = nullptr;
  Toolkit::InputState* input = nullptr;
  Tesselor::NodeEditorCanvas* canvas = nullptr;
  Point start;
  std::vector<std::function<void()>> steps;
  size_t next = 0;
  bool isDone = false;
  Clock::time_point frameStart;
  double drawing = 0, processorStart = 0;
  std::string measured;
  std::vector<double> times, processorTimes, drawTimes;
};

class ScriptedLauncher : public Tesselor::AppLauncher {
public:
  ScriptedLauncher(int threads, float onlyZoom) : threads(threads), onlyZoom(onlyZoom) {}

protected:
  std::unique_ptr<Toolkit::Display> CreateDisplay() override {
    return std::make_unique<ScriptedDisplay>(threads, onlyZoom);
  }

private:
  int threads;
  float onlyZoom;
};

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: Frames ASSET [THREADS [ZOOM]]\n", stderr);
    return 2;
  }
  Tesselor::LogFile::Open("");
  Tesselor::ExecutableDirectory::SetFromProgram(argv[0]);
  Tesselor::AssetFileIndex& index = Tesselor::AssetFileIndex::Instance();
  index.assetToLoad = argv[1];
  index.BuildAsync(argv[1]);
  ScriptedLauncher launcher(argc > 2 ? std::atoi(argv[2]) : 0, argc > 3 ? static_cast<float>(std::atof(argv[3])) : -1);
  launcher.SetApplicationFile("App.xaml");
  return launcher.Run();
}
