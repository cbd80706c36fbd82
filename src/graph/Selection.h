#pragma once

#include "graph/MoveRecord.h"
#include "toolkit/base/Object.h"

#include <functional>
#include <unordered_set>
#include <vector>

namespace Tesselor {

class BaseNode;
class ContentNode;
class Graph;
class GroupNode;

/// The selected nodes in order of selecting, and what moves along because it lies inside of selected groups. Keeps the
/// nodes' own mark of being selected in step.
class Selection {
public:
  using Nodes = std::vector<Toolkit::Ptr<BaseNode>>;

  Selection() = default;
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

  /// Called after each change of the selected nodes. What it does must leave the selection alone.
  std::function<void()> onChanged;

  const Nodes& GetNodes() const { return nodes; }
  bool IsEmpty() const { return nodes.empty(); }
  bool Contains(const BaseNode& node) const { return members.contains(&node); }
  /// Appends the node unless it is selected already.
  void Add(BaseNode& node);
  void Remove(BaseNode& node);
  /// Deselects all nodes, and forgets what lies in groups.
  void Clear();

  /// Content nodes and groups. A node that lies inside of two selected groups stands here twice.
  const Nodes& GroupContents() const { return groupContents; }
  /// The selected nodes and what lies in selected groups, each node once, in the order of the document.
  Nodes AllNodes() const;
  /// Adds what of `graph` lies strictly inside of the group now.
  void AddContentsOf(const GroupNode& group, const Graph& graph);

  /// Where what moves with the selection stands: the selected nodes, and if the first of them is a group what lies in
  /// the selected groups. Each node once.
  std::vector<MoveRecord> MoveRecords() const;

  /// For nodes that leave the graph: takes them out of the selection and of the contents of groups, in one pass.
  void Forget(const std::unordered_set<const BaseNode*>& leaving);

private:
  void NoteChange() {
    if (onChanged) onChanged();
  }

  Nodes nodes;
  std::unordered_set<const BaseNode*> members;
  Nodes groupContents;
};

} // namespace Tesselor
