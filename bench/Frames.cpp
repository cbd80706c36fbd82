// What frames of the real editor cost: opens an asset in the whole program on a display that keeps its pixels in
// memory, puts the nodes into rows, then pans, zooms, moves the mouse and types, and prints the median and the slowest
// frame of each, in milliseconds of wall time.
//
//   Frames ASSET [THREADS [ZOOM]]   1920x1080; the asset's workspace is found as the editor finds it; with a zoom, only
//                                   the scene of that zoom is measured, ten times as long

#include "ScriptedDisplay.h"

#include "nodes/ContentNode.h"
#include "toolkit/controls/TextBox.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using Bench::FindFirst;
using Bench::Height;
using Bench::Middle;
using Bench::ScriptedDisplay;
using Bench::Width;
using Toolkit::Point;

class Scenes : public ScriptedDisplay {
public:
  /// A negative zoom stands for all scenes.
  Scenes(int threads, float onlyZoom) : ScriptedDisplay(threads), onlyZoom(onlyZoom) {}

private:
  void MakeSteps() override {
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
      return;
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
  }

  void Measure(const std::string& name, int count, const std::function<void(int)>& step) {
    Add([this, name] {
      Report();
      measured = name;
      Take();
    });
    for (int i = 0; i < count; ++i) Add([step, i] { step(i); });
  }

  void Report() {
    const Times times = Take();
    if (measured.empty() || times.wall.empty()) return;
    // The first frame belongs to what came before.
    const auto median = [](std::vector<double> values) {
      std::sort(values.begin(), values.end());
      return values[values.size() / 2];
    };
    std::printf("%-36s median %7.2f  slowest %7.2f  CPU %7.2f  of it drawing %7.2f  (%zu frames, %zu nodes and %zu "
                "curves in view, zoom "
                "%.4f)\n",
                measured.c_str(), median(times.wall), *std::max_element(times.wall.begin(), times.wall.end()),
                median(times.processor), median(times.drawing), times.wall.size(), CountInView(true),
                CountInView(false), static_cast<double>(canvas->GetZoom()));
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
  float onlyZoom;
  Point start;
  std::string measured;
};

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: Frames ASSET [THREADS [ZOOM]]\n", stderr);
    return 2;
  }
  const int threads = argc > 2 ? std::atoi(argv[2]) : 0;
  const float zoom = argc > 3 ? static_cast<float>(std::atof(argv[3])) : -1;
  return Bench::RunEditor(argv[0], argv[1], [&] { return std::make_unique<Scenes>(threads, zoom); });
}
