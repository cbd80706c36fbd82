#include "editor/NoticeBar.h"
#include "WindowStage.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBlock.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;

class Notices : public testing::Test {
protected:
  Notices() : window("quest"), bar(window.View().Notices()) {}

  Toolkit::Button& Button(const char* caption) {
    window.Settle();
    return *TestSupport::Find<Toolkit::Button>(
        bar, [&](const Toolkit::Button& button) { return button.GetContent().AsStringView() == caption; });
  }
  using Texts = std::vector<std::string>;

  WindowStage window;
  NoticeBar& bar;
};

TEST_F(Notices, StandNewestFirstAndAtMostThreeAtOnce) {
  const float canvasTop = WindowStage::BoxOf(window.Canvas()).y;
  EXPECT_EQ(bar.ActualHeight(), 0);
  for (const char* id : {"a", "b", "c", "d"}) bar.Show({id, std::string("text of ") + id, {}});
  EXPECT_EQ(window.NoticesShown(), (Texts{"text of d", "text of c", "text of b"}));
  EXPECT_EQ(WindowStage::BoxOf(window.Canvas()).y, canvasTop + bar.ActualHeight()) << "the bar covers nothing";
  bar.Show({"b", "again", {}});
  EXPECT_EQ(window.NoticesShown(), (Texts{"again", "text of d", "text of c"}));
  bar.Dismiss("d");
  bar.Dismiss("d");
  EXPECT_EQ(window.NoticesShown(), (Texts{"again", "text of c"}));
  window.Click(Button("Dismiss"));
  EXPECT_EQ(window.NoticesShown(), Texts{"text of c"});
  window.Click(Button("Dismiss"));
  EXPECT_EQ(WindowStage::BoxOf(window.Canvas()).y, canvasTop);
}

/// Lines and buttons move under the mouse, and one of them may delete.
TEST_F(Notices, TakeADoubleClickForOne) {
  int count = 0;
  const auto show = [&](const char* id) {
    bar.Show({id, id, {{"Delete", [this, &count, id] {
                          ++count;
                          bar.Dismiss(id);
                        }}}});
  };
  show("a");
  show("b");
  const Toolkit::Rect first = WindowStage::BoxOf(Button("Delete"));
  const Toolkit::Point at{first.x + first.width / 2, first.y + first.height / 2};
  window.DoubleClick(at);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(window.NoticesShown(), Texts{"a"});
  window.Click(at);
  EXPECT_EQ(count, 2);
}

TEST_F(Notices, RunTheirActionsByMouseAndKeysAndLeaveTheRestOfTheKeysToTheGraph) {
  std::string ran;
  bar.Show({"a", "text", {{"Once", [&] { ran += "once "; }}, {"Last", [&] {
                                                                bar.Dismiss("a");
                                                                ran += "last ";
                                                              }}}});
  window.Settle();
  EXPECT_EQ(window.Input().Focused(), nullptr) << "a notice takes no focus";
  window.Click(Button("Once"));
  EXPECT_EQ(window.NoticesShown(), Texts{"text"});
  window.Focus(&Button("Once"));
  window.Press(Key::Tab);
  EXPECT_TRUE(Button("Last").IsFocused());
  window.Press(Key::Return);
  EXPECT_EQ(ran, "once last ");
  EXPECT_EQ(window.NoticesShown(), Texts{});
  const size_t nodes = window.View().ContentNodes().size();
  window.View().GetGraph().Selected().Add(window.Node("The nest"));
  window.Press(Key::Delete);
  EXPECT_EQ(window.View().ContentNodes().size(), nodes - 1);
}

} // namespace
} // namespace Tesselor
