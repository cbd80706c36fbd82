#include "toolkit/MarkupTest.h"
#include "toolkit/controls/Border.h"

namespace Toolkit {
namespace {

/// A box with a cursor, in it one that has none and one that has another, and beside it one without any.
class CursorTest : public StageTest {
protected:
  CursorTest() {
    Show("<StackPanel><StackPanel x:Name=\"Outer\" Cursor=\"SizeAll\">"
         "<Border x:Name=\"Plain\" Height=\"20\" Background=\"Red\"/>"
         "<Border x:Name=\"Own\" Height=\"20\" Background=\"Red\" Cursor=\"IBeam\"/></StackPanel>"
         "<Border x:Name=\"Beside\" Height=\"20\" Background=\"Red\"/></StackPanel>",
         {200, 60});
  }
  std::string Over(const char* name) {
    MoveTo(Find(name));
    return Input().Cursor();
  }
};

TEST_F(CursorTest, IsThatOfTheNearestElementThatNamesOne) {
  EXPECT_EQ(Input().Cursor(), "");
  EXPECT_EQ(Over("Plain"), "SizeAll");
  EXPECT_EQ(Over("Own"), "IBeam");
  EXPECT_EQ(Over("Beside"), "");
  // Who has the mouse keeps its cursor wherever that goes.
  Find("Own").CaptureMouse();
  EXPECT_EQ(Input().Cursor(), "IBeam");
  EXPECT_EQ(Over("Beside"), "IBeam");
}

TEST_F(CursorTest, IsChosenByThoseAroundFirst) {
  std::string name;
  bool isHandled = true;
  Listen(Find("Outer"), UIElement::QueryCursorEvent, [&](const RoutedEventArgs& args) {
    name = DynamicCast<FrameworkElement>(args.source)->GetName();
    static_cast<const QueryCursorEventArgs&>(args).cursor = "Cross";
    args.handled = isHandled;
  });
  EXPECT_EQ(Over("Own"), "Cross");
  EXPECT_EQ(name, "Own");
  EXPECT_EQ(Over("Beside"), "");
  isHandled = false;
  EXPECT_EQ(Over("Own"), "IBeam");
}

} // namespace
} // namespace Toolkit
