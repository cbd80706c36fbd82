#include "Stage.h"

#include "toolkit/application/ImageFiles.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/text/TextLayout.h"
#include "toolkit/visual/LayoutQueue.h"

#include <gtest/gtest.h>

namespace TestSupport {

using Toolkit::Dispatcher;
using Toolkit::Key;
using Toolkit::LayoutQueue;
using Toolkit::MouseButton;
using Toolkit::Point;

Point Spot::Resolve() const { return element ? Stage::MiddleOf(*element) : point; }

Stage::Stage(Frames frames) {
  Dispatcher::Current().Clear();
  Dispatcher::Current().SetClock([this] { return now; });
  Toolkit::ImageFiles::SetRoot(TESSELOR_DATA_DIR);
  if (frames == Frames::Drawn) rasterizer = std::make_unique<Toolkit::TileRasterizer>(1);
}

Stage::~Stage() {
  TakeDown();
  Dispatcher::Current().SetClock({});
}

void Stage::Put(Toolkit::UIElement& newRoot, Toolkit::Size newSize) {
  TakeDown();
  root = Toolkit::Ptr<Toolkit::UIElement>(&newRoot);
  input.emplace(*root);
  recorder.emplace([draws = rasterizer != nullptr](std::string_view path) {
    return draws ? Toolkit::ImageFiles::Find(path) : nullptr;
  });
  root->AttachAsRoot();
  Resize(newSize);
}

void Stage::TakeDown() {
  frame.reset();
  recorder.reset();
  input.reset();
  if (root) root->DetachAsRoot();
  root.Reset();
  Dispatcher::Current().Clear();
}

void Stage::Resize(Toolkit::Size newSize) {
  size = newSize;
  if (rasterizer) picture.emplace(static_cast<int>(size.width), static_cast<int>(size.height), Background);
  root->Measure(size);
  root->Arrange({0, 0, size.width, size.height});
  LayoutQueue::Current().VisualChanged();
  Settle();
}

bool Stage::Turn() {
  LayoutQueue& layout = LayoutQueue::Current();
  Dispatcher& dispatcher = Dispatcher::Current();
  const bool ran = dispatcher.RunDue();
  if (!root) return ran;
  layout.RaiseLoaded();
  if (!layout.TakeVisualChange()) return ran;
  input->UpdateHover();
  layout.Run();
  layout.TakeVisualChange();
  const Toolkit::FrameRecorder::Frame recorded = recorder->Record(*root, size, 1);
  frame = recorded.list;
  if (rasterizer && !recorded.damage.empty())
    rasterizer->Draw(*frame, picture->Buffer(), {}, recorded.damage, Background);
  return true;
}

bool Stage::ComesToRest() {
  for (int turn = 0; turn < 50; ++turn)
    if (!Turn()) return true;
  ADD_FAILURE() << "the stage never comes to rest";
  return false;
}

void Stage::Settle() { ComesToRest(); }

void Stage::Wait(double milliseconds) {
  const double end = now + milliseconds;
  for (;;) {
    if (!ComesToRest()) return;
    const double next = Dispatcher::Current().TimeToNext();
    if (next < 0 || now + next > end) break;
    now += next;
  }
  now = end;
  Settle();
}

Point Stage::MiddleOf(const Toolkit::UIElement& element) {
  return element.TransformToAncestor(nullptr).Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f});
}

Toolkit::Rect Stage::BoxOf(const Toolkit::UIElement& element) {
  return element.TransformToAncestor(nullptr).MapBounds({0, 0, element.ActualWidth(), element.ActualHeight()});
}

void Stage::MoveTo(Spot at) {
  Settle();
  input->MouseMove(at.Resolve());
  Settle();
}

bool Stage::Press(Spot at, MouseButton button, uint32_t count) {
  MoveTo(at);
  const bool taken = input->MouseDown(button, input->MousePosition(), count);
  Settle();
  return taken;
}

bool Stage::Release(Spot at, MouseButton button) {
  Settle();
  const bool taken = input->MouseUp(button, at.Resolve());
  Settle();
  return taken;
}

void Stage::Click(Spot at, const MouseUse& use) {
  for (const Key key : use.held) KeyDown(key);
  MoveTo(at);
  const Point point = input->MousePosition();
  for (uint32_t i = 1; i <= use.count; ++i) {
    Press(point, use.button, i);
    Release(point, use.button);
  }
  for (size_t i = use.held.size(); i-- > 0;) KeyUp(use.held[i]);
}

void Stage::Drag(Spot from, Spot to, const MouseUse& use) {
  constexpr int Steps = 4;
  for (const Key key : use.held) KeyDown(key);
  Press(from, use.button, use.count);
  const Point start = input->MousePosition(), end = to.Resolve();
  for (int i = 1; i <= Steps; ++i) {
    const float part = static_cast<float>(i) / Steps;
    MoveTo({start.x + (end.x - start.x) * part, start.y + (end.y - start.y) * part});
  }
  Release(end, use.button);
  for (size_t i = use.held.size(); i-- > 0;) KeyUp(use.held[i]);
}

bool Stage::Wheel(Spot at, float notches) {
  Settle();
  const bool taken = input->MouseWheel(at.Resolve(), notches);
  Settle();
  return taken;
}

void Stage::Leave() {
  input->MouseLeave();
  Settle();
}

bool Stage::KeyDown(Key key) {
  const bool taken = input->KeyDown(key);
  Settle();
  return taken;
}

bool Stage::KeyUp(Key key) {
  const bool taken = input->KeyUp(key);
  Settle();
  return taken;
}

bool Stage::Press(Key key) { return Chord({key}); }

bool Stage::Chord(const std::vector<Key>& keys) {
  bool taken = false;
  for (const Key key : keys) taken = KeyDown(key);
  for (size_t i = keys.size(); i-- > 0;) KeyUp(keys[i]);
  return taken;
}

bool Stage::Type(std::string_view text) {
  const bool taken = input->TextInput(text);
  Settle();
  return taken;
}

void Stage::TypeInto(Toolkit::TextBox& box, std::string_view text) {
  Click(box);
  ASSERT_TRUE(box.IsFocused()) << "the click did not reach the box";
  Chord({Key::LeftCtrl, Key::A});
  if (text.empty())
    Press(Key::Delete);
  else
    Type(text);
}

void Stage::Focus(Toolkit::UIElement* element) {
  input->SetFocus(element);
  Settle();
}

std::vector<std::string> Stage::TextsShown() const {
  std::vector<std::string> texts;
  for (const Toolkit::DisplayEntry& entry : frame->Entries())
    if (entry.kind == Toolkit::DisplayEntry::Kind::Text) texts.push_back(frame->TextAt(entry.payload).layout->Text());
  return texts;
}

bool Stage::Shows(std::string_view text) const {
  for (const std::string& shown : TextsShown())
    if (shown == text) return true;
  return false;
}

} // namespace TestSupport
