#include <vector>

#include <benchmark/benchmark.h>

#include "micro/DrawingScenes.h"
#include "toolkit/render/Painter.h"
#include "toolkit/render/TileRasterizer.h"

namespace {

constexpr int Width = 1920, Height = 1080;

/// A full redraw; the argument is the number of threads.
void Redraw(benchmark::State& state, int nodes, int curves, float zoom) {
  const DrawingScenes::Scene scene = DrawingScenes::MakeCanvas(nodes, curves, zoom);
  Toolkit::TileRasterizer rasterizer(static_cast<int>(state.range(0)), DrawingScenes::Fonts());
  std::vector<Toolkit::Pixel> pixels(static_cast<size_t>(Width * Height));
  for (auto _ : state) rasterizer.Draw(*scene.list, {pixels.data(), Width, Height, Width}, scene.zoom, 0xff000000);
}

void RedrawDetailedNodes(benchmark::State& state) { Redraw(state, 24, 60, 1); }
void RedrawHundredsOfNodes(benchmark::State& state) { Redraw(state, 300, 600, 0.25f); }
void RedrawThousandsOfNodes(benchmark::State& state) { Redraw(state, 5000, 5000, 0.05f); }
void RedrawTenThousandNodes(benchmark::State& state) { Redraw(state, 10000, 10000, 0.035f); }
BENCHMARK(RedrawDetailedNodes)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RedrawHundredsOfNodes)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RedrawThousandsOfNodes)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(RedrawTenThousandNodes)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What a keystroke in one text box damages.
void RedrawTextBox(benchmark::State& state) {
  const DrawingScenes::Scene scene = DrawingScenes::MakeCanvas(24, 60, 1);
  Toolkit::TileRasterizer rasterizer(0, DrawingScenes::Fonts());
  std::vector<Toolkit::Pixel> pixels(static_cast<size_t>(Width * Height));
  const Toolkit::PixelRect damage{100, 60, 240, 80};
  for (auto _ : state)
    rasterizer.Draw(*scene.list, {pixels.data(), Width, Height, Width}, {}, {&damage, 1}, 0xff000000);
}
BENCHMARK(RedrawTextBox)->Unit(benchmark::kMicrosecond)->UseRealTime();

void RecordNode(benchmark::State& state) {
  size_t size = 0;
  for (auto _ : state) size = DrawingScenes::MakeNode(1)->ByteSize();
  state.counters["bytes"] = static_cast<double>(size);
}
BENCHMARK(RecordNode)->Unit(benchmark::kMicrosecond);

} // namespace
