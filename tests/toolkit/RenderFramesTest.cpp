#include "toolkit/RenderPicture.h"

#include "toolkit/text/TextCache.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <random>

namespace RenderTest {
namespace {

using namespace Toolkit;
using TestSupport::ExpectEqual;

Picture DrawEverything(int threads, float scale, const RowOperations& operations = RowOperations::Fastest()) {
  Picture picture(EverythingWidth, EverythingHeight);
  TileRasterizer rasterizer(threads, FontCollection::Instance(), operations);
  rasterizer.Draw(*Everything(), picture.Buffer(), scale, 0xff101010);
  return picture;
}

TEST(RenderFrames, AreTheSameForAnyNumberOfThreadsAndBothForms) {
  for (const float scale : {1.0f, 0.37f, 2.6f}) {
    const Picture one = DrawEverything(1, scale);
    const std::string name = "RenderFrames-" + std::to_string(scale);
    ExpectEqual(DrawEverything(2, scale), one, name + "-2-threads");
    ExpectEqual(DrawEverything(4, scale), one, name + "-4-threads");
    ExpectEqual(DrawEverything(1, scale, RowOperations::Plain()), one, name + "-plain");
  }
}

TEST(RenderFrames, RedrawDamageAsAFullRedrawWould) {
  std::mt19937 random(3);
  TileRasterizer rasterizer(2);
  for (const float scale : {1.0f, 0.61f}) {
    const Picture whole = DrawEverything(1, scale);
    for (int round = 0; round < 12; ++round) {
      std::vector<PixelRect> damage;
      for (int i = 0; i < 1 + round % 3; ++i) {
        const int x = static_cast<int>(random() % EverythingWidth) - 20,
                  y = static_cast<int>(random() % EverythingHeight) - 20;
        damage.push_back({x, y, x + 1 + static_cast<int>(random() % 300), y + 1 + static_cast<int>(random() % 90)});
      }
      const Pixel untouched = 0x12345678;
      Picture part(EverythingWidth, EverythingHeight, untouched), expected = part;
      rasterizer.Draw(*Everything(), part.Buffer(), Matrix::Scale(scale, scale), damage, 0xff101010);
      for (const PixelRect& each : damage) {
        const PixelRect rect = each.Intersect(expected.Buffer().Bounds());
        for (int y = rect.top; y < rect.bottom; ++y)
          for (int x = rect.left; x < rect.right; ++x)
            expected.pixels[static_cast<size_t>(y * whole.width + x)] = whole.At(x, y);
      }
      ExpectEqual(part, expected, "RenderFrames-damage-" + std::to_string(round));
    }
  }
}

TEST(RenderFrames, LeaveThePixelsBehindARowAlone) {
  std::vector<Pixel> pixels(70 * 10, 0x12345678);
  TileRasterizer(1).Draw(*Everything(), {pixels.data(), 61, 10, 70}, 1, 0xff101010);
  for (size_t y = 0; y < 10; ++y)
    for (size_t x = 61; x < 70; ++x) ASSERT_EQ(pixels[y * 70 + x], 0x12345678u);
}

/// What the painter knows of a run of pixels that hold a stroke's colour already must never show.
TEST(RenderFrames, DrawFansOfStrokesAsEachStrokeBehindSomethingElse) {
  const auto fan = [](bool isInterrupted) {
    return [isInterrupted](Painter& p) {
      const auto white = Solid(0xffffff), blue = Solid(0x3366cc), red = Solid(0xff0000), faint = Solid(0xff8800, 128);
      std::mt19937 random(5);
      const auto interrupt = [&] { p.DrawLine({2.5f, 0}, {2.5f, 150}, red.Get(), 1); };
      const auto curve = [&](const Toolkit::Ptr<SolidColorBrush>& brush, bool isFree = false) {
        const auto end = static_cast<float>(random() % 4000) / 10 - 150;
        PathOutline path;
        path.MoveTo({10, 30});
        path.CurveTo({100, 30}, {120, end}, {static_cast<float>(random() % 100) + 130, end});
        p.DrawPath(path, nullptr, brush.Get(), 2.3f);
        if (isInterrupted && !isFree) interrupt();
      };
      for (const bool isClipped : {false, true}) {
        const auto &main = isClipped ? white : blue, &other = isClipped ? blue : white;
        if (isClipped) p.PushClip({0, 10, 200, 110}, {0, 40, 40, 0});
        for (int i = 0; i < 120; ++i) curve(main);
        for (int i = 0; i < 9; ++i) curve(i % 3 == 0 ? main : i % 3 == 1 ? other : faint);
        for (int i = 0; i < 60; ++i) curve(main);
        p.DrawRectangle({60, 25, 40, 20}, faint.Get());
        for (int i = 0; i < 20; ++i) curve(main);
        p.PushOpacity(0.7f);
        for (int i = 0; i < 40; ++i) curve(main);
        p.Pop();
        for (int i = 0; i < 40; ++i) curve(main);
        if (isClipped) p.Pop();
        for (int i = 0; i < 40; ++i) curve(main);
      }
      interrupt();
      for (int i = 0; i < 20; ++i) curve(blue, true);
    };
  };
  // Several tiles of one column, and one that ends inside a group of four pixels.
  for (const int width : {250, 203})
    ExpectEqual(Draw(width, 150, fan(false)), Draw(width, 150, fan(true)), "RenderFrames-fan");
}

TEST(RenderText, KeepsTheAtlasWithinItsLimit) {
  Everything();
  constexpr size_t limit = 120000;
  GlyphAtlas atlas(FontCollection::Instance(), limit);
  const FaceChoice face{};
  std::vector<uint8_t> first;
  for (int i = 0; i < 60; ++i) {
    atlas.BeginFrame();
    EXPECT_LE(atlas.ByteSize(), limit);
    GlyphAtlas::Page& page = atlas.Open(face, 8 + static_cast<float>(i % 20));
    for (uint32_t glyph = 1; glyph < 30; ++glyph)
      for (int quarter = 0; quarter < 4; ++quarter) atlas.Mask(page, glyph, quarter);
    const GlyphMask& mask = atlas.Mask(page, 5, 1);
    if (i % 20 != 0) continue;
    const std::vector<uint8_t> bytes(mask.coverage, mask.coverage + mask.width * mask.height);
    if (i == 0) first = bytes;
    EXPECT_EQ(bytes, first) << "a glyph that comes back is the same";
  }
  EXPECT_GT(atlas.PageCount(), 1u);
}

TEST(RenderLists, KnowTheirBoundsThroughTransforms) {
  const auto inner = Record([](Painter& p) { p.DrawRectangle({1, 2, 10, 20}, Solid(1).Get()); });
  const auto outer = Record([&](Painter& p) {
    p.PushTransform(Matrix::Translation(5, 5));
    p.PushTransform(Matrix::Scale(2, 3));
    p.DrawList(inner, {100, 0});
    p.Pop();
    p.Pop();
  });
  EXPECT_EQ(outer->Bounds(), (Rect{207, 11, 20, 60}));
}

/// Numbers from broken documents and far panning: nothing may crash, hang or take long.
TEST(RenderRobustness, TakesAnyNumbers) {
  Everything();
  const float values[] = {0, -1, 1e-30f, 7.5f, 1e4f, 3e9f, -1e30f, 3e38f, INFINITY, -INFINITY, NAN};
  constexpr size_t count = std::size(values);
  std::mt19937 random(11);
  const auto any = [&] { return values[random() % count]; };
  const auto layout = TextCache::Instance().Layout("text", {12});
  TileRasterizer rasterizer(1);
  const auto begin = std::chrono::steady_clock::now();
  for (int round = 0; round < 1500; ++round) {
    const auto list = Record([&](Painter& p) {
      p.PushTransform(round % 2 ? Matrix() : Matrix{any(), any(), any(), any(), any(), any()});
      p.DrawRectangle({any(), any(), any(), any()}, {any(), any(), any(), any()}, Solid(0xff0000).Get(),
                      Solid(0x00ff00).Get(), {any(), any(), any(), any()});
      p.PushClip({any(), any(), any(), any()}, {any(), any(), any(), any()});
      p.DrawShadow({any(), any(), any(), any()}, any(), any(), Color{any(), any(), any(), any()});
      p.Pop();
      PathOutline path;
      path.MoveTo({any(), any()});
      path.CurveTo({any(), any()}, {any(), any()}, {any(), any()});
      path.LineTo({any(), any()});
      if (round % 3 == 0) path.Close();
      const float dashes[] = {any(), any(), any()};
      p.DrawPath(path, Solid(0x0000ff).Get(), Solid(0xffffff).Get(), any(),
                 round % 4 ? std::span<const float>() : std::span<const float>(dashes));
      p.DrawText(layout, {any(), any()}, Solid(0xffffff).Get());
      p.DrawTiledImage(std::make_shared<Bitmap>(1, 1, std::vector<Pixel>{0xffffffff}), {any(), any(), any(), any()},
                       {any(), any(), any(), any()});
      p.PushOpacity(any());
      p.DrawImage(std::make_shared<Bitmap>(1, 1, std::vector<Pixel>{0xffffffff}), {any(), any(), any(), any()});
      p.Pop();
      p.Pop();
    });
    Picture picture(67, 70);
    rasterizer.Draw(*list, picture.Buffer(), round % 5 ? 1 : any(), 0xff000000);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
}

TEST(RenderRobustness, DrawsNothingOfNothing) {
  Picture picture(5, 5, 0xff123456);
  TileRasterizer rasterizer(1);
  rasterizer.Draw(DisplayList(), picture.Buffer(), Matrix(), {}, 0);
  EXPECT_EQ(picture.At(2, 2), 0xff123456u) << "without damage nothing is touched";
  rasterizer.Draw(DisplayList(), picture.Buffer(), 1, 0xff000001);
  EXPECT_EQ(picture.At(2, 2), 0xff000001u);
  rasterizer.Draw(DisplayList(), {nullptr, 0, 0, 0}, 1, 0);
  EXPECT_TRUE(Record([](Painter& p) { p.DrawRectangle({0, 0, 5, 5}, nullptr); })->IsEmpty());
}

} // namespace
} // namespace RenderTest
