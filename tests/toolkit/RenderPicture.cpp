#include "toolkit/RenderPicture.h"

#include "app/EmbeddedData.h"
#include "toolkit/text/TextCache.h"

namespace RenderTest {

using namespace Toolkit;

std::shared_ptr<const DisplayList> Record(const Drawing& drawing) {
  Painter painter;
  drawing(painter);
  return painter.Finish();
}

Picture Draw(int width, int height, const Drawing& drawing, float scale) {
  Picture picture(width, height);
  TileRasterizer rasterizer(1);
  rasterizer.Draw(*Record(drawing), picture.Buffer(), scale, 0xff000000);
  return picture;
}

Ptr<SolidColorBrush> Solid(int rgb, int alpha) {
  return MakePtr<SolidColorBrush>(Color::FromBytes(rgb >> 16 & 255, rgb >> 8 & 255, rgb & 255, alpha));
}

std::shared_ptr<const DisplayList> Everything() {
  FontCollection& fonts = FontCollection::Instance();
  if (fonts.IsEmpty()) {
    fonts.Register("Inter", FontWeight::Normal, FontStyle::Normal, Tesselor::EmbeddedFontRegular());
    fonts.Register("Inter", FontWeight::Bold, FontStyle::Normal, Tesselor::EmbeddedFontBold());
  }
  LinearGradientBrush::StaticType();
  std::vector<Pixel> checks;
  for (int i = 0; i < 49; ++i) checks.push_back(i % 2 == 0 ? 0xff203040 : 0x80102030);
  const auto bitmap = std::make_shared<Bitmap>(7, 7, std::move(checks));
  auto gradient = MakePtr<LinearGradientBrush>();
  gradient->AddStop(MakePtr<GradientStop>(Color::FromBytes(200, 40, 90), 0.0f).Get());
  gradient->AddStop(MakePtr<GradientStop>(Color::FromBytes(20, 240, 90, 100), 1.0f).Get());
  const auto node = Record([&](Painter& p) {
    p.DrawShadow({2, 4, 150, 90}, 6, 9, Color{0, 0, 0, 0.7f});
    p.DrawRectangle({0, 0, 150, 90}, {8, 8, 3, 0}, gradient.Get(), Solid(0xffffff, 120).Get(), {2, 1, 3, 1.5f});
    p.DrawText(TextCache::Instance().Layout("Quiet Weather 42", {13, FontWeight::Bold}), {10, 7},
               Solid(0xffffff).Get());
    p.PushClip({12.3f, 30.6f, 100, 40}, {9, 9, 9, 9});
    p.DrawImage(bitmap, {5, 20, 60.5f, 60});
    p.PushOpacity(0.4f);
    p.DrawEllipse({40, 30, 50, 30}, Solid(0xffcc00).Get(), Solid(0x00ccff).Get(), 4);
    p.DrawRectangle({60, 40, 50, 30}, Solid(0xff00cc).Get());
    p.Pop();
    p.Pop();
  });
  return Record([&](Painter& p) {
    p.DrawTiledImage(bitmap, {0, 0, EverythingWidth, EverythingHeight}, {0, 0, 23.7f, 23.7f});
    const float dashes[] = {3, 2};
    for (int i = 0; i < 4; ++i) {
      const float x = 15.37f + 149.3f * static_cast<float>(i), y = 21.8f + 20.1f * static_cast<float>(i);
      PathOutline curve;
      curve.MoveTo({x - 30, y + 110});
      curve.CurveTo({x + 200, y - 60}, {x + 20, y + 180}, {x + 400, y - 20});
      p.DrawPath(curve, nullptr, Solid(0x4aa3ff, 160).Get(), 1 + static_cast<float>(i),
                 i % 2 ? std::span<const float>(dashes) : std::span<const float>());
      p.DrawList(node, {x, y});
      p.PushTransform(Matrix{0.8f, 0.3f, -0.3f, 0.8f, x + 60, y + 70});
      p.DrawRectangle({0, 0, 70, 30}, {5, 5, 5, 5}, Solid(0x60c040, 200).Get(), Solid(0xffffff).Get(), {2, 2, 2, 2});
      p.DrawText(TextCache::Instance().Layout("turned", {14}), {8, 5}, Solid(0).Get());
      p.Pop();
    }
  });
}

} // namespace RenderTest
