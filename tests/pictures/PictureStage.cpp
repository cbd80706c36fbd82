#include "PictureStage.h"

#include "ToolkitEnvironment.h"
#include "app/ComponentRegistration.h"
#include "editor/NodeEditorCanvas.h"
#include "nodes/ContentNode.h"
#include "toolkit/application/ImageFiles.h"
#include "toolkit/base/Dispatcher.h"
#include "workspace/AssetFileIndex.h"

#include <png.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace TestSupport {

using namespace Toolkit;
using RenderTest::Picture;

namespace {

constexpr Pixel Background = 0xff24242a;
/// What a channel may differ by.
constexpr int Tolerance = 3;

/// Without a size if there is no such file.
Picture ReadPng(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) return {0, 0};
  image.format = PNG_FORMAT_BGRA;
  Picture picture(static_cast<int>(image.width), static_cast<int>(image.height));
  if (!png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr)) return {0, 0};
  return picture;
}

bool AreAlike(Pixel a, Pixel b) {
  for (int shift = 0; shift < 32; shift += 8)
    if (std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)) > Tolerance) return false;
  return true;
}

} // namespace

PictureTest::PictureTest() : directory(TESSELOR_DATA_DIR), recorder(&ImageFiles::Find) {
  ToolkitEnvironment::Start(&Tesselor::RegisterComponents);
  ImageFiles::SetRoot(TESSELOR_DATA_DIR);
  Dispatcher::Current().Clear();
  Dispatcher::Current().SetClock([this] { return now; });
}

PictureTest::~PictureTest() {
  if (view) {
    input->SetFocus(nullptr);
    view->DetachAsRoot();
  }
  view.Reset();
  input.reset();
  Dispatcher::Current().Clear();
  Dispatcher::Current().SetClock({});
}

void PictureTest::Open(const std::string& sample) {
  Tesselor::AssetFileIndex::Instance().assetToLoad = sample.empty() ? "" : "samples/" + sample + ".json";
  view = MakePtr<Tesselor::MainView>();
  input = std::make_unique<InputState>(*view);
  view->SetClientSize({Width, Height});
  Settle();
  Tesselor::AssetFileIndex::Instance().assetToLoad.clear();
  EXPECT_EQ(boxes.Texts(), std::vector<std::string>());
}

void PictureTest::Settle() {
  LayoutQueue& layout = LayoutQueue::Current();
  for (int turn = 0; turn < 50; ++turn) {
    while (Dispatcher::Current().RunDue()) {
    }
    layout.RaiseLoaded();
    layout.Run();
    if (!layout.TakeVisualChange()) return;
    input->UpdateHover();
    layout.Run();
    layout.TakeVisualChange();
    const FrameRecorder::Frame frame = recorder.Record(*view, {Width, Height}, 1);
    if (!frame.damage.empty()) rasterizer.Draw(*frame.list, picture.Buffer(), {}, frame.damage, Background);
  }
  ADD_FAILURE() << "the window never comes to rest";
}

void PictureTest::LookAt(const UIElement& element, float zoom) {
  auto* canvas = view->FindName<Tesselor::NodeEditorCanvas>("NodeEditorCanvas");
  Settle();
  const Point middle = element.TransformToAncestor(canvas->GetPanel())
                           .Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f});
  canvas->ResetViewTo(middle);
  Settle();
  const Point centre =
      canvas->TransformToAncestor(nullptr).Map({canvas->ActualWidth() * 0.5f, canvas->ActualHeight() * 0.5f});
  while (canvas->GetZoom() > zoom * 1.001f) {
    const float before = canvas->GetZoom();
    input->MouseWheel(centre, -1);
    if (canvas->GetZoom() == before) break;
  }
  input->MouseLeave();
  Settle();
}

void PictureTest::Hover(const UIElement& element) {
  Settle();
  HoverAt(element.TransformToAncestor(nullptr).Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f}));
}

void PictureTest::HoverAt(Point point) {
  input->MouseMove(point);
  Settle();
}

void PictureTest::Click(const UIElement& element, MouseButton button, uint32_t count) {
  Hover(element);
  for (uint32_t i = 1; i <= count; ++i) {
    input->MouseDown(button, input->MousePosition(), i);
    input->MouseUp(button, input->MousePosition());
  }
  Settle();
}

void PictureTest::Press(Key key) {
  input->KeyDown(key);
  input->KeyUp(key);
  Settle();
}

void PictureTest::Type(const std::string& text) {
  input->TextInput(text);
  Settle();
}

void PictureTest::ShowBoxes() { view->PresentMessageBoxes(); }

void PictureTest::Wait(double milliseconds) {
  now += milliseconds;
  Settle();
}

Tesselor::ContentNode& PictureTest::Node(const std::string& title) {
  for (const auto& node : view->ContentNodes())
    if (node->Title() == title) return *node;
  throw std::runtime_error("there is no node " + title);
}

void PictureTest::Expect(const std::string& name) {
  Settle();
  Compare(name, picture);
}

void PictureTest::Expect(const std::string& name, const UIElement& element, float margin) {
  Settle();
  const Rect box = element.TransformToAncestor(nullptr).MapBounds(element.DrawnBounds());
  Expect(name, Rect{box.x - margin, box.y - margin, box.width + 2 * margin, box.height + 2 * margin});
}

void PictureTest::Expect(const std::string& name, const Rect& wanted) {
  Settle();
  const int left = std::max(0, static_cast<int>(std::floor(wanted.x)));
  const int top = std::max(0, static_cast<int>(std::floor(wanted.y)));
  const int right = std::min(Width, static_cast<int>(std::ceil(wanted.Right())));
  const int bottom = std::min(Height, static_cast<int>(std::ceil(wanted.Bottom())));
  ASSERT_TRUE(left < right && top < bottom) << name << " is not in the window";
  Picture part(right - left, bottom - top);
  for (int y = top; y < bottom; ++y)
    for (int x = left; x < right; ++x)
      part.pixels[static_cast<size_t>((y - top) * part.width + x - left)] = picture.At(x, y);
  Compare(name, part);
}

void PictureTest::Compare(const std::string& name, const Picture& actual) {
  const std::string path = std::string(TESSELOR_SOURCE_DIR) + "/tests/pictures/expected/" + name + ".png";
  if (std::getenv("TESSELOR_WRITE_PICTURES")) {
    actual.WritePng(path);
    return;
  }
  Picture expected = ReadPng(path);
  if (expected.width != actual.width || expected.height != actual.height) {
    const std::string output = std::string(TESSELOR_TEST_OUTPUT_DIR) + "/" + name + ".actual.png";
    actual.WritePng(output);
    ADD_FAILURE() << name << " is " << actual.width << " x " << actual.height << ", expected " << expected.width
                  << " x " << expected.height << "; see " << output;
    return;
  }
  for (size_t i = 0; i < actual.pixels.size(); ++i)
    if (AreAlike(actual.pixels[i], expected.pixels[i])) expected.pixels[i] = actual.pixels[i];
  RenderTest::ExpectEqual(actual, expected, name);
}

} // namespace TestSupport
