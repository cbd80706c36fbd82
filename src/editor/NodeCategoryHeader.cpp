#include "editor/NodeCategoryHeader.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/render/Brush.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(NodeCategoryHeader, Toolkit::UserControl, "Tesselor.NodeCategoryHeader")
void NodeCategoryHeader::Describe(Toolkit::TypeBuilder<NodeCategoryHeader>&) {}

NodeCategoryHeader::NodeCategoryHeader(std::string_view name, const Toolkit::Color& color) {
  Toolkit::GUI::LoadComponent(*this, "NodeCategoryHeader.xaml");
  auto* marker = FindName<Toolkit::Rectangle>("NodeCategoryColorMarker");
  auto* text = FindName<Toolkit::TextBlock>("NodeCategoryText");
  TOOLKIT_ASSERT(marker && text);
  marker->SetValue(Toolkit::Shape::FillProperty, Toolkit::Brushes::Of(color));
  text->SetText(name);
}

} // namespace Tesselor
