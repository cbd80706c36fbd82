#include "toolkit/controls/ListView.h"
#include "toolkit/MarkupTestSupport.h"
#include "toolkit/controls/ScrollViewer.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/render/FrameRecorder.h"

namespace Toolkit {
namespace {

/// A list whose outer columns are as wide as their widest texts, and whose middle one has a width of its own.
class ListViewTest : public MarkupTest {
protected:
  void Show(int count) {
    viewer = Make<ScrollViewer>(
        "ScrollViewer",
        "><ListView x:Name=\"L\" BorderThickness=\"0\" Padding=\"0\"><ListView.View><GridView>"
        "<GridViewColumn><GridViewColumn.CellTemplate><DataTemplate><TextBox x:Name=\"Text\" "
        "Text=\"{Binding Text, UpdateSourceTrigger=PropertyChanged}\"/></DataTemplate>"
        "</GridViewColumn.CellTemplate></GridViewColumn>"
        "<GridViewColumn Width=\"60\"><GridViewColumn.CellTemplate><DataTemplate><Border Height=\"20\" "
        "Width=\"10\" HorizontalAlignment=\"Left\"/></DataTemplate>"
        "</GridViewColumn.CellTemplate></"
        "GridViewColumn><GridViewColumn><GridViewColumn.CellTemplate><DataTemplate><TextBlock Text=\"{Binding "
        "Number}\"/></DataTemplate>"
        "</GridViewColumn.CellTemplate></GridViewColumn></GridView></ListView.View></ListView></ScrollViewer>");
    list = viewer->FindName<ListView>("L");
    items = MakePtr<ObservableCollection<TestData>>();
    for (int i = 0; i < count; ++i) {
      items->Add(MakePtr<TestData>());
      items->Get(static_cast<size_t>(i))->SetText("row " + std::to_string(i));
    }
    list->SetItemsSource(items.Get());
    input = std::make_unique<InputState>(*viewer);
    viewer->AttachAsRoot();
    viewer->Measure({400, 300});
    viewer->Arrange({0, 0, 400, 300});
    LayoutQueue::Current().Run();
  }
  void TearDown() override {
    input->SetFocus(nullptr);
    viewer->DetachAsRoot();
    list = nullptr;
    viewer.Reset();
    items.Reset();
    input.reset();
    Dispatcher::Current().Clear();
    MarkupTest::TearDown();
  }
  FrameworkElement& Row(size_t index) { return *list->GetItemContainerGenerator().ContainerFromIndex(index); }

  Ptr<ScrollViewer> viewer;
  ListView* list = nullptr;
  Ptr<ObservableCollection<TestData>> items;
  std::unique_ptr<InputState> input;
};

TEST_F(ListViewTest, SharesTheWidthsOfItsColumnsAmongAllRows) {
  Show(3);
  const float before = list->ColumnWidth(0);
  items->Get(1)->SetText("a much longer text than before");
  LayoutQueue::Current().Run();
  EXPECT_GT(list->ColumnWidth(0), before + 100);
  EXPECT_EQ(list->ColumnWidth(1), 60);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(Row(i).VisualChild(0)->ActualWidth(), list->ColumnWidth(0)) << i;
    EXPECT_EQ(Row(i).VisualChild(1)->Offset().x, list->ColumnWidth(0)) << i;
  }
  // A cell that becomes the widest of its column in a row that is not the widest one.
  items->Get(2)->SetNumber(1234567);
  LayoutQueue::Current().Run();
  EXPECT_GT(list->ColumnWidth(2), 40);
  EXPECT_EQ(list->ColumnWidth(2), Row(2).VisualChild(2)->DesiredSize().width);
  items->Get(1)->SetText("row 1");
  LayoutQueue::Current().Run();
  EXPECT_EQ(Row(0).VisualChild(1)->Offset().x, before);
  list->GetView()->Column(0).SetValue(GridViewColumn::WidthProperty, 30.0f);
  LayoutQueue::Current().Run();
  EXPECT_EQ(Row(2).VisualChild(1)->Offset().x, 30);
  EXPECT_EQ(list->DesiredSize().width, 30 + 60 + list->ColumnWidth(2));
}

TEST_F(ListViewTest, SelectsTheRowThatIsClicked) {
  Show(3);
  const auto click = [this](Point at) {
    input->MouseDown(MouseButton::Left, at, 1);
    input->MouseUp(MouseButton::Left, at);
  };
  const auto at = [&](size_t row, float x) { return Row(row).TransformToAncestor(nullptr).Map({x, 10}); };
  click(at(1, list->ColumnWidth(0) + 30));
  EXPECT_EQ(list->GetSelectedItem(), items->Get(1));
  click(at(2, 10));
  EXPECT_EQ(list->GetSelectedItem(), items->Get(1)) << "a press in a text box is for the box";
}

TEST_F(ListViewTest, LeavesTheRowsAloneThatAChangeDoesNotTouch) {
  Show(5);
  FrameworkElement& last = Row(4);
  auto* box = static_cast<TextBox*>(last.VisualChild(0));
  box->Focus();
  const Ptr<TestData> moved(items->Get(2));
  const Ptr<UIElement> container(&Row(2));
  items->RemoveAt(2);
  items->Insert(1, moved);
  LayoutQueue::Current().Run();
  EXPECT_EQ(&Row(1), container.Get());
  EXPECT_EQ(&Row(4), &last);
  EXPECT_TRUE(box->IsFocused()) << "the row never left the list";
  items->RemoveAt(0);
  items->Add(MakePtr<TestData>());
  LayoutQueue::Current().Run();
  EXPECT_EQ(&Row(3), &last);
  EXPECT_EQ(list->GetItemContainerGenerator().ItemFromContainer(&Row(4)), items->Get(4));
  EXPECT_EQ(list->ItemsHost()->ChildCount(), 5u);
}

TEST_F(ListViewTest, DrawsOnlyRowsInSight) {
  Show(500);
  const auto count = [this] { return FrameRecorder(nullptr).Record(*viewer, {400, 300}, 1).list->Entries().size(); };
  const size_t atTop = count();
  EXPECT_LT(atTop, 200u);
  viewer->ScrollTo({0, 5000});
  LayoutQueue::Current().Run();
  EXPECT_NEAR(static_cast<double>(count()), static_cast<double>(atTop), 20);
  Row(250).BringIntoView();
  LayoutQueue::Current().Run();
  const Point corner = Row(250).TransformToAncestor(nullptr).Map({0, 0});
  EXPECT_GE(corner.y, 0);
  EXPECT_LE(corner.y + Row(250).ActualHeight(), 300);
}

} // namespace
} // namespace Toolkit
