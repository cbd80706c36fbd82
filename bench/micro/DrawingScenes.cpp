#include "micro/DrawingScenes.h"

#include "app/EmbeddedData.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/text/TextCache.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace DrawingScenes {

using namespace std::string_literals;
using Toolkit::Color;
using Toolkit::MakePtr;
using Toolkit::Painter;
using Toolkit::Ptr;
using Toolkit::Rect;
using Toolkit::SolidColorBrush;
using Toolkit::Thickness;

namespace {

Ptr<SolidColorBrush> Solid(int rgb, int alpha = 255) {
  return MakePtr<SolidColorBrush>(Color::FromBytes(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255, alpha));
}

struct Look {
  Ptr<SolidColorBrush> body = Solid(0x2b2d33), edge = Solid(0x15161a), white = Solid(0xf0f0f0), grey = Solid(0xa8acb4),
                       box = Solid(0x1d1f24), boxEdge = Solid(0x4a4d55), accent = Solid(0x4aa3ff),
                       green = Solid(0x6cc36c);
  Ptr<Toolkit::LinearGradientBrush> title = MakePtr<Toolkit::LinearGradientBrush>();
  std::shared_ptr<const Toolkit::Bitmap> icon, tile;

  Look() {
    Toolkit::LinearGradientBrush::StaticType();
    title->SetStartPoint({0, 0});
    title->SetEndPoint({0, 1});
    title->AddStop(MakePtr<Toolkit::GradientStop>(Color::FromBytes(0x5a, 0x4a, 0x8a), 0.0f).Get());
    title->AddStop(MakePtr<Toolkit::GradientStop>(Color::FromBytes(0x3c, 0x32, 0x60), 1.0f).Get());
    icon = Picture(36, [](int x, int y) {
      const double distance = std::hypot(x - 17.5, y - 17.5);
      return distance < 16 && distance > 10 ? 0xffe0c060u : 0u;
    });
    tile = Picture(100, [](int x, int y) {
      return x == 0 || y == 0 ? 0xff3a3c42u : x % 20 == 0 || y % 20 == 0 ? 0xff303238u : 0xff2a2b30u;
    });
  }

  template <class F> static std::shared_ptr<const Toolkit::Bitmap> Picture(int size, F pixel) {
    std::vector<Toolkit::Pixel> pixels;
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x) pixels.push_back(pixel(x, y));
    return std::make_shared<Toolkit::Bitmap>(size, size, std::move(pixels));
  }
};

const Look& TheLook() {
  static const Look look;
  return look;
}

constexpr float NodeWidth = 240, NodeHeight = 230;

} // namespace

Toolkit::FontCollection& Fonts() {
  Toolkit::FontCollection& fonts = Toolkit::FontCollection::Instance();
  if (fonts.IsEmpty()) {
    fonts.Register("Inter", Toolkit::FontWeight::Normal, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontRegular());
    fonts.Register("Inter", Toolkit::FontWeight::Bold, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontBold());
  }
  return fonts;
}

std::shared_ptr<const Toolkit::DisplayList> MakeNode(int number) {
  Fonts();
  const Look& look = TheLook();
  Toolkit::TextCache& texts = Toolkit::TextCache::Instance();
  Painter painter;
  painter.DrawRectangle({0, 0, NodeWidth, NodeHeight}, {6, 6, 6, 6}, look.body.Get(), look.edge.Get(),
                        Thickness::Uniform(1.5f));
  painter.DrawRectangle({1.5f, 1.5f, NodeWidth - 3, 26}, {5, 5, 0, 0}, look.title.Get(), nullptr, {});
  painter.DrawImage(look.icon, {7, 6, 18, 18});
  painter.DrawText(texts.Layout("Dialogue line "s + std::to_string(number), {14, Toolkit::FontWeight::Bold}), {32, 6},
                   look.white.Get());
  for (int i = 0; i < 10; ++i) {
    const float y = 34 + static_cast<float>(i) * 19;
    painter.DrawText(texts.Layout("Property "s + std::to_string(i), {12}), {14, y}, look.grey.Get());
    painter.DrawRectangle({96, y - 1, 132, 17}, {3, 3, 3, 3}, look.box.Get(), look.boxEdge.Get(),
                          Thickness::Uniform(1));
    painter.DrawText(texts.Layout("value_"s + std::to_string(number * 10 + i), {12}), {101, y}, look.white.Get());
    if (i % 3 == 0)
      painter.DrawRectangle({-5, y + 2, 10, 10}, {5, 5, 5, 5}, look.green.Get(), look.edge.Get(),
                            Thickness::Uniform(1.5f));
  }
  return painter.Finish();
}

Scene MakeCanvas(int nodes, int curves, float zoom) {
  const Look& look = TheLook();
  const float width = 1920 / zoom, height = 1080 / zoom;
  const int columns = std::max(1, static_cast<int>(std::lround(std::sqrt(nodes * 1.6))));
  const int rows = (nodes + columns - 1) / columns;
  const auto place = [&](int i) {
    return Toolkit::Point{(static_cast<float>(i % columns) + 0.1f) * width / static_cast<float>(columns),
                          (static_cast<float>(i / columns) + 0.05f) * height / static_cast<float>(rows)};
  };
  Painter painter;
  painter.DrawTiledImage(look.tile, {0, 0, width, height}, {0, 0, 100, 100});
  for (int i = 0; i < curves; ++i) {
    // Most connections lead to a neighbour, some across the picture.
    const int start = i % nodes;
    const int end = i % 25 == 0 ? (i * 7 + 3) % nodes : start + 1 + i % 3 + columns * (i % 5 - 2);
    const Toolkit::Point from = place(start), to = place(std::clamp(end, 0, nodes - 1));
    const Toolkit::Point a{from.x + NodeWidth, from.y + 40}, b{to.x, to.y + 60};
    const float reach = std::max(80.0f, std::abs(b.x - a.x) / 2);
    Toolkit::PathOutline curve;
    curve.MoveTo(a);
    curve.CurveTo({a.x + reach, a.y}, {b.x - reach, b.y}, b);
    painter.DrawPath(std::move(curve), nullptr, look.accent.Get(), 3);
  }
  for (int i = 0; i < nodes; ++i) painter.DrawList(MakeNode(i), place(i));
  return {painter.Finish(), zoom};
}

} // namespace DrawingScenes
