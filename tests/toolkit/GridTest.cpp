#include "toolkit/controls/Grid.h"
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

class GridTest : public MarkupTest {};

TEST_F(GridTest, MeasuresAndPlacesChildrenInItsTracks) {
  Wanting::StaticType();
  const struct {
    const char* what;
    const char* columns;
    const char* rows;
    Size available;
    const char* children;
    /// The wanted size of the grid; then of each child what it was offered and where it is.
    const char* layout;
  } cases[] = {
      {"no tracks", "", "", {100, 50}, R"(<local:Wanting Size="30,20"/>)", "30x20; 100x50 -> 0,0 100x50; "},
      {"lengths in pixels are offered and taken",
       "40 10",
       "25 5",
       {100, 50},
       R"(<local:Wanting Size="30,20"/><local:Wanting Size="30,20" Grid.Row="1" Grid.Column="1"/>)",
       "50x30; 40x25 -> 0,0 40x25; 10x5 -> 40,25 10x5; "},
      {"a single row is as high as the grid",
       "Auto",
       "",
       {100, 50},
       R"(<local:Wanting Size="30,20"/>)",
       "30x20; infx50 -> 0,0 30x50; "},
      {"stars share what content leaves",
       "20 Auto * 3*",
       "",
       {100, 50},
       R"(<local:Wanting Size="40,5" Grid.Column="2"/><local:Wanting Size="20,5" Grid.Column="1"/>)",
       "200x5; 15x50 -> 40,0 15x50; infx50 -> 20,0 20x50; "},
      {"content in a span of content and stars has no say",
       "Auto *",
       "",
       {100, 50},
       R"(<local:Wanting Size="40,5" Grid.ColumnSpan="2"/>)",
       "40x5; 100x50 -> 0,0 100x50; "},
      {"without a width stars are as wide as their content",
       "Auto *",
       "",
       {Infinity, 50},
       R"(<local:Wanting Size="40,5" Grid.Column="1"/>)",
       "40x5; infx50 -> 0,0 40x50; "},
      {"a span across a star wants of it what the rest lacks",
       "20 * *",
       "",
       {100, 50},
       R"(<local:Wanting Size="50,5" Grid.ColumnSpan="2"/>)",
       "80x5; 60x50 -> 0,0 60x50; "},
      {"a span widens the last track that can grow",
       "Auto Auto 10",
       "",
       {100, 50},
       R"(<local:Wanting Size="50,5" Grid.ColumnSpan="3"/><local:Wanting Size="5,5" Grid.Column="1"/>)",
       "50x5; infx50 -> 0,0 50x50; infx50 -> 0,0 40x50; "},
      {"limits hold",
       "Auto<25 *<30 * Auto>12",
       "",
       {100, 50},
       R"(<local:Wanting Size="40,5"/><local:Wanting Size="1,5" Grid.Column="2"/>)",
       "39x5; infx50 -> 0,0 25x50; 33x50 -> 55,0 33x50; "},
      {"rows of content, then of stars",
       "",
       "Auto * 2*",
       {100, 70},
       R"(<local:Wanting Size="5,10"/><local:Wanting Size="5,12" Grid.Row="1"/><local:Wanting Size="5,16" Grid.Row="2"/>)",
       "5x46; 100xinf -> 0,0 100x10; 100x20 -> 0,10 100x20; 100x40 -> 0,30 100x40; "},
      {"a star row too low widens the column",
       "Auto *",
       "* *",
       {100, 100},
       R"(<local:Wanting Size="30,60" Bar="10"/><local:Wanting Size="5,5" Grid.Column="1"/>)",
       "45x120; 40x50 -> 0,0 40x50; 60x50 -> 40,0 60x50; "},
      {"what lies beyond the tracks goes into the last",
       "20 30",
       "10 *",
       {100, 50},
       R"(<local:Wanting Size="5,5" Grid.Column="7" Grid.Row="9"/><local:Wanting Size="5,5" Grid.Column="1" Grid.ColumnSpan="5" Grid.Row="-1"/>)",
       "50x15; 30x40 -> 20,10 30x40; 30x10 -> 20,0 30x10; "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    auto grid = Make<Grid>("Grid", ">" + (*c.columns ? Definitions("Column", "Width", c.columns) : "") +
                                       (*c.rows ? Definitions("Row", "Height", c.rows) : "") + c.children + "</Grid>");
    ASSERT_TRUE(grid);
    grid->Measure(c.available);
    const Size wanted = grid->DesiredSize();
    grid->Arrange({0, 0, c.available.width == Infinity ? wanted.width : c.available.width, c.available.height});
    std::ostringstream layout;
    layout << wanted.width << 'x' << wanted.height << "; ";
    for (size_t i = 0; i < grid->ChildCount(); ++i) {
      const auto& child = static_cast<const Wanting&>(*grid->Child(i));
      layout << child.offered.width << 'x' << child.offered.height << " -> " << child.Offset().x << ','
             << child.Offset().y << ' ' << child.ActualWidth() << 'x' << child.ActualHeight() << "; ";
    }
    EXPECT_EQ(layout.str(), c.layout);
  }
}

} // namespace
} // namespace Toolkit
