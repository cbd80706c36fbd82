// What the cursor tells of what a press would do, and of what is being done.
#include "GestureTest.h"
#include "toolkit/controls/TextBlock.h"

namespace Tesselor {
namespace {

using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::MouseButton;
using Toolkit::Point;
using Toolkit::Rect;

class Cursors : public TestSupport::GestureTest {
protected:
  std::string Over(Point at, std::initializer_list<Key> held = {}) {
    window.MoveTo(at);
    for (const Key key : held) window.KeyDown(key);
    const std::string cursor = Cursor();
    for (const Key key : held) window.KeyUp(key);
    return cursor;
  }
};

TEST_F(Cursors, TellWhatAPressWouldDo) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  BaseField& field = *node.contentFields.begin()->second;
  const struct {
    const char* what;
    Point at;
    const char* plain;
    const char* shift;
  } cases[] = {
      {"the canvas", window.EmptySpot(), "", "Cross"},
      {"the body of a node", BodyOf(node), "SizeAll", "SizeAll"},
      {"a title", WindowStage::MiddleOf(TitleOf(node)), "SizeAll", "SizeAll"},
      {"a label", WindowStage::MiddleOf(TestSupport::First<Toolkit::TextBlock>(field)), "SizeAll", "SizeAll"},
      {"a text box", WindowStage::MiddleOf(TestSupport::First<Toolkit::TextBox>(field)), "IBeam", "IBeam"},
      {"a button", WindowStage::MiddleOf(TestSupport::Named(node, "CommentToggleButton")), "Arrow", "Arrow"},
      {"a pin", InputOf(node), "Cross", "Cross"},
      {"a connection", CurveTo(node), "Hand", "Hand"},
      {"the inside of a group", InsideOf(*graph.GroupNodes()[1]), "SizeAll", "SizeAll"},
      {"the menu bar", {1200, 20}, "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(Over(c.at), c.plain);
    EXPECT_EQ(Over(c.at, {Key::LeftShift}), c.shift);
    EXPECT_EQ(Over(c.at, {Key::RightShift}), c.shift);
    EXPECT_EQ(Over(c.at, {Key::Space}), c.at.y < 50 ? "" : "Hand");
  }
  // Where Space is typed it moves nothing.
  window.Click(TestSupport::First<Toolkit::TextBox>(field));
  EXPECT_EQ(Over(BodyOf(node), {Key::Space}), "SizeAll");
  // The menu stands on the canvas, but is not it.
  const Point spot = window.EmptySpot();
  window.RightClick(spot);
  EXPECT_EQ(Over(spot + Point{-20, -20}, {Key::LeftShift}), "");
}

TEST_F(Cursors, TellTheEdgesOfFrames) {
  for (FrameNode* frame : std::initializer_list<FrameNode*>{&Group(), &Comment()}) {
    const Point header = HeaderOf(*frame, Toolkit::DynamicCast<GroupNode>(frame) ? 0.2f : 1);
    const Rect box = WindowStage::BoxOf(BorderOf(*frame));
    const float left = box.x + 3, top = box.y + 3, right = box.Right() - 3, bottom = box.Bottom() - 3;
    const float x = box.x + box.width / 2, y = box.y + box.height / 2;
    const std::pair<Point, const char*> cases[] = {
        {{left, y}, "SizeWE"},      {{right, y}, "SizeWE"},       {{x, top}, "SizeNS"},
        {{x, bottom}, "SizeNS"},    {{left, top}, "SizeNWSE"},    {{right, bottom}, "SizeNWSE"},
        {{right, top}, "SizeNESW"}, {{left, bottom}, "SizeNESW"}, {header, "SizeAll"},
    };
    for (const auto& [at, cursor] : cases) EXPECT_EQ(Over(at), cursor) << frame->Title() << " " << at.x << "," << at.y;
  }
  EXPECT_EQ(Over(WindowStage::MiddleOf(TestSupport::Named(Comment(), "CommentTextBox"))), "IBeam");
}

TEST_F(Cursors, TellWhatIsBeingDone) {
  ContentNode& node = NodeInSight("The nest", 0.5f);
  const Point pin = InputOf(node);
  const Point otherInput = InputOf(window.Node("Spawn"));
  const Point empty = window.EmptySpot(), body = BodyOf(node);
  const Rect frame = WindowStage::BoxOf(BorderOf(*graph.GroupNodes()[1]));
  const struct {
    const char* what;
    Point from, to;
    MouseButton button;
    Key held;
    const char* pressed;
    const char* moved;
  } cases[] = {
      {"a drag of a node", body, empty, MouseButton::Left, Key::None, "SizeAll", "SizeAll"},
      {"a connection", pin, empty, MouseButton::Left, Key::None, "Cross", "Cross"},
      {"a connection over a pin that refuses it", pin, otherInput, MouseButton::Left, Key::None, "Cross", "No"},
      {"a rectangle over a text box", empty, WindowStage::MiddleOf(TitleOf(node)), MouseButton::Left, Key::None,
       "Arrow", "Arrow"},
      {"a cut", empty, body, MouseButton::Left, Key::LeftShift, "Cross", "Cross"},
      {"an edge", {frame.Right() - 3, frame.y + 300}, body, MouseButton::Left, Key::None, "SizeWE", "SizeWE"},
      {"a pan by Space", body, pin, MouseButton::Left, Key::Space, "SizeAll", "SizeAll"},
      {"a pan by the middle button", body, pin, MouseButton::Middle, Key::None, "SizeAll", "SizeAll"},
      {"a right click that becomes a pan", empty, empty + Point{-20, -20}, MouseButton::Right, Key::None, "Arrow",
       "SizeAll"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    if (c.held != Key::None) window.KeyDown(c.held);
    window.Press(c.from, c.button);
    if (c.held != Key::None) window.KeyUp(c.held);
    EXPECT_EQ(Cursor(), c.pressed);
    window.MoveTo(c.to);
    EXPECT_EQ(Cursor(), c.moved);
    window.Press(Key::Escape);
    window.Release(c.to, c.button);
    window.MoveTo(empty);
    EXPECT_EQ(Cursor(), "");
  }
}

} // namespace
} // namespace Tesselor
