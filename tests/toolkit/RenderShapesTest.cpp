#include "toolkit/RenderPicture.h"

#include <gtest/gtest.h>

namespace RenderTest {
namespace {

using namespace Toolkit;

TEST(RenderShapes, WeighThePixelsOfARectanglesEdges) {
  struct Case {
    Rect rect;
    int x, y, red;
  };
  const Case cases[] = {
      {{2, 2, 4, 4}, 2, 2, 255},       {{2, 2, 4, 4}, 1, 2, 0},          {{2, 2, 4, 4}, 6, 5, 0},
      {{2, 2, 4, 4}, 5, 5, 255},       {{2.5f, 2, 4, 4}, 2, 3, 128},     {{2.5f, 2, 4, 4}, 6, 3, 128},
      {{2.5f, 2.5f, 4, 4}, 2, 2, 64},  {{2.25f, 2, 0.5f, 4}, 2, 3, 128}, {{2.25f, 2.25f, 0.5f, 0.5f}, 2, 2, 64},
      {{2.75f, 2, 0.5f, 4}, 3, 3, 64},
  };
  for (const Case& each : cases) {
    const Picture picture = Draw(9, 9, [&](Painter& p) { p.DrawRectangle(each.rect, Solid(0xff0000).Get()); });
    EXPECT_EQ(picture.Red(each.x, each.y), each.red)
        << each.rect.x << " " << each.rect.y << " at " << each.x << " " << each.y;
  }
}

TEST(RenderShapes, RoundCornersAlikeOnAllSides) {
  for (const float radius : {1.0f, 3.0f, 7.5f, 50.0f}) {
    for (const float border : {0.0f, 1.5f}) {
      const Picture picture = Draw(30, 30, [&](Painter& p) {
        p.DrawRectangle({3.25f, 3.25f, 23.5f, 23.5f}, {radius, radius, radius, radius}, Solid(0xff8020, 200).Get(),
                        Solid(0x40a0ff).Get(), Thickness::Uniform(border));
      });
      for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 30; ++x) {
          ASSERT_EQ(picture.At(x, y), picture.At(29 - x, y)) << radius << " " << x << " " << y;
          ASSERT_EQ(picture.At(x, y), picture.At(x, 29 - y)) << radius << " " << x << " " << y;
          ASSERT_EQ(picture.At(x, y), picture.At(y, x)) << radius << " " << x << " " << y;
        }
    }
  }
}

TEST(RenderShapes, RoundOnlyTheCornersThatHaveARadius) {
  const Picture picture = Draw(20, 20, [](Painter& p) {
    p.DrawRectangle({0, 0, 20, 20}, {8, 0, 0, 0}, Solid(0xff0000).Get(), nullptr, {});
  });
  EXPECT_EQ(picture.Red(0, 0), 0);
  EXPECT_EQ(picture.Red(19, 0), 255);
  EXPECT_EQ(picture.Red(0, 19), 255);
  EXPECT_EQ(picture.Red(19, 19), 255);
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

TEST(RenderShapes, KeepFillAndBorderApart) {
  const Picture picture = Draw(20, 20, [](Painter& p) {
    p.DrawRectangle({2, 2, 16, 16}, {3, 3, 3, 3}, Solid(0xff0000).Get(), Solid(0x0000ff).Get(), {1, 2, 3, 4});
  });
  EXPECT_EQ(picture.At(2, 10), 0xff0000ffu);
  EXPECT_EQ(picture.At(3, 10), 0xffff0000u);
  EXPECT_EQ(picture.At(10, 3), 0xff0000ffu);
  EXPECT_EQ(picture.At(10, 4), 0xffff0000u);
  EXPECT_EQ(picture.At(14, 10), 0xffff0000u);
  EXPECT_EQ(picture.At(15, 10), 0xff0000ffu);
  EXPECT_EQ(picture.At(10, 13), 0xffff0000u);
  EXPECT_EQ(picture.At(10, 14), 0xff0000ffu);
  const Picture hollow = Draw(20, 20, [](Painter& p) {
    p.DrawRectangle({2, 2, 16, 16}, {3, 3, 3, 3}, nullptr, Solid(0xffffff, 128).Get(), Thickness::Uniform(2));
  });
  EXPECT_EQ(hollow.Red(10, 10), 0);
  EXPECT_EQ(hollow.Red(10, 2), 128);
}

TEST(RenderShapes, BlendAStrokesJointsOnce) {
  PathOutline zigzag;
  zigzag.MoveTo({5, 30});
  zigzag.LineTo({25, 8});
  zigzag.LineTo({25.5f, 30});
  zigzag.CurveTo({60, 60}, {10, -40}, {55, 30});
  const Picture picture = Draw(61, 45, [&](Painter& p) { p.DrawPath(zigzag, nullptr, Solid(0xffffff, 128).Get(), 9); });
  int most = 0;
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x) most = std::max(most, picture.Red(x, y));
  EXPECT_EQ(most, 128);
}

TEST(RenderShapes, CutTheEndsOfAStrokeFlat) {
  const Picture line = Draw(30, 11, [](Painter& p) { p.DrawLine({5, 5.5f}, {25, 5.5f}, Solid(0xff0000).Get(), 5); });
  EXPECT_EQ(line.Red(4, 5), 0);
  EXPECT_EQ(line.Red(5, 3), 255);
  EXPECT_EQ(line.Red(5, 7), 255);
  EXPECT_EQ(line.Red(24, 5), 255);
  EXPECT_EQ(line.Red(25, 5), 0);
  EXPECT_EQ(line.Red(15, 2), 0);
  EXPECT_EQ(line.Red(15, 8), 0);
}

TEST(RenderShapes, DashAlongTheWholePath) {
  const float dashes[] = {2, 1};
  const Picture line = Draw(40, 5, [&](Painter& p) { p.DrawLine({1, 2}, {37, 2}, Solid(0xff0000).Get(), 2, dashes); });
  // Four pixels drawn and two left out, from the first on.
  for (int x = 1; x < 37; ++x) EXPECT_EQ(line.Red(x, 2), (x - 1) % 6 < 4 ? 255 : 0) << x;
  PathOutline bent;
  bent.MoveTo({1, 2});
  bent.LineTo({12, 2});
  bent.CurveTo({15, 2}, {30, 2}, {37, 2});
  const Picture pieces = Draw(40, 5, [&](Painter& p) { p.DrawPath(bent, nullptr, Solid(0xff0000).Get(), 2, dashes); });
  for (int x = 1; x < 37; ++x) EXPECT_NEAR(pieces.Red(x, 2), line.Red(x, 2), 1) << x;
  // What is left out because it lies outside does not shift the pattern.
  const Picture far = Draw(40, 5, [&](Painter& p) {
    p.DrawLine({-5999, 2}, {99999, 2}, Solid(0xff0000).Get(), 2, dashes);
  });
  for (int x = 1; x < 37; ++x) EXPECT_EQ(far.Red(x, 2), line.Red(x, 2)) << x;
}

TEST(RenderShapes, DrawHairLinesFaintly) {
  const Picture line = Draw(20, 5, [](Painter& p) { p.DrawLine({0, 2.5f}, {20, 2.5f}, Solid(0xff0000).Get(), 0.25f); });
  EXPECT_NEAR(line.Red(10, 2), 64, 1);
}

TEST(RenderShapes, FillPathsByTheAreaOfEachPixel) {
  PathOutline shape;
  shape.MoveTo({2, 2});
  shape.LineTo({300, 2});
  shape.LineTo({300, 100});
  shape.LineTo({2, 100});
  shape.Close();
  shape.MoveTo({50.5f, 20});
  shape.LineTo({270, 20});
  shape.LineTo({270, 80.25f});
  shape.LineTo({50.5f, 80.25f});
  shape.Close();
  const Picture picture = Draw(310, 110, [&](Painter& p) { p.DrawPath(shape, Solid(0xff0000).Get(), nullptr, 0); });
  EXPECT_EQ(picture.Red(10, 10), 255);
  EXPECT_EQ(picture.Red(1, 10), 0);
  EXPECT_EQ(picture.Red(50, 50), 128);
  EXPECT_EQ(picture.Red(150, 80), 191);
  EXPECT_EQ(picture.Red(260, 50), 0) << "the inner figure is a hole, in the second tile as well";
  EXPECT_EQ(picture.Red(299, 99), 255);
  EXPECT_EQ(picture.Red(300, 50), 0);

  PathOutline triangle;
  triangle.MoveTo({0, 0});
  triangle.LineTo({20, 0});
  triangle.LineTo({0, 20});
  const Picture half = Draw(20, 20, [&](Painter& p) { p.DrawPath(triangle, Solid(0xff0000).Get(), nullptr, 0); });
  for (int i = 0; i < 20; ++i) EXPECT_NEAR(half.Red(i, 19 - i), 128, 1);
  EXPECT_EQ(half.Red(10, 8), 255);
  EXPECT_EQ(half.Red(10, 11), 0);
}

TEST(RenderShapes, ClipExactly) {
  const Picture picture = Draw(40, 40, [](Painter& p) {
    p.PushClip({10, 10, 15.5f, 20});
    p.DrawRectangle({0, 0, 40, 40}, Solid(0xff0000).Get());
    p.PushClip({0, 0, 20, 15});
    p.DrawRectangle({0, 0, 40, 40}, {1, 1, 1, 1}, Solid(0x00ff00).Get(), nullptr, {});
    p.Pop();
    p.Pop();
    p.DrawRectangle({39, 39, 1, 1}, Solid(0x0000ff).Get());
  });
  EXPECT_EQ(picture.At(9, 20), 0xff000000u);
  EXPECT_EQ(picture.At(10, 20), 0xffff0000u);
  EXPECT_EQ(picture.At(24, 29), 0xffff0000u);
  EXPECT_EQ(picture.Red(25, 20), 128);
  EXPECT_EQ(picture.At(26, 20), 0xff000000u);
  EXPECT_EQ(picture.At(20, 30), 0xff000000u);
  EXPECT_EQ(picture.At(19, 14), 0xff00ff00u);
  EXPECT_EQ(picture.At(20, 14), 0xffff0000u);
  EXPECT_EQ(picture.At(39, 39), 0xff0000ffu);
  const Picture round = Draw(40, 40, [](Painter& p) {
    p.PushClip({0, 0, 40, 40}, {20, 20, 20, 20});
    p.DrawRectangle({0, 0, 40, 40}, Solid(0xff0000).Get());
    p.Pop();
  });
  EXPECT_EQ(round.Red(1, 1), 0);
  EXPECT_EQ(round.Red(20, 20), 255);
  EXPECT_GT(round.Red(6, 5), 0);
  EXPECT_LT(round.Red(6, 5), 255);
}

TEST(RenderShapes, ShowAGroupThroughAsAWhole) {
  const Picture picture = Draw(20, 20, [](Painter& p) {
    p.DrawRectangle({0, 0, 20, 20}, Solid(0x0000ff).Get());
    p.PushOpacity(0.5f);
    p.DrawRectangle({2, 2, 16, 16}, Solid(0xff0000).Get());
    p.DrawRectangle({8, 8, 10, 10}, Solid(0x00ff00).Get());
    p.Pop();
  });
  EXPECT_EQ(picture.At(1, 1), 0xff0000ffu);
  EXPECT_EQ(picture.At(4, 4), 0xff80007fu);
  EXPECT_EQ(picture.At(10, 10), 0xff00807fu);
  // Larger than a tile, and opaque inside of the group.
  const Picture large = Draw(300, 130, [](Painter& p) {
    p.DrawRectangle({0, 0, 300, 130}, Solid(0x0000ff).Get());
    p.PushOpacity(0.5f);
    p.DrawRectangle({0, 0, 300, 130}, Solid(0xff0000).Get());
    p.Pop();
  });
  EXPECT_EQ(large.At(100, 30), 0xff80007fu);
  EXPECT_EQ(large.At(290, 120), 0xff80007fu);
}

TEST(RenderShapes, FadeAShadowOutwards) {
  const Picture picture = Draw(100, 100, [](Painter& p) { p.DrawShadow({25, 25, 50, 50}, 4, 12, Color{1, 0, 0, 1}); });
  EXPECT_EQ(picture.Red(12, 50), 0);
  EXPECT_NEAR(picture.Red(25, 50), 128, 20);
  EXPECT_EQ(picture.Red(50, 50), 255);
  for (int x = 13; x < 50; ++x) {
    EXPECT_GE(picture.Red(x, 50), picture.Red(x - 1, 50));
    EXPECT_LE(picture.Red(x, x), picture.Red(x, 50)) << "corners are fainter than sides";
  }
}

} // namespace
} // namespace RenderTest
