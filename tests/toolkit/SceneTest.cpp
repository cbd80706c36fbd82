#include "RenderPicture.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/SpatialIndex.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/Transform.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace Toolkit {
namespace {

using RenderTest::Picture;

constexpr Size View{300, 200};

/// Canvases of boxes in boxes.
class SceneTest : public MarkupTest {
protected:
  /// A canvas below a transform on a stage.
  struct Scene : TestSupport::Stage {
    enum class Drawings { Kept, Made };
    explicit Scene(Drawings drawings) : Stage(Frames::Drawn) {
      if (drawings == Drawings::Kept) canvas->KeepDrawings();
      auto transform = MakePtr<TransformGroup>();
      transform->AddChild(scale.Get());
      transform->AddChild(shift.Get());
      canvas->SetValue(UIElement::RenderTransformProperty, Value(transform));
      auto root = MakePtr<Canvas>();
      root->AddChild(canvas.Get());
      Put(*root, View);
    }
    /// Draws also what another scene has laid out along with its own.
    void Draw() {
      LayoutQueue::Current().VisualChanged();
      Settle();
    }
    void Zoom(float zoom) {
      scale->SetScaleX(zoom);
      scale->SetScaleY(zoom);
    }
    /// The last frame, drawn at once.
    Picture Whole() const {
      Picture whole(Shown().width, Shown().height);
      TileRasterizer(1).Draw(Frame(), whole.Buffer(), 1, Background);
      return whole;
    }
    Ptr<Canvas> canvas = MakePtr<Canvas>();
    Ptr<ScaleTransform> scale = MakePtr<ScaleTransform>();
    Ptr<TranslateTransform> shift = MakePtr<TranslateTransform>();
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
  Scene kept(Scene::Drawings::Kept), plain(Scene::Drawings::Made);
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
        scene.Zoom(zoom);
        scene.shift->SetX(-Far * zoom + x / 2);
        scene.shift->SetY(-Far * zoom + y / 2);
      }
      }
      if (draws) scene.Draw();
    });
    if (!draws) continue;
    SCOPED_TRACE("step " + std::to_string(step) + " of kind " + std::to_string(kind));
    TestSupport::ExpectEqual(kept.Shown(), plain.Shown(), "SceneKept");
    TestSupport::ExpectEqual(kept.Shown(), kept.Whole(), "SceneDamage");
    if (HasFailure()) break;
    for (int i = 0; i < 4; ++i) {
      const Point point{number(0, View.width), number(0, View.height)};
      const auto indexOf = [&](const Scene& scene) {
        for (UIElement* e = scene.Root().HitTest(point); e; e = e->VisualParent())
          for (size_t c = 0; c < scene.canvas->ChildCount(); ++c)
            if (scene.canvas->Child(c) == e) return static_cast<int>(c);
        return -1;
      };
      ASSERT_EQ(indexOf(kept), indexOf(plain)) << "step " << step;
    }
  }
}

TEST_F(SceneTest, ForgetsAChildThatNoFrameHasShown) {
  Scene scene(Scene::Drawings::Kept);
  const auto gone = Box(20, 20, 0xff0000);
  Place(*scene.canvas, gone, 0, 0);
  scene.canvas->RemoveChild(gone.Get());
  scene.Draw();
  const auto left = Box(20, 20, 0xff00), right = Box(20, 20, 0xff);
  Place(*scene.canvas, left, 0, 0);
  Place(*scene.canvas, right, 100, 0);
  scene.Draw();
  EXPECT_EQ(scene.Root().HitTest({5, 5}), left.Get());
  EXPECT_EQ(scene.Root().HitTest({105, 5}), right.Get());
}

TEST_F(SceneTest, DamagesOnlyWhatChanged) {
  Scene scene(Scene::Drawings::Kept);
  for (int i = 0; i < 20; ++i) Place(*scene.canvas, BoxInBox(20, 20, 0x804020), i % 10 * 30, i / 10 * 30);
  EXPECT_EQ(scene.DamagedPixels(), 300 * 200) << "the first frame";
  scene.Settle();
  const auto damagedBy = [&](auto&& change) {
    const int before = scene.DamagedPixels();
    change();
    scene.Settle();
    return scene.DamagedPixels() - before;
  };
  auto* box = scene.canvas->Child(3);
  EXPECT_EQ(damagedBy([] {}), 0);
  const int painted = damagedBy([&] { box->SetValue(Border::BackgroundProperty, Value(RenderTest::Solid(0xffffff))); });
  EXPECT_GE(painted, 20 * 20);
  EXPECT_LE(painted, 24 * 24);
  EXPECT_LE(damagedBy([&] { Canvas::SetTop(box, 150); }), 2 * 24 * 24);
}

TEST_F(SceneTest, SpreadsTheCostOfANewZoomOverFrames) {
  Scene scene(Scene::Drawings::Kept);
  for (int i = 0; i < 1000; ++i) {
    auto box = Box(200, 100, 0x804020);
    auto panel = MakePtr<Canvas>();
    for (int k = 0; k < 8; ++k) Place(*panel, Box(20, 10, 0x4080ff), k * 22, 0);
    box->SetChild(panel.Get());
    Place(*scene.canvas, box, i % 40 * 210, i / 40 * 110);
  }
  scene.Zoom(0.03f);
  scene.Settle();
  const int before = scene.FrameCount();
  // More boxes are in view than one frame records anew.
  scene.Zoom(0.07f);
  scene.Settle();
  EXPECT_GT(scene.FrameCount() - before, 1);
  EXPECT_LE(scene.FrameCount() - before, 5);
  const Picture settled = scene.Shown();
  // The same as when the canvas is recorded for that zoom at once.
  for (size_t i = 0; i < scene.canvas->ChildCount(); ++i) scene.canvas->Child(i)->InvalidateVisual();
  scene.Settle();
  TestSupport::ExpectEqual(scene.Shown(), settled, "SceneZoom");
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
