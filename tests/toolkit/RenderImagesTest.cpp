#include "toolkit/RenderPicture.h"

#include "TemporaryDirectory.h"
#include "ToolkitWarnings.h"
#include "toolkit/render/ImageStore.h"

#include <gtest/gtest.h>

namespace RenderTest {
namespace {

using namespace Toolkit;

std::shared_ptr<const Bitmap> Gradual(int width, int height) {
  std::vector<Pixel> pixels;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      pixels.push_back(0xff000000u | static_cast<Pixel>(x * 8 % 256) << 16 | static_cast<Pixel>(y * 8 % 256) << 8);
  return std::make_shared<Bitmap>(width, height, std::move(pixels));
}

TEST(RenderImages, CopyPixelsAtFullSize) {
  const Picture picture = Draw(40, 40, [](Painter& p) { p.DrawImage(Gradual(16, 16), {4, 5, 16, 16}); });
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 16; ++x)
      ASSERT_EQ(picture.At(4 + x, 5 + y),
                0xff000000u | static_cast<Pixel>(x * 8) << 16 | static_cast<Pixel>(y * 8) << 8);
  EXPECT_EQ(picture.At(3, 10), 0xff000000u);
  EXPECT_EQ(picture.At(20, 10), 0xff000000u);
}

TEST(RenderImages, ReduceWithoutLosingBrightness) {
  std::vector<Pixel> checks;
  for (int i = 0; i < 64 * 64; ++i) checks.push_back((i + i / 64) % 2 ? 0xffffffffu : 0xff000000u);
  const auto bitmap = std::make_shared<Bitmap>(64, 64, std::move(checks));
  const Picture picture = Draw(20, 20, [&](Painter& p) { p.DrawImage(bitmap, {2, 2, 16, 16}); });
  for (int i = 2; i < 18; ++i) EXPECT_NEAR(picture.Red(i, 9), 128, 2);
}

TEST(RenderImages, RepeatTilesFromTheirOrigin) {
  const Picture picture = Draw(300, 40, [](Painter& p) {
    p.DrawTiledImage(Gradual(16, 16), {0, 0, 300, 40}, {5, 3, 16, 16});
  });
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 300; ++x)
      ASSERT_EQ(picture.At(x, y),
                0xff000000u | static_cast<Pixel>((x + 11) % 16 * 8) << 16 | static_cast<Pixel>((y + 13) % 16 * 8) << 8)
          << x << " " << y;
}

TEST(RenderImages, BeginAndEndGradientsWithTheirColours) {
  LinearGradientBrush::StaticType();
  auto brush = MakePtr<LinearGradientBrush>();
  brush->AddStop(MakePtr<GradientStop>(Color::FromBytes(255, 0, 0), 0.25f).Get());
  brush->AddStop(MakePtr<GradientStop>(Color::FromBytes(0, 0, 255), 0.75f).Get());
  brush->SetEndPoint({1, 0});
  const Picture picture = Draw(220, 4, [&](Painter& p) { p.DrawRectangle({10, 0, 200, 4}, brush.Get()); });
  EXPECT_EQ(picture.At(10, 2), 0xffff0000u);
  EXPECT_EQ(picture.At(50, 2), 0xffff0000u);
  EXPECT_NEAR(picture.Red(110, 2), 127, 3);
  EXPECT_NEAR(picture.Blue(110, 2), 127, 3);
  EXPECT_EQ(picture.At(170, 2), 0xff0000ffu);
  EXPECT_EQ(picture.At(209, 2), 0xff0000ffu);
}

TEST(RenderImages, PlaceABrushsImageByItsStretch) {
  ImageBrush::StaticType();
  const auto white = std::make_shared<Bitmap>(10, 20, std::vector<Pixel>(200, 0xffffffff));
  const ImageFinder images = [&](std::string_view path) { return path == "known.png" ? white : nullptr; };
  const auto draw = [&](Stretch stretch, const char* path) {
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
  EXPECT_EQ(draw(Stretch::Fill, "known.png"), 40);
  EXPECT_EQ(draw(Stretch::Uniform, "known.png"), 20);
  EXPECT_EQ(draw(Stretch::None, "known.png"), 10);
  EXPECT_EQ(draw(Stretch::UniformToFill, "known.png"), 40);
  EXPECT_EQ(draw(Stretch::Fill, "missing.png"), 0);
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
