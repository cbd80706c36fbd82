#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/visual/LayoutQueue.h"

#include <functional>

namespace Toolkit {
namespace {

/// A panel that counts what it is told of its layout.
class NotingPanel : public StackPanel {
public:
  NotingPanel() { notesLayout = true; }
  int notices = 0;
  LayoutChange last = LayoutChange::PlaceOnly;
  std::function<void()> onNotice;

protected:
  void OnLayoutChanged(LayoutChange change) override {
    ++notices;
    last = change;
    EXPECT_TRUE(IsMeasureValid() && IsArrangeValid());
    if (onNotice) onNotice();
  }
};

/// Two noting panels on a canvas; in each a noting one that holds a block and one that holds nothing.
class LayoutNoticeTest : public MarkupTest {
protected:
  LayoutNoticeTest() {
    canvas->AttachAsRoot();
    for (int i = 0; i < 2; ++i) {
      outer[i] = MakePtr<NotingPanel>();
      inner[i] = MakePtr<NotingPanel>();
      block[i] = MakePtr<TextBlock>();
      block[i]->SetText("abc");
      inner[i]->AddChild(block[i].Get());
      outer[i]->AddChild(inner[i].Get());
      canvas->AddChild(outer[i].Get());
    }
  }
  ~LayoutNoticeTest() override { canvas->DetachAsRoot(); }
  /// How often outer 0, inner 0, outer 1 and inner 1 were told in one run; with a p if at last of their place alone.
  std::string Run() {
    LayoutQueue::Current().Run();
    EXPECT_TRUE(LayoutQueue::Current().IsEmpty());
    std::string told;
    for (int i = 0; i < 2; ++i) {
      for (NotingPanel* panel : {outer[i].Get(), inner[i].Get()}) {
        told += std::to_string(panel->notices);
        if (panel->notices > 0 && panel->last == LayoutChange::PlaceOnly) told += "p";
        panel->notices = 0;
      }
    }
    return told;
  }
  Ptr<Canvas> canvas = MakePtr<Canvas>();
  Ptr<NotingPanel> outer[2], inner[2];
  Ptr<TextBlock> block[2];
};

TEST_F(LayoutNoticeTest, TellsTheNotingElementsThatMovedOrHoldWhatMoved) {
  // One without a size holds what has one.
  outer[1]->SetWidth(0);
  outer[1]->SetHeight(0);
  EXPECT_EQ(Run(), "1111") << "the first layout";
  EXPECT_EQ(Run(), "0000");
  block[0]->InvalidateMeasure();
  outer[1]->InvalidateArrange();
  EXPECT_EQ(Run(), "0000") << "laid out as before";
  block[0]->SetText("a longer text");
  EXPECT_EQ(Run(), "1100");
  block[1]->SetMargin({1, 0, -1, 0});
  EXPECT_EQ(Run(), "0011") << "moved, within panels that stay as they are";
  auto added = MakePtr<Border>();
  inner[1]->AddChild(added.Get());
  EXPECT_EQ(Run(), "0011") << "a new child without a size";
}

TEST_F(LayoutNoticeTest, TellsOfAPlaceThatWasSetWithoutARun) {
  Run();
  Canvas::SetLeft(outer[1].Get(), 40);
  ASSERT_EQ(outer[1]->Offset(), (Point{40, 0}));
  Canvas::SetTop(outer[1].Get(), 5);
  EXPECT_FALSE(LayoutQueue::Current().IsEmpty());
  EXPECT_EQ(Run(), "001p0") << "what it holds stays where it is on it";
  Canvas::SetTop(outer[1].Get(), 5);
  EXPECT_EQ(Run(), "0000");
  Canvas::SetPlace(*outer[1], {50, 6});
  ASSERT_EQ(outer[1]->Offset(), (Point{50, 6}));
  EXPECT_EQ(Run(), "001p0");
  Canvas::SetPlace(*outer[1], {60, 6});
  block[1]->SetText("a longer text");
  EXPECT_EQ(Run(), "0011") << "its place, and what it holds";
}

TEST_F(LayoutNoticeTest, LaysOutWhatANoticeChangesInTheSameRun) {
  Run();
  // What stands beside follows, at once and through the layout.
  outer[0]->onNotice = [this] {
    Canvas::SetLeft(outer[1].Get(), outer[0]->ActualWidth() + 10);
    block[1]->SetText(block[0]->GetText());
  };
  block[0]->SetText("a longer text");
  EXPECT_EQ(Run(), "1111");
  EXPECT_EQ(outer[1]->Offset().x, outer[0]->ActualWidth() + 10);
  EXPECT_EQ(block[1]->ActualWidth(), block[0]->ActualWidth());
  // One that moves itself is told again, and settles.
  outer[0]->onNotice = [this] { Canvas::SetTop(outer[0].Get(), outer[0]->ActualHeight()); };
  block[0]->SetText("abc");
  EXPECT_EQ(Run(), "2p100");
}

TEST_F(LayoutNoticeTest, TellsNoneThatHasLeftTheTree) {
  Run();
  Canvas::SetLeft(outer[0].Get(), 40);
  Canvas::SetLeft(outer[1].Get(), 40);
  canvas->RemoveChild(outer[0].Get());
  outer[1]->onNotice = [this] { outer[1]->ClearChildren(); };
  block[1]->SetText("a longer text");
  EXPECT_EQ(Run(), "0020") << "the second: of its text, and of the size that it has without it";
}

TEST_F(LayoutNoticeTest, CutsOffWhatNeverSettles) {
  Run();
  outer[0]->onNotice = [this] { Canvas::SetLeft(outer[0].Get(), outer[0]->Offset().x + 1); };
  Canvas::SetLeft(outer[0].Get(), 1);
  LayoutQueue::Current().Run();
  EXPECT_LE(outer[0]->notices, 200);
  const std::vector<std::string> reports = warnings.Take();
  ASSERT_EQ(reports.size(), 1u);
  EXPECT_NE(reports[0].find("does not settle"), std::string::npos);
  outer[0]->onNotice = {};
  Run();
}

TEST_F(LayoutNoticeTest, FindsAPlaceThatWasChangedOffTheCanvas) {
  Run();
  const Ptr<NotingPanel> panel = outer[0];
  canvas->RemoveChild(panel.Get());
  Canvas::SetLeft(panel.Get(), 70);
  canvas->AddChild(panel.Get());
  EXPECT_EQ(Run(), "1p000");
  EXPECT_EQ(panel->Offset(), (Point{70, 0}));
}

TEST_F(LayoutNoticeTest, LeavesNothingDueForWhatHasLeftTheTree) {
  outer[0]->AddHandler(FrameworkElement::LoadedEvent, RoutedEventHandler::From([](Object*, const RoutedEventArgs&) {}));
  const std::function<void()> changes[] = {
      [this] { Canvas::SetLeft(outer[0].Get(), outer[0]->Offset().x + 1); },
      [this] { block[0]->SetText(block[0]->GetText() == "abc" ? "abcd" : "abc"); },
      [this] { block[0]->InvalidateArrange(); },
      [] {},
  };
  for (const auto& change : changes) {
    LayoutQueue::Current().RaiseLoaded();
    EXPECT_TRUE(LayoutQueue::Current().IsEmpty());
    change();
    canvas->RemoveChild(outer[0].Get());
    EXPECT_TRUE(LayoutQueue::Current().IsEmpty());
    canvas->AddChild(outer[0].Get());
    EXPECT_FALSE(LayoutQueue::Current().IsEmpty());
    canvas->RemoveChild(outer[0].Get());
    EXPECT_TRUE(LayoutQueue::Current().IsEmpty());
    canvas->AddChild(outer[0].Get());
  }
}

/// Many blocks for whom layout is due, of which some leave, from both ends and from the middle.
TEST_F(LayoutNoticeTest, KeepsLayoutDueForThoseThatStay) {
  auto panel = MakePtr<Canvas>();
  canvas->AddChild(panel.Get());
  std::vector<Ptr<TextBlock>> blocks;
  for (int i = 0; i < 300; ++i) {
    blocks.push_back(MakePtr<TextBlock>());
    panel->AddChild(blocks.back().Get());
  }
  Run();
  for (const Ptr<TextBlock>& b : blocks) b->SetText("abc");
  std::vector<Ptr<UIElement>> leaving;
  const auto leaves = [](int i) { return i < 40 || i % 3 == 0 || i > 280; };
  for (int i = 0; i < 300; ++i)
    if (leaves(i)) leaving.push_back(blocks[static_cast<size_t>(i)]);
  panel->RemoveChildren(leaving);
  // Some come back, and are due again.
  for (size_t i = 0; i < leaving.size(); i += 5) panel->AddChild(leaving[i].Get());
  size_t back = 0;
  for (const Ptr<UIElement>& element : leaving) back += element->IsAttached();
  EXPECT_EQ(back, (leaving.size() + 4) / 5);
  Run();
  for (int i = 0; i < 300; ++i) {
    const TextBlock& each = *blocks[static_cast<size_t>(i)];
    EXPECT_EQ(each.ActualWidth() > 0, each.IsAttached()) << i;
    EXPECT_EQ(each.IsMeasureValid(), each.IsAttached()) << i;
  }
  for (const Ptr<UIElement>& element : leaving)
    if (!element->IsAttached()) panel->AddChild(element.Get());
  for (size_t i = 100; i < 280; ++i) blocks[i]->SetText("abcd");
  panel->RemoveChild(blocks[120].Get());
  for (size_t i = 40; i < 90; ++i) blocks[i]->SetText("abcd");
  for (const Ptr<TextBlock>& b : blocks) panel->RemoveChild(b.Get());
  EXPECT_TRUE(LayoutQueue::Current().IsEmpty());
}

} // namespace
} // namespace Toolkit
