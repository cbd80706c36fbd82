#include "toolkit/controls/ListView.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ScrollViewer.h"

namespace Toolkit {
namespace {

/// A list whose outer columns are as wide as their widest texts, and whose middle one has a width of its own.
class ListViewTest : public StageTest {
protected:
  void ShowRows(int count) {
    const std::string start = "<GridViewColumn.CellTemplate><DataTemplate>",
                      end = "</DataTemplate></GridViewColumn.CellTemplate></GridViewColumn>";
    Show("<ScrollViewer x:Name=\"V\"><ListView x:Name=\"L\" BorderThickness=\"0\" "
         "Padding=\"0\"><ListView.View><GridView>"
         "<GridViewColumn>" +
         start + "<TextBox x:Name=\"Text\" Text=\"{Binding Text, UpdateSourceTrigger=PropertyChanged}\"/>" + end +
         "<GridViewColumn Width=\"60\">" + start + "<Border Height=\"20\" Width=\"10\" HorizontalAlignment=\"Left\"/>" +
         end + "<GridViewColumn>" + start + "<TextBlock Text=\"{Binding Number}\"/>" + end +
         "</GridView></ListView.View></ListView></ScrollViewer>");
    list = &Find<ListView>("L");
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) texts.push_back("row " + std::to_string(i));
    items = MakeItems(texts);
    list->SetItemsSource(items.Get());
    Settle();
  }
  FrameworkElement& Row(size_t index) { return *list->GetItemContainerGenerator().ContainerFromIndex(index); }

  ListView* list = nullptr;
  Ptr<TestItems> items;
};

TEST_F(ListViewTest, SharesTheWidthsOfItsColumnsAmongAllRows) {
  ShowRows(3);
  const float before = list->ColumnWidth(0);
  items->Get(1)->SetText("a much longer text than before");
  Settle();
  EXPECT_GT(list->ColumnWidth(0), before + 100);
  EXPECT_EQ(list->ColumnWidth(1), 60);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(Row(i).VisualChild(0)->ActualWidth(), list->ColumnWidth(0)) << i;
    EXPECT_EQ(Row(i).VisualChild(1)->Offset().x, list->ColumnWidth(0)) << i;
  }
  // A cell that becomes the widest of its column in a row that is not the widest one.
  items->Get(2)->SetNumber(1234567);
  Settle();
  EXPECT_GT(list->ColumnWidth(2), 40);
  EXPECT_EQ(list->ColumnWidth(2), Row(2).VisualChild(2)->DesiredSize().width);
  items->Get(1)->SetText("row 1");
  Settle();
  EXPECT_EQ(Row(0).VisualChild(1)->Offset().x, before);
  list->GetView()->Column(0).SetValue(GridViewColumn::WidthProperty, 30.0f);
  Settle();
  EXPECT_EQ(Row(2).VisualChild(1)->Offset().x, 30);
  EXPECT_EQ(list->DesiredSize().width, 30 + 60 + list->ColumnWidth(2));
}

TEST_F(ListViewTest, SelectsTheRowThatIsClicked) {
  ShowRows(3);
  Click(Row(1).TransformToAncestor(nullptr).Map({list->ColumnWidth(0) + 30, 10}));
  EXPECT_EQ(list->GetSelectedItem(), items->Get(1));
  Click(*Row(2).VisualChild(0));
  EXPECT_EQ(list->GetSelectedItem(), items->Get(1)) << "a press in a text box is for the box";
}

TEST_F(ListViewTest, LeavesTheRowsAloneThatAChangeDoesNotTouch) {
  ShowRows(5);
  FrameworkElement& last = Row(4);
  Focus(last.VisualChild(0));
  const Ptr<TestData> moved(items->Get(2));
  const Ptr<UIElement> container(&Row(2));
  items->RemoveAt(2);
  items->Insert(1, moved);
  Settle();
  EXPECT_EQ(&Row(1), container.Get());
  EXPECT_EQ(&Row(4), &last);
  EXPECT_TRUE(last.VisualChild(0)->IsFocused()) << "the row never left the list";
  items->RemoveAt(0);
  items->Add(MakePtr<TestData>());
  Settle();
  EXPECT_EQ(&Row(3), &last);
  EXPECT_EQ(list->GetItemContainerGenerator().ContainerFromItem(items->Get(4)), &Row(4));
  EXPECT_EQ(list->ItemsHost()->ChildCount(), 5u);
}

TEST_F(ListViewTest, DrawsOnlyRowsInSight) {
  ShowRows(500);
  const size_t atTop = Frame().Entries().size();
  EXPECT_LT(atTop, 200u);
  Find<ScrollViewer>("V").ScrollTo({0, 5000});
  Settle();
  EXPECT_NEAR(static_cast<double>(Frame().Entries().size()), static_cast<double>(atTop), 20);
  Row(250).BringIntoView();
  Settle();
  const Rect box = BoxOf(Row(250));
  EXPECT_GE(box.y, 0);
  EXPECT_LE(box.Bottom(), 300);
}

} // namespace
} // namespace Toolkit
