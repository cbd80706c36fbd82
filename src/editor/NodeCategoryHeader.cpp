#include "editor/NodeCategoryHeader.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/render/Brush.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(NodeCategoryHeader, Toolkit::UserControl, "Tesselor.NodeCategoryHeader")
void NodeCategoryHeader::Describe(Toolkit::TypeBuilder<NodeCategoryHeader>&) {}

NodeCategoryHeader::NodeCategoryHeader(std::string_view name) {
  Toolkit::GUI::LoadComponent(*this, "NodeCategoryHeader.xaml");
  auto* text = FindName<Toolkit::TextBlock>("NodeCategoryText");
  TOOLKIT_ASSERT(text);
  text->SetText(name);
}

void NodeCategoryHeader::SetColor(const Toolkit::Color& color) {
  if (auto* marker = FindName<Toolkit::Rectangle>("NodeCategoryColorMarker"))
    marker->SetValue(Toolkit::Shape::FillProperty, Toolkit::Brushes::Of(color));
}

} // namespace Tesselor
