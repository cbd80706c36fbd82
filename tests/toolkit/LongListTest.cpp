#include "toolkit/controls/LongList.h"
#include "Expected.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/controls/ScrollViewer.h"

namespace Toolkit {
namespace {

class TextLine : public ListLine {
  TOOLKIT_TYPE(TextLine)
public:
  TextLine() = default;
  explicit TextLine(std::string text) : text(std::move(text)) {}
  const std::string& GetText() const { return text; }

private:
  std::string text;
};

TOOLKIT_TYPE_IMPL(TextLine, ListLine, "TestTextLine")
void TextLine::Describe(TypeBuilder<TextLine>& type) { type.Member<&TextLine::GetText>("Text"); }

/// A list of lines that are 20 pixels high and tell whether they are marked, in a view of 300 pixels.
class LongListTest : public StageTest {
protected:
  LongListTest() {
    Show(R"(<ScrollViewer x:Name="Viewer"><LongList x:Name="List" Focusable="True" ItemsSource="{Binding}">
              <LongList.ItemTemplate><DataTemplate>
                <StackPanel Orientation="Horizontal" Height="20" Background="Red">
                  <TextBlock Text="{Binding Text}"/><TextBlock Text="{Binding IsSelected}"/>
                </StackPanel>
              </DataTemplate></LongList.ItemTemplate>
            </LongList></ScrollViewer>)",
         {400, 300});
    list = &Find<LongList>("List");
    viewer = &Find<ScrollViewer>("Viewer");
    list->SetItemsSource(lines.Get());
    Listen(*list, LongList::LineChosenEvent, [this](const RoutedEventArgs& args) {
      told +=
          "chose " + static_cast<const TextLine&>(*static_cast<const LineChosenEventArgs&>(args).line).GetText() + "; ";
    });
    Listen(*list, LongList::ListLeftEvent, [this](const RoutedEventArgs&) { told += "left; "; });
  }
  void Fill(int count) {
    lines->Clear();
    for (int i = 0; i < count; ++i) lines->Add(MakePtr<TextLine>(std::to_string(i)));
    Settle();
  }
  size_t Made() const { return list->ItemsHost()->ChildCount(); }
  std::string Marked() const {
    std::string marked;
    for (size_t i = 0; i < lines->Count(); ++i)
      if (lines->Get(i)->IsSelected()) marked += lines->Get(i)->GetText() + "; ";
    return marked;
  }

  Ptr<ObservableCollection<TextLine>> lines = MakePtr<ObservableCollection<TextLine>>();
  LongList* list = nullptr;
  ScrollViewer* viewer = nullptr;
  std::string told;
};

TEST_F(LongListTest, IsWorkedByItsKeysAndByClicks) {
  Fill(12);
  TestSupport::ExpectLayout("LongList", Find<UIElement>("Viewer"));
  struct Case {
    const char* script;
    const char* marked;
    const char* told;
  };
  const Case cases[] = {
      {"Down", "0; ", ""},
      {"Down Down Down Up", "1; ", ""},
      {"Up", "11; ", ""},
      {"Up Down", "11; ", ""},
      {"PageDown", "9; ", ""},
      {"PageDown PageDown", "11; ", ""},
      {"PageUp PageUp", "0; ", ""},
      {"Return", "0; ", "chose 0; "},
      {"Down Down Return Return", "1; ", "chose 1; chose 1; "},
      {"Down Escape", "0; ", "left; "},
      {"Left Home 'a'", "", ""},
  };
  for (const Case& c : cases) {
    list->Mark(nullptr);
    told.clear();
    Focus(list);
    Run(c.script);
    EXPECT_EQ(Marked(), c.marked) << c.script;
    EXPECT_EQ(told, c.told) << c.script;
  }
  list->SetValue(LongList::LinesOfPageProperty, 3);
  Run("Down PageDown");
  EXPECT_EQ(Marked(), "3; ");
  told.clear();
  Click(*list->GetItemContainerGenerator().ContainerFromIndex(5));
  EXPECT_EQ(Marked(), "5; ");
  EXPECT_EQ(told, "chose 5; ");
  Fill(40);
  Run("Down Down");
  EXPECT_EQ(viewer->ScrollOffset().y, 0) << "the keys are the list's, not the viewer's";
  Fill(0);
  Run("Down Up Return");
  EXPECT_EQ(Marked() + told, "chose 5; ");
}

TEST_F(LongListTest, MakesLinesAsFarAsItIsScrolledAndBeginsAnewWhenItIsCleared) {
  Fill(1000);
  EXPECT_EQ(Made(), 60u);
  const auto scrollTo = [this](float y) {
    viewer->ScrollTo({0, y});
    Settle();
  };
  scrollTo(290);
  EXPECT_EQ(Made(), 60u);
  scrollTo(310);
  EXPECT_EQ(Made(), 120u) << "600 pixels before the end come into sight";
  for (int i = 0; i < 420; ++i) Wheel(*viewer, -1);
  EXPECT_EQ(Made(), 1000u);
  EXPECT_EQ(viewer->ScrollOffset().y, 1000 * 20 - 300);
  Fill(900);
  EXPECT_EQ(Made(), 60u);
  EXPECT_EQ(viewer->ScrollOffset().y, 0);
  // What is marked is in sight, though it had no line before.
  Focus(list);
  Run("Up");
  EXPECT_EQ(Made(), 900u);
  EXPECT_EQ(viewer->ScrollOffset().y, 900 * 20 - 300);
  Fill(50);
  EXPECT_EQ(Marked(), "");
  EXPECT_EQ(list->Marked(), nullptr);
  Resize({400, 2000});
  Fill(1000);
  EXPECT_EQ(Made(), 180u) << "a high view takes more";
}

} // namespace
} // namespace Toolkit
