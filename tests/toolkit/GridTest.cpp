#include "toolkit/controls/Grid.h"
#include "Expected.h"
#include "toolkit/MarkupTest.h"
#include "toolkit/visual/LayoutQueue.h"

#include <sstream>

namespace Toolkit {
namespace {

/// Wants a size, and more width than that where it gets too little height, as for a scroll bar.
class Wanting : public FrameworkElement {
  TOOLKIT_TYPE(Wanting)
public:
  static inline const DependencyProperty* SizeProperty = nullptr;
  static inline const DependencyProperty* BarProperty = nullptr;
  /// What it was offered last.
  Size offered;

protected:
  Size MeasureOverride(Size available) override {
    offered = available;
    const Point size = Get<Point>(SizeProperty);
    return {size.x + (available.height < size.y ? Get<float>(BarProperty) : 0), size.y};
  }
};

TOOLKIT_TYPE_IMPL(Wanting, FrameworkElement, "Tesselor.Wanting")
void Wanting::Describe(TypeBuilder<Wanting>& type) {
  SizeProperty = type.Property<Point>("Size");
  BarProperty = type.Property<float>("Bar");
}

/// Definitions from their lengths, each with what it may have beside: "20 Auto *<30" has a star of at most 30.
std::string Definitions(const std::string& kind, const std::string& length, const std::string& lengths) {
  std::string markup = "<Grid." + kind + "Definitions>";
  std::istringstream in(lengths);
  for (std::string each; in >> each;) {
    const size_t limit = each.find_first_of("<>");
    markup += "<" + kind + "Definition " + length + "=\"" + each.substr(0, limit) + "\"";
    if (limit != std::string::npos)
      markup += (each[limit] == '<' ? " Max" : " Min") + length + "=\"" + each.substr(limit + 1) + "\"";
    markup += "/>";
  }
  return markup + "</Grid." + kind + "Definitions>";
}

class GridTest : public MarkupTest {
protected:
  /// "<what>: <wanted size>; " and of each child what it was offered and where it is. A child is given as its size,
  /// which may be followed by further attributes.
  std::string LaidOut(const std::string& what, Size available, const std::string& columns, const std::string& rows,
                      const std::vector<std::string>& children) {
    std::string markup = (columns.empty() ? "" : Definitions("Column", "Width", columns)) +
                         (rows.empty() ? "" : Definitions("Row", "Height", rows));
    for (const std::string& child : children) {
      const size_t blank = std::min(child.find(' '), child.size());
      markup += "<local:Wanting Size=\"" + child.substr(0, blank) + "\"" + child.substr(blank) + "/>";
    }
    const auto grid = Make<Grid>("Grid", ">" + markup + "</Grid>");
    grid->Measure(available);
    const Size wanted = grid->DesiredSize();
    grid->Arrange({0, 0, available.width == Infinity ? wanted.width : available.width, available.height});
    std::ostringstream layout;
    layout << what << ": " << wanted.width << 'x' << wanted.height << "; ";
    for (size_t i = 0; i < grid->ChildCount(); ++i) {
      const auto& child = static_cast<const Wanting&>(*grid->Child(i));
      layout << child.offered.width << 'x' << child.offered.height << " -> " << child.Offset().x << ','
             << child.Offset().y << ' ' << child.ActualWidth() << 'x' << child.ActualHeight() << "; ";
    }
    return layout.str() + "\n";
  }
};

TEST_F(GridTest, MeasuresAndPlacesChildrenInItsTracks) {
  Wanting::StaticType();
  const Size wide{100, 50};
  TestSupport::ExpectText(
      "GridTracks",
      LaidOut("no tracks", wide, "", "", {"30,20"}) +
          LaidOut("lengths in pixels are offered and taken", wide, "40 10", "25 5",
                  {"30,20", R"(30,20 Grid.Row="1" Grid.Column="1")"}) +
          LaidOut("a single row is as high as the grid", wide, "Auto", "", {"30,20"}) +
          LaidOut("stars share what content leaves", wide, "20 Auto * 3*", "",
                  {R"(40,5 Grid.Column="2")", R"(20,5 Grid.Column="1")"}) +
          LaidOut("content in a span of content and stars has no say", wide, "Auto *", "",
                  {R"(40,5 Grid.ColumnSpan="2")"}) +
          LaidOut("without a width stars are as wide as their content", {Infinity, 50}, "Auto *", "",
                  {R"(40,5 Grid.Column="1")"}) +
          LaidOut("a span across a star wants of it what the rest lacks", wide, "20 * *", "",
                  {R"(50,5 Grid.ColumnSpan="2")"}) +
          LaidOut("a span widens the last track that can grow", wide, "Auto Auto 10", "",
                  {R"(50,5 Grid.ColumnSpan="3")", R"(5,5 Grid.Column="1")"}) +
          LaidOut("limits hold", wide, "Auto<25 *<30 * Auto>12", "", {"40,5", R"(1,5 Grid.Column="2")"}) +
          LaidOut("rows of content, then of stars", {100, 70}, "", "Auto * 2*",
                  {"5,10", R"(5,12 Grid.Row="1")", R"(5,16 Grid.Row="2")"}) +
          LaidOut("a star row too low widens the column", {100, 100}, "Auto *", "* *",
                  {R"(30,60 Bar="10")", R"(5,5 Grid.Column="1")"}) +
          LaidOut("what lies beyond the tracks goes into the last", wide, "20 30", "10 *",
                  {R"(5,5 Grid.Column="7" Grid.Row="9")", R"(5,5 Grid.Column="1" Grid.ColumnSpan="5" Grid.Row="-1")"}));
}

} // namespace
} // namespace Toolkit
