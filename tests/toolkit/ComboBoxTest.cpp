#include "toolkit/controls/ComboBox.h"
#include "toolkit/KeyScript.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ComboBoxList.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"

namespace Toolkit {
namespace {

/// A text box above a combo box with the items that a test names.
class ComboBoxTest : public StageTest {
protected:
  void Open(const std::vector<std::string>& texts, int32_t selected, Size size = {400, 300}) {
    Show("<StackPanel x:Name=\"Outer\" HorizontalAlignment=\"Left\" Width=\"120\"><TextBox x:Name=\"Text\"/>"
         "<ComboBox x:Name=\"Box\" DisplayMemberPath=\"Text\"/></StackPanel>",
         size);
    items = MakeItems(texts);
    box = &Find<ComboBox>("Box");
    box->SetItemsSource(items.Get());
    box->SetSelectedIndex(selected);
  }
  Point RowMiddle(int32_t row) {
    const Rect area = box->List()->RowBox(row);
    return box->List()->TransformToAncestor(nullptr).Map({area.x + area.width * 0.5f, area.y + area.height * 0.5f});
  }

  Ptr<TestItems> items;
  ComboBox* box = nullptr;
};

const std::vector<std::string> Fruit{"Apple", "Banana", "Blackberry", "Cherry", "Blueberry", "Two words", "Äpfel"};

TEST_F(ComboBoxTest, IsWorkedByKeys) {
  struct Case {
    const char* script;
    int32_t selected;
    bool open;
  };
  const Case cases[] = {
      // Closed: keys select at once.
      {"Down", 2, false},
      {"Up Up", 0, false},
      {"End Down", 6, false},
      {"Home Up", 0, false},
      {"PageDown PageUp", 0, false},
      {"'c'", 3, false},
      {"'b'", 2, false},
      {"'b' 'b'", 4, false},
      {"'b' 'b' 'b'", 1, false},
      {"'b' 'l' 'u'", 4, false},
      {"'b' 'l' wait 'c'", 3, false},
      {"'t' 'w' 'o' '_' 'w'", 5, false},
      {"'Ä'", 6, false},
      {"'x'", 1, false},
      // Open: keys move the light, and Return, Space or nothing selects.
      {"Return", 1, true},
      {"Return Down Down", 1, true},
      {"Return Down Down Return", 3, false},
      {"Space Up Space", 0, false},
      {"Return End Escape", 1, false},
      {"Return End Tab", 1, false},
      {"Return PageDown Return", 6, false},
      {"Return End PageUp Return", 0, false},
      {"Return Home Up Return", 0, false},
      {"Return 'c' Return", 3, false},
  };
  Open(Fruit, 1);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.script);
    Wait(5000);
    box->SetIsDropDownOpen(false);
    box->SetSelectedIndex(1);
    box->Focus();
    RunKeys(*this, c.script);
    EXPECT_EQ(box->GetSelectedIndex(), c.selected);
    EXPECT_EQ(box->IsDropDownOpen(), c.open);
    EXPECT_EQ(OpenPopups(), c.open ? 1u : 0u);
  }
}

TEST_F(ComboBoxTest, IsWorkedByTheMouse) {
  Open(Fruit, 1);
  const Point at = MiddleOf(*box);
  Click(at);
  ASSERT_TRUE(box->IsDropDownOpen());
  EXPECT_EQ(box->GetSelectedIndex(), 1);
  EXPECT_TRUE(box->IsFocused());
  EXPECT_TRUE(Shows("Cherry"));
  EXPECT_GE(box->List()->ActualWidth(), box->ActualWidth());
  Click(at);
  EXPECT_FALSE(box->IsDropDownOpen());
  EXPECT_EQ(box->GetSelectedIndex(), 1);
  EXPECT_FALSE(Shows("Cherry"));
  Click(at);
  Click(RowMiddle(3));
  EXPECT_FALSE(box->IsDropDownOpen());
  EXPECT_EQ(box->GetSelectedIndex(), 3);
  // Down on the box, up on a row.
  Press(at);
  MoveTo(RowMiddle(0));
  Release(RowMiddle(0));
  EXPECT_EQ(box->GetSelectedIndex(), 0);
  // The wheel is not for a closed box.
  EXPECT_FALSE(Wheel(at, -1));
  EXPECT_EQ(box->GetSelectedIndex(), 0);
  box->SetValue(UIElement::IsEnabledProperty, false);
  Click(at);
  EXPECT_FALSE(box->IsDropDownOpen());
}

TEST_F(ComboBoxTest, DoesNotChooseByTheReleaseOfThePressThatOpenedIt) {
  // With hardly any room the list lies over the box itself.
  Open(Fruit, 1, {400, 60});
  const Point at = MiddleOf(*box);
  Press(at);
  ASSERT_TRUE(box->IsDropDownOpen());
  ASSERT_TRUE(BoxOf(*box->List()).Contains(at));
  Release(at);
  EXPECT_TRUE(box->IsDropDownOpen());
  EXPECT_EQ(box->GetSelectedIndex(), 1);
}

TEST_F(ComboBoxTest, DrawsOnlyRowsInSight) {
  std::vector<std::string> many;
  for (int i = 0; i < 5000; ++i) many.push_back("item " + std::to_string(i));
  Open(many, 2500);
  Click(MiddleOf(*box));
  ASSERT_TRUE(box->List());
  EXPECT_TRUE(Shows("item 2500"));
  EXPECT_LT(TextsShown().size(), 30u);
  EXPECT_LE(box->List()->ActualHeight(), 320);
  EXPECT_EQ(box->List()->VisualChildCount(), 0u);
  Wheel(RowMiddle(2500), 100000);
  EXPECT_TRUE(Shows("item 0"));
  // The bar, dragged down to its end.
  const Rect area = BoxOf(*box->List());
  Drag({area.Right() - 6, area.y + 10}, {area.Right() + 50, area.Bottom() + 100});
  EXPECT_TRUE(Shows("item 4999"));
  EXPECT_TRUE(box->IsDropDownOpen());
}

TEST_F(ComboBoxTest, LeavesTypingToTheBoxThatFiltersIt) {
  Open(Fruit, -1);
  auto& text = Find<TextBox>("Text");
  text.Focus();
  box->SetIsDropDownOpen(true);
  Settle();
  Type("q");
  Press(Key::Home);
  EXPECT_EQ(text.GetText(), "q");
  EXPECT_EQ(text.CaretIndex(), 0u);
  // The list follows its items while it is open.
  items->RemoveAt(0);
  Settle();
  EXPECT_FALSE(Shows("Apple"));
  RunKeys(*this, "Down Down");
  EXPECT_TRUE(Press(Key::Return));
  EXPECT_EQ(box->GetSelectedIndex(), 1);
  EXPECT_TRUE(text.IsFocused());
}

TEST_F(ComboBoxTest, SurvivesAHandlerThatTakesItAway) {
  Open(Fruit, 1);
  Listen(*box, Selector::SelectionChangedEvent, [&](auto&) { Find<StackPanel>("Outer").ClearChildren(); });
  Click(MiddleOf(*box));
  Click(RowMiddle(2));
  EXPECT_EQ(OpenPopups(), 0u);
}

} // namespace
} // namespace Toolkit
