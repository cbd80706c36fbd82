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

} // namespace
