#include "toolkit/RenderPicture.h"

#include "Expected.h"
#include "TemporaryDirectory.h"
#include "ToolkitWarnings.h"
#include "toolkit/render/ImageStore.h"
#include "toolkit/text/TextCache.h"

#include <gtest/gtest.h>

namespace RenderTest {
namespace {

using namespace Toolkit;

PathOutline Outline(std::initializer_list<Point> points) {
  PathOutline path;
  for (const Point& point : points) point == *points.begin() ? path.MoveTo(point) : path.LineTo(point);
  return path;
}

/// Each pixel tells its place.
std::shared_ptr<const Bitmap> Gradual() {
  std::vector<Pixel> pixels;
  for (Pixel y = 0; y < 16; ++y)
    for (Pixel x = 0; x < 16; ++x) pixels.push_back(0xff000000u | x * 8 << 16 | y * 8 << 8);
  return std::make_shared<Bitmap>(16, 16, std::move(pixels));
}

void DrawRectangles(Painter& p) {
  float x = 2;
  for (const Rect& rect : {Rect{0, 2, 4, 4},
                           {0.5f, 2, 4, 4},
                           {0.5f, 2.5f, 4, 4},
                           {0.25f, 2, 0.5f, 4},
                           {0.25f, 2.25f, 0.5f, 0.5f},
                           {0.75f, 2, 0.5f, 4}}) {
    p.DrawRectangle({x + rect.x, rect.y, rect.width, rect.height}, Solid(0xff0000).Get());
    x += 8;
  }
  const auto red = Solid(0xff0000), blue = Solid(0x0000ff), white = Solid(0xffffff, 128);
  p.DrawRectangle({2, 10, 20, 20}, {8, 0, 0, 0}, red.Get(), nullptr, {});
  p.DrawRectangle({26, 10, 16, 16}, {3, 3, 3, 3}, red.Get(), blue.Get(), {1, 2, 3, 4});
  p.DrawRectangle({46, 10, 16, 16}, {3, 3, 3, 3}, nullptr, white.Get(), Thickness::Uniform(2));
  p.DrawShadow({40, 50, 50, 50}, 4, 12, Color{1, 0, 0, 1});
}

void DrawStrokes(Painter& p) {
  const auto red = Solid(0xff0000), white = Solid(0xffffff, 128);
  p.DrawLine({5, 5.5f}, {25, 5.5f}, red.Get(), 5);
  p.DrawLine({30, 5.5f}, {50, 5.5f}, red.Get(), 0.25f);
  PathOutline zigzag = Outline({{5, 40}, {25, 18}, {25.5f, 40}});
  zigzag.CurveTo({60, 70}, {10, -30}, {55, 40});
  p.DrawPath(zigzag, nullptr, white.Get(), 9);
}

void DrawFills(Painter& p) {
  // The inner figure is a hole, in the second tile as well.
  PathOutline shape = Outline({{2, 2}, {300, 2}, {300, 100}, {2, 100}});
  shape.Close();
  shape.MoveTo({50.5f, 20});
  for (const Point& point : {Point{270, 20}, {270, 80.25f}, {50.5f, 80.25f}}) shape.LineTo(point);
  shape.Close();
  p.DrawPath(shape, Solid(0xff0000).Get(), nullptr, 0);
  p.DrawPath(Outline({{60, 25}, {80, 25}, {60, 45}}), Solid(0x00ff00).Get(), nullptr, 0);
}

void DrawClips(Painter& p) {
  const auto red = Solid(0xff0000);
  p.PushClip({10, 10, 15.5f, 20});
  p.DrawRectangle({0, 0, 40, 40}, red.Get());
  p.PushClip({0, 0, 20, 15});
  p.DrawRectangle({0, 0, 40, 40}, {1, 1, 1, 1}, Solid(0x00ff00).Get(), nullptr, {});
  p.Pop();
  p.Pop();
  p.DrawRectangle({39, 39, 1, 1}, Solid(0x0000ff).Get());
  p.PushClip({40, 0, 40, 40}, {20, 20, 20, 20});
  p.DrawRectangle({40, 0, 40, 40}, red.Get());
  p.Pop();
}

void DrawGroups(Painter& p) {
  // Larger than a tile, and opaque inside of the group.
  p.DrawRectangle({0, 0, 300, 130}, Solid(0x0000ff).Get());
  p.PushOpacity(0.5f);
  p.DrawRectangle({5, 5, 290, 120}, Solid(0xff0000).Get());
  p.DrawRectangle({20, 20, 10, 10}, Solid(0x00ff00).Get());
  p.Pop();
}

void DrawImages(Painter& p) {
  std::vector<Pixel> checks;
  for (int i = 0; i < 64 * 64; ++i) checks.push_back((i + i / 64) % 2 ? 0xffffffffu : 0xff000000u);
  p.DrawImage(Gradual(), {4, 5, 16, 16});
  p.DrawImage(std::make_shared<Bitmap>(64, 64, std::move(checks)), {24, 5, 16, 16});
  p.DrawTiledImage(Gradual(), {0, 24, 300, 40}, {5, 27, 16, 16});
  LinearGradientBrush::StaticType();
  auto brush = MakePtr<LinearGradientBrush>();
  brush->AddStop(MakePtr<GradientStop>(Color::FromBytes(255, 0, 0), 0.25f).Get());
  brush->AddStop(MakePtr<GradientStop>(Color::FromBytes(0, 0, 255), 0.75f).Get());
  brush->SetEndPoint({1, 0});
  p.DrawRectangle({50, 5, 200, 14}, brush.Get());
}

void DrawTexts(Painter& p) {
  Everything();
  const auto red = Solid(0xff0000);
  const auto letter = TextCache::Instance().Layout("l", {24}),
             words = TextCache::Instance().Layout("Simple text", {12}),
             lines = TextCache::Instance().Layout("one\ntwo\nthree\nfour", {20});
  // Glyphs stand at quarters of a pixel; places in between fall to the nearest one.
  for (int i = 0; i <= 8; ++i) p.DrawText(letter, {5 + 10.25f * static_cast<float>(i), 0}, red.Get());
  p.DrawText(letter, {100.1f, 0}, red.Get());
  // What cannot be read is shown as bars on its lines, and then not at all.
  float x = 5;
  for (const float scale : {0.8f, 0.31f, 0.28f, 0.15f, 0.1f, 0.05f}) {
    p.PushTransform(Matrix{scale, 0, 0, scale, x, 35});
    p.DrawText(words, {0, 0}, red.Get());
    p.DrawText(lines, {0, 20}, red.Get());
    p.Pop();
    x += 70 * scale;
  }
}

TEST(RenderPictures, ShowEachKindOfDrawing) {
  const struct {
    const char* name;
    int width, height;
    void (*draw)(Painter&);
  } cases[] = {{"DrawnRectangles", 110, 120, DrawRectangles},
               {"DrawnStrokes", 61, 55, DrawStrokes},
               {"DrawnFills", 310, 110, DrawFills},
               {"DrawnClips", 82, 42, DrawClips},
               {"DrawnGroups", 300, 130, DrawGroups},
               {"DrawnImages", 300, 64, DrawImages},
               {"DrawnTexts", 150, 130, DrawTexts}};
  for (const auto& c : cases) TestSupport::ExpectPicture(c.name, Draw(c.width, c.height, c.draw));
}

TEST(RenderShapes, RoundCornersAlikeOnAllSides) {
  for (const float radius : {1.0f, 3.0f, 7.5f, 50.0f}) {
    for (const float border : {0.0f, 1.5f}) {
      const Picture picture = Draw(30, 30, [&](Painter& p) {
        p.DrawRectangle({3.25f, 3.25f, 23.5f, 23.5f}, {radius, radius, radius, radius}, Solid(0xff8020, 200).Get(),
                        Solid(0x40a0ff).Get(), Thickness::Uniform(border));
      });
      for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x)
          for (const Pixel other : {picture.At(29 - x, y), picture.At(x, 29 - y), picture.At(y, x)})
            ASSERT_EQ(picture.At(x, y), other) << radius << " " << x << " " << y;
    }
  }
}

/// A box whose fill and border have the same colour must look like one without a border, at any place on the grid.
TEST(RenderShapes, LetNothingThroughBetweenFillAndBorder) {
  for (const float at : {3.0f, 3.3f, 3.5f, 3.8f}) {
    const auto draw = [&](float border) {
      return Draw(40, 40, [&](Painter& p) {
        p.DrawRectangle({at, at, 30, 30}, {6, 6, 6, 6}, Solid(0xffffff).Get(), Solid(0xffffff).Get(),
                        Thickness::Uniform(border));
      });
    };
    const Picture without = draw(0), with = draw(1.7f);
    for (int y = 0; y < 40; ++y)
      for (int x = 0; x < 40; ++x) ASSERT_NEAR(with.Red(x, y), without.Red(x, y), 1) << at << ": " << x << " " << y;
  }
}

TEST(RenderShapes, DashAlongTheWholePath) {
  const float dashes[] = {2, 1};
  const auto red = Solid(0xff0000);
  PathOutline bent = Outline({{1, 2}, {12, 2}});
  bent.CurveTo({15, 2}, {30, 2}, {37, 2});
  const Picture pictures[] = {Draw(40, 5,
                                   [&](Painter& p) {
                                     p.DrawLine({1, 2}, {37, 2}, red.Get(), 2, dashes);
                                   }),
                              Draw(40, 5, [&](Painter& p) { p.DrawPath(bent, nullptr, red.Get(), 2, dashes); }),
                              // What is left out because it lies outside does not shift the pattern.
                              Draw(40, 5, [&](Painter& p) {
                                p.DrawLine({-5999, 2}, {99999, 2}, red.Get(), 2, dashes);
                              })};
  // Four pixels drawn and two left out, from the first on.
  for (const Picture& picture : pictures)
    for (int x = 1; x < 37; ++x) EXPECT_NEAR(picture.Red(x, 2), (x - 1) % 6 < 4 ? 255 : 0, 1) << x;
}

TEST(RenderImages, PlaceABrushsImageByItsStretch) {
  ImageBrush::StaticType();
  const auto white = std::make_shared<Bitmap>(10, 20, std::vector<Pixel>(200, 0xffffffff));
  const ImageFinder images = [&](std::string_view path) { return path == "known.png" ? white : nullptr; };
  const auto widthOf = [&](Stretch stretch, const char* path) {
    auto brush = MakePtr<ImageBrush>();
    brush->SetValue(ImageBrush::ImageSourceProperty, SharedString(path));
    brush->SetValue(ImageBrush::StretchProperty, stretch);
    Painter painter(&images);
    painter.DrawRectangle({0, 0, 40, 40}, brush.Get());
    Picture picture(40, 40);
    TileRasterizer(1).Draw(*painter.Finish(), picture.Buffer(), 1, 0xff000000);
    int columns = 0;
    for (int x = 0; x < 40; ++x) columns += picture.Red(x, 20) == 255;
    return columns;
  };
  EXPECT_EQ(widthOf(Stretch::Fill, "known.png"), 40);
  EXPECT_EQ(widthOf(Stretch::Uniform, "known.png"), 20);
  EXPECT_EQ(widthOf(Stretch::None, "known.png"), 10);
  EXPECT_EQ(widthOf(Stretch::UniformToFill, "known.png"), 40);
  EXPECT_EQ(widthOf(Stretch::Fill, "missing.png"), 0);
}

TEST(ImageStore, ReadsPicturesOnceAndReportsBadOnesOnce) {
  const TestSupport::TemporaryDirectory directory;
  const std::string good = directory / "good.png", bad = directory.Write("bad.png", "\x89PNG\r\n\x1a\nnothing");
  Picture picture(3, 2, 0);
  picture.pixels[1] = 0x80ffffff;
  picture.WritePng(good);
  TestSupport::ToolkitWarnings warnings;
  ImageStore store;
  const auto bitmap = store.Load(good);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(bitmap->Width(), 3);
  EXPECT_EQ(bitmap->Levels()[0].pixels[0], 0u);
  EXPECT_EQ(bitmap->Levels()[0].pixels[1], 0x80808080u) << "half of white, premultiplied";
  EXPECT_EQ(store.Load(good), bitmap);
  EXPECT_EQ(warnings.Take(), std::vector<std::string>());
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(store.Load(bad));
    EXPECT_FALSE(store.Load(good + ".missing"));
  }
  EXPECT_EQ(warnings.Take().size(), 2u);
}

} // namespace
} // namespace RenderTest
