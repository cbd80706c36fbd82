#include "toolkit/controls/ComboBox.h"
#include "Expected.h"
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
  Open(Fruit, 1);
  std::string dump;
  const auto run = [&](const char* script) {
    Wait(5000);
    box->SetIsDropDownOpen(false);
    box->SetSelectedIndex(1);
    Focus(box);
    Run(script);
    EXPECT_EQ(OpenPopups(), box->IsDropDownOpen() ? 1u : 0u);
    dump += std::string(script) + ": " + Fruit.at(static_cast<size_t>(box->GetSelectedIndex())) +
            (box->IsDropDownOpen() ? ", open\n" : "\n");
  };
  // Closed: keys select at once.
  for (const char* script : {"Down", "Up Up", "End Down", "Home Up", "PageDown PageUp", "'c'", "'b'", "'bb'", "'bbb'",
                             "'blu'", "'bl' wait:1500 'c'", "'two_w'", "'Ä'", "'x'"})
    run(script);
  // Open: keys move the light, and Return, Space or nothing selects.
  for (const char* script : {"Return", "Return Down Down", "Return Down Down Return", "Space Up Space",
                             "Return End Escape", "Return End Tab", "Return PageDown Return",
                             "Return End PageUp Return", "Return Home Up Return", "Return 'c' Return"})
    run(script);
  TestSupport::ExpectText("ComboBoxKeys", dump);
}

TEST_F(ComboBoxTest, IsWorkedByTheMouse) {
  Open(Fruit, 1);
  const auto state = [this] {
    return std::to_string(box->GetSelectedIndex()) + (box->IsDropDownOpen() ? " open" : "");
  };
  Run("click:Box");
  ASSERT_EQ(state(), "1 open");
  EXPECT_TRUE(box->IsFocused());
  EXPECT_TRUE(Shows("Cherry"));
  EXPECT_GE(box->List()->ActualWidth(), box->ActualWidth());
  Run("click:Box");
  EXPECT_EQ(state(), "1");
  EXPECT_FALSE(Shows("Cherry"));
  Run("click:Box");
  Click(RowMiddle(3));
  EXPECT_EQ(state(), "3");
  // Down on the box, up on a row.
  Run("press:Box");
  MoveTo(RowMiddle(0));
  Release(RowMiddle(0));
  EXPECT_EQ(state(), "0");
  // The wheel is not for a closed box.
  EXPECT_FALSE(Run("wheel:Box:-1"));
  EXPECT_EQ(state(), "0");
  box->SetValue(UIElement::IsEnabledProperty, false);
  Run("click:Box");
  EXPECT_EQ(state(), "0");
  // With hardly any room the list lies over the box itself: the release of the press that opened it chooses nothing.
  Open(Fruit, 1, {400, 60});
  Run("press:Box");
  ASSERT_EQ(state(), "1 open");
  ASSERT_TRUE(BoxOf(*box->List()).Contains(MiddleOf(*box)));
  Run("release:Box");
  EXPECT_EQ(state(), "1 open");
}

TEST_F(ComboBoxTest, DrawsOnlyRowsInSight) {
  std::vector<std::string> many;
  for (int i = 0; i < 5000; ++i) many.push_back("item " + std::to_string(i));
  Open(many, 2500);
  Run("click:Box");
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
  Run("Down Down");
  EXPECT_TRUE(Press(Key::Return));
  EXPECT_EQ(box->GetSelectedIndex(), 1);
  EXPECT_TRUE(text.IsFocused());
}

TEST_F(ComboBoxTest, SurvivesAHandlerThatTakesItAway) {
  Open(Fruit, 1);
  Listen(*box, Selector::SelectionChangedEvent, [&](auto&) { Find<StackPanel>("Outer").ClearChildren(); });
  Run("click:Box");
  Click(RowMiddle(2));
  EXPECT_EQ(OpenPopups(), 0u);
}

} // namespace
} // namespace Toolkit
