#include "editor/NodeSearchResult.h"

#include "toolkit/controls/Canvas.h"

namespace Tesselor {

TOOLKIT_TYPE_IMPL(NodeSearchResult, Toolkit::NotifyPropertyChangedBase, "Tesselor.NodeSearchResult")
void NodeSearchResult::Describe(Toolkit::TypeBuilder<NodeSearchResult>& type) {
  type.Member<&NodeSearchResult::GetTitle>("Title");
  type.Member<&NodeSearchResult::GetNodeType>("NodeType");
  type.Member<&NodeSearchResult::GetMatchContext>("MatchContext");
  type.Member<&NodeSearchResult::HasMatchContext>("HasMatchContext");
  type.Member<&NodeSearchResult::GetPositionX>("PositionX");
  type.Member<&NodeSearchResult::GetPositionY>("PositionY");
  type.Member<&NodeSearchResult::IsSelected, &NodeSearchResult::SetIsSelected>("IsSelected");
}

NodeSearchResult::NodeSearchResult(BaseNode* node, Toolkit::SharedString nodeType, Toolkit::SharedString matchContext)
    : node(node), title(node->Title()), nodeType(std::move(nodeType)), matchContext(std::move(matchContext)),
      positionX(Toolkit::Canvas::GetLeft(node)), positionY(Toolkit::Canvas::GetTop(node)) {}

void NodeSearchResult::SetIsSelected(bool value) {
  if (isSelected == value) return;
  isSelected = value;
  OnPropertyChanged("IsSelected");
}

} // namespace Tesselor
