#include "RenderPicture.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/SpatialIndex.h"
#include "toolkit/render/DisplayListDamage.h"
#include "toolkit/render/FrameRecorder.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/Transform.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace Toolkit {
namespace {

using RenderTest::Picture;

constexpr Pixel Background = 0xff101010;
constexpr Size View{300, 200};

/// A canvas of boxes in boxes below a transform, once with kept drawings and once without, and the picture that the
/// damaged parts of the frames have made so far.
class SceneTest : public MarkupTest {
protected:
  struct Scene {
    Ptr<Canvas> root, canvas;
    Ptr<ScaleTransform> scale = MakePtr<ScaleTransform>();
    Ptr<TranslateTransform> shift = MakePtr<TranslateTransform>();
    FrameRecorder recorder{ImageFinder()};
    Picture picture{static_cast<int>(View.width), static_cast<int>(View.height), Background};
    explicit Scene(bool keeps) : root(MakePtr<Canvas>()), canvas(MakePtr<Canvas>()) {
      if (keeps) canvas->KeepDrawings();
      auto transform = MakePtr<TransformGroup>();
      transform->AddChild(scale.Get());
      transform->AddChild(shift.Get());
      canvas->SetValue(UIElement::RenderTransformProperty, Value(transform));
      root->AddChild(canvas.Get());
      root->AttachAsRoot();
      root->Measure(View);
      root->Arrange({0, 0, View.width, View.height});
    }
    ~Scene() { root->DetachAsRoot(); }
    void Draw() {
      LayoutQueue::Current().Run();
      const FrameRecorder::Frame frame = recorder.Record(*root, View, 1);
      damaged = 0;
      for (const PixelRect& rect : frame.damage) damaged += rect.Width() * rect.Height();
      if (!frame.damage.empty()) TileRasterizer(1).Draw(*frame.list, picture.Buffer(), {}, frame.damage, Background);
    }
    Picture Whole() const {
      Picture whole(picture.width, picture.height, Background);
      const PixelRect all{0, 0, whole.width, whole.height};
      TileRasterizer(1).Draw(*recorder.Last(), whole.Buffer(), {}, {&all, 1}, Background);
      return whole;
    }
    int damaged = 0;
  };

  static Ptr<Border> Box(float width, float height, int color) {
    auto box = MakePtr<Border>();
    box->SetWidth(width);
    box->SetHeight(height);
    box->SetValue(Border::BackgroundProperty, Value(RenderTest::Solid(color)));
    return box;
  }
  static Ptr<Border> BoxInBox(float width, float height, int color) {
    auto box = Box(width, height, color);
    box->SetChild(Box(width / 2, height / 4, ~color & 0xffffff).Get());
    return box;
  }
  template <class Number> static void Place(Canvas& canvas, const Ptr<Border>& box, Number left, Number top) {
    Canvas::SetLeft(box.Get(), static_cast<float>(left));
    Canvas::SetTop(box.Get(), static_cast<float>(top));
    canvas.AddChild(box.Get());
  }
};

TEST_F(SceneTest, ShowsAndHitsWhatAPlainCanvasDoes) {
  std::mt19937 random(4711);
  // In quarters, which a float adds up without loss in any order.
  const auto number = [&](float low, float high) {
    return std::round(std::uniform_real_distribution<float>(low, high)(random) * 4) / 4;
  };
  const auto pick = [&](size_t count) { return std::uniform_int_distribution<size_t>(0, count - 1)(random); };
  Scene kept(true), plain(false);
  const auto both = [&](auto&& change) {
    change(kept);
    change(plain);
  };
  for (int step = 0; step < 400; ++step) {
    const size_t count = kept.canvas->ChildCount();
    const size_t kind = count < 12 ? 0 : pick(10);
    const size_t index = count ? pick(count) : 0;
    const float x = number(-100, 400), y = number(-100, 300), w = number(1, 90), h = number(1, 60);
    const int color = static_cast<int>(pick(0xffffff));
    constexpr float Far = 5000;
    // Some changes come together.
    const bool draws = pick(3) > 0;
    both([&](Scene& scene) {
      auto* element = count ? static_cast<Border*>(scene.canvas->Child(index)) : nullptr;
      switch (kind) {
      case 0: Place(*scene.canvas, BoxInBox(w, h, color), Far + x, Far + y); break;
      case 1: scene.canvas->RemoveChild(element); break;
      case 2: Canvas::SetLeft(element, Far + x); break;
      case 3: element->SetValue(Border::BackgroundProperty, Value(RenderTest::Solid(color))); break;
      case 4: static_cast<Border*>(element->GetChild())->SetHeight(std::min(h, element->GetHeight())); break;
      case 5: Canvas::SetZIndex(element, static_cast<int>(pick(1)) + color % 5); break;
      case 6: element->SetVisibility(color % 2 ? Visibility::Visible : Visibility::Collapsed); break;
      case 7: {
        auto turn = MakePtr<TranslateTransform>();
        turn->SetX(x / 4);
        element->SetValue(UIElement::RenderTransformProperty, color % 3 ? Value() : Value(turn));
        break;
      }
      case 8: element->SetWidth(w * 2); break;
      default: {
        const float zoom = 1 + static_cast<float>(color % 3);
        scene.scale->SetScaleX(zoom);
        scene.scale->SetScaleY(zoom);
        scene.shift->SetX(-Far * zoom + x / 2);
        scene.shift->SetY(-Far * zoom + y / 2);
      }
      }
      if (draws) scene.Draw();
    });
    if (!draws) continue;
    SCOPED_TRACE("step " + std::to_string(step) + " of kind " + std::to_string(kind));
    TestSupport::ExpectEqual(kept.picture, plain.picture, "SceneKept");
    TestSupport::ExpectEqual(kept.picture, kept.Whole(), "SceneDamage");
    if (HasFailure()) break;
    for (int i = 0; i < 4; ++i) {
      const Point point{number(0, View.width), number(0, View.height)};
      const auto indexOf = [&](const Scene& scene) {
        for (UIElement* e = scene.root->HitTest(point); e; e = e->VisualParent())
          for (size_t c = 0; c < scene.canvas->ChildCount(); ++c)
            if (scene.canvas->Child(c) == e) return static_cast<int>(c);
        return -1;
      };
      ASSERT_EQ(indexOf(kept), indexOf(plain)) << "step " << step;
    }
  }
}

TEST_F(SceneTest, ForgetsAChildThatNoFrameHasShown) {
  Scene scene(true);
  const auto gone = Box(20, 20, 0xff0000);
  Place(*scene.canvas, gone, 0, 0);
  scene.canvas->RemoveChild(gone.Get());
  scene.Draw();
  const auto left = Box(20, 20, 0xff00), right = Box(20, 20, 0xff);
  Place(*scene.canvas, left, 0, 0);
  Place(*scene.canvas, right, 100, 0);
  scene.Draw();
  EXPECT_EQ(scene.root->HitTest({5, 5}), left.Get());
  EXPECT_EQ(scene.root->HitTest({105, 5}), right.Get());
}

TEST_F(SceneTest, DamagesOnlyWhatChanged) {
  Scene scene(true);
  for (int i = 0; i < 20; ++i) Place(*scene.canvas, BoxInBox(20, 20, 0x804020), i % 10 * 30, i / 10 * 30);
  scene.Draw();
  EXPECT_EQ(scene.damaged, 300 * 200);
  scene.Draw();
  EXPECT_EQ(scene.damaged, 0) << "nothing changed";
  scene.canvas->Child(3)->SetValue(Border::BackgroundProperty, Value(RenderTest::Solid(0xffffff)));
  scene.Draw();
  EXPECT_GE(scene.damaged, 20 * 20);
  EXPECT_LE(scene.damaged, 24 * 24);
  Canvas::SetTop(scene.canvas->Child(3), 150);
  scene.Draw();
  EXPECT_LE(scene.damaged, 2 * 24 * 24);
}

TEST_F(SceneTest, SpreadsTheCostOfANewZoomOverFrames) {
  Scene scene(true);
  for (int i = 0; i < 1000; ++i) {
    auto box = Box(200, 100, 0x804020);
    auto panel = MakePtr<Canvas>();
    for (int k = 0; k < 8; ++k) Place(*panel, Box(20, 10, 0x4080ff), k * 22, 0);
    box->SetChild(panel.Get());
    Place(*scene.canvas, box, i % 40 * 210, i / 40 * 110);
  }
  const auto zoom = [&](float value) {
    scene.scale->SetScaleX(value);
    scene.scale->SetScaleY(value);
  };
  zoom(0.03f);
  scene.Draw();
  zoom(0.25f);
  int frames = 0;
  do {
    LayoutQueue::Current().TakeVisualChange();
    scene.Draw();
  } while (LayoutQueue::Current().TakeVisualChange() && ++frames < 20);
  EXPECT_LT(frames, 5);
  Picture settled = scene.picture;
  // The same as when the canvas is recorded for that zoom at once.
  for (size_t i = 0; i < scene.canvas->ChildCount(); ++i) scene.canvas->Child(i)->InvalidateVisual();
  scene.Draw();
  TestSupport::ExpectEqual(scene.picture, settled, "SceneZoom");
}

TEST(SpatialIndexTest, FindsAllThatReachesAnArea) {
  std::mt19937 random(99);
  const auto number = [&](float low, float high) { return std::uniform_real_distribution<float>(low, high)(random); };
  const auto box = [&] {
    const float size = std::exp2(number(-3, 16));
    return Rect{number(-1e6f, 1e6f), number(-1e6f, 1e6f), size, size * number(0, 1)};
  };
  SpatialIndex index;
  std::vector<Rect> boxes(2000);
  for (uint32_t i = 0; i < boxes.size(); ++i) index.Insert(i, boxes[i] = box());
  for (uint32_t i = 0; i < boxes.size(); i += 3) {
    index.Remove(i, boxes[i]);
    if (i % 2)
      index.Insert(i, boxes[i] = box());
    else
      boxes[i] = {};
  }
  for (int search = 0; search < 200; ++search) {
    const Rect area{number(-1e6f, 1e6f), number(-1e6f, 1e6f), std::exp2(number(0, 20)), std::exp2(number(0, 20))};
    std::vector<uint32_t> found;
    index.Find(area, found);
    std::sort(found.begin(), found.end());
    ASSERT_EQ(std::adjacent_find(found.begin(), found.end()), found.end());
    size_t wanted = 0;
    for (uint32_t i = 0; i < boxes.size(); ++i) {
      if (boxes[i] == Rect() || !boxes[i].Intersects(area)) continue;
      ++wanted;
      ASSERT_TRUE(std::binary_search(found.begin(), found.end(), i));
    }
    ASSERT_LE(found.size(), wanted * 4 + 40) << "far more than what reaches the area";
  }
}

} // namespace
} // namespace Toolkit
