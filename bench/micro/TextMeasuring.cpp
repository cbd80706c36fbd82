#include <string>

#include <benchmark/benchmark.h>

#include "app/EmbeddedData.h"
#include "toolkit/text/TextCache.h"

namespace {

Toolkit::FontCollection& Fonts() {
  static Toolkit::FontCollection fonts;
  if (fonts.IsEmpty())
    fonts.Register("Inter", Toolkit::FontWeight::Normal, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontRegular());
  return fonts;
}

/// Twelve characters, another text for each number.
std::string TwelveCharacters(uint64_t number) {
  std::string text = "Quest_000000";
  for (size_t at = text.size(); number > 0; number /= 10) text[--at] = static_cast<char>('0' + number % 10);
  return text;
}

void MeasureNewText(benchmark::State& state) {
  Toolkit::TextCache cache(Fonts());
  uint64_t number = 0;
  for (auto _ : state) benchmark::DoNotOptimize(cache.MeasureText(TwelveCharacters(++number % 1000000), {12}));
}
BENCHMARK(MeasureNewText);

void MeasureKnownText(benchmark::State& state) {
  Toolkit::TextCache cache(Fonts());
  const std::string text = TwelveCharacters(1);
  for (auto _ : state) benchmark::DoNotOptimize(cache.MeasureText(text, {12}));
}
BENCHMARK(MeasureKnownText);

void LayOutLongText(benchmark::State& state) {
  Toolkit::TextShaper shaper(Fonts());
  std::string text;
  while (text.size() < static_cast<size_t>(state.range(0))) text += "some words of a long description ";
  for (auto _ : state) {
    const Toolkit::TextLayout layout(text, {12}, {300, Toolkit::TextWrapping::Wrap}, Fonts(), shaper);
    benchmark::DoNotOptimize(layout.Size());
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(LayOutLongText)->Range(1000, 100000)->Complexity(benchmark::oN);

/// What a text repeats until it is long enough, and the width that wraps it; 0 leaves it on one line.
struct LongText {
  const char* sample;
  float wrapWidth;
};

constexpr LongText RightToLeftLine{"\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd ", 0};
constexpr LongText RightToLeftWrapped{"\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd ", 300};
constexpr LongText MixedDirections{"\u05e9\u05dc\u05d5\u05dd 12 abc ", 300};
constexpr LongText UnbrokenLine{"unbroken", 0};
constexpr LongText UnbrokenWrapped{"unbroken", 300};
constexpr LongText Marks{"\u0301\u0302", 300};
constexpr LongText Flags{"\U0001F1E9\U0001F1EA", 300};

/// `state.range(0)` is a number of characters.
void LayOut(benchmark::State& state, const LongText& kind) {
  Toolkit::TextShaper shaper(Fonts());
  Toolkit::DecodedText sample;
  sample.Assign(kind.sample);
  std::string text;
  for (int64_t count = 0; count < state.range(0); count += static_cast<int64_t>(sample.Count())) text += kind.sample;
  Toolkit::TextLayoutOptions options;
  if (kind.wrapWidth > 0) options = {kind.wrapWidth, Toolkit::TextWrapping::Wrap};
  for (auto _ : state) {
    const Toolkit::TextLayout layout(text, {12}, options, Fonts(), shaper);
    benchmark::DoNotOptimize(layout.Size());
    // The first question for a caret makes the boxes of all graphemes.
    benchmark::DoNotOptimize(layout.CaretPosition(text.size()));
  }
  state.SetComplexityN(state.range(0));
}

void ForEachLength(benchmark::internal::Benchmark* test) {
  test->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)->Complexity();
}
BENCHMARK_CAPTURE(LayOut, right_to_left, RightToLeftLine)->Apply(ForEachLength);
BENCHMARK_CAPTURE(LayOut, right_to_left_wrapped, RightToLeftWrapped)->Apply(ForEachLength);
BENCHMARK_CAPTURE(LayOut, mixed_directions, MixedDirections)->Apply(ForEachLength);
BENCHMARK_CAPTURE(LayOut, unbroken, UnbrokenLine)->Apply(ForEachLength);
BENCHMARK_CAPTURE(LayOut, unbroken_wrapped, UnbrokenWrapped)->Apply(ForEachLength);
BENCHMARK_CAPTURE(LayOut, marks, Marks)->Apply(ForEachLength);
BENCHMARK_CAPTURE(LayOut, flags, Flags)->Apply(ForEachLength);

} // namespace
