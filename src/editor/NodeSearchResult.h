#pragma once

#include "editor/NodeSearchIndex.h"
#include "nodes/BaseNode.h"
#include "toolkit/base/SharedString.h"
#include "toolkit/controls/LongList.h"

namespace Tesselor {

/// One line of the search panel: a node, and where it holds the text. What only the line shows is worked out when it
/// is shown: a search may find every node of a document.
class NodeSearchResult : public Toolkit::ListLine {
  TOOLKIT_TYPE(NodeSearchResult)
public:
  /// `nodeType` is "Content", "Group" or "Comment".
  NodeSearchResult(BaseNode& node, const char* nodeType, SearchMatch match);

  BaseNode* GetNode() const { return node.Get(); }
  const Toolkit::SharedString& GetTitle() const { return title; }
  Toolkit::SharedString GetNodeType() const { return nodeType; }
  /// The text that holds what was found, cut around it if it is long; empty if the title holds it.
  Toolkit::SharedString GetMatchContext() const;
  bool HasMatchContext() const { return !match.text.empty(); }
  /// Panel coordinates.
  float GetPositionX() const { return positionX; }
  float GetPositionY() const { return positionY; }

  // The parts of a line. The found text stands out between what is before and behind it.
  Toolkit::SharedString TitleBefore() const { return PartOf(Where::Title, Part::Before); }
  Toolkit::SharedString TitleMatch() const { return PartOf(Where::Title, Part::Match); }
  Toolkit::SharedString TitleAfter() const { return PartOf(Where::Title, Part::After); }
  Toolkit::SharedString ContextHolder() const;
  Toolkit::SharedString ContextBefore() const { return PartOf(Where::Context, Part::Before); }
  Toolkit::SharedString ContextMatch() const { return PartOf(Where::Context, Part::Match); }
  Toolkit::SharedString ContextAfter() const { return PartOf(Where::Context, Part::After); }
  /// What tells the node from others of its type, behind a title that doesn't.
  Toolkit::SharedString Naming() const;
  /// The title of the node's type; of a frame what it is. Empty if the title says the same.
  Toolkit::SharedString TypeTitle() const;
  /// The titles from the root to the node's parent; empty for what hangs on nothing.
  Toolkit::SharedString Path() const;

private:
  enum class Where { Title, Context };
  enum class Part { Before, Match, After };
  Toolkit::SharedString PartOf(Where where, Part part) const;

  Toolkit::Ptr<BaseNode> node;
  Toolkit::SharedString title;
  const char* nodeType;
  SearchMatch match;
  float positionX;
  float positionY;
};

} // namespace Tesselor
