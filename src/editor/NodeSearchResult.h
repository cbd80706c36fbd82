#pragma once

#include "nodes/BaseNode.h"
#include "toolkit/base/Observable.h"
#include "toolkit/base/SharedString.h"

namespace Tesselor {

/// One line of the search panel: a node as it was when the search ran.
class NodeSearchResult : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(NodeSearchResult)
public:
  /// `nodeType` is "Content", "Group" or "Comment"; `matchContext` is empty if the title matched.
  NodeSearchResult(BaseNode* node, Toolkit::SharedString nodeType, Toolkit::SharedString matchContext);

  BaseNode* GetNode() const { return node.Get(); }
  const Toolkit::SharedString& GetTitle() const { return title; }
  const Toolkit::SharedString& GetNodeType() const { return nodeType; }
  const Toolkit::SharedString& GetMatchContext() const { return matchContext; }
  bool HasMatchContext() const { return !matchContext.IsEmpty(); }
  /// Panel coordinates.
  float GetPositionX() const { return positionX; }
  float GetPositionY() const { return positionY; }
  /// The result was clicked.
  bool IsSelected() const { return isSelected; }
  void SetIsSelected(bool value);

private:
  Toolkit::Ptr<BaseNode> node;
  Toolkit::SharedString title;
  Toolkit::SharedString nodeType;
  Toolkit::SharedString matchContext;
  float positionX;
  float positionY;
  bool isSelected = false;
};

} // namespace Tesselor
