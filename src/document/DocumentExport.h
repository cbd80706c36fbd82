#pragma once

#include "document/NodeWriter.h"
#include "platform/JsonFile.h"
#include "toolkit/base/Object.h"

#include <string>
#include <vector>

namespace Tesselor {

class CommentNode;
class GroupNode;

/// Builds the JSON of one document: the asset, and behind it the editor's metadata. Gives UUIDs to nodes and links
/// that have none, and changes nothing else.
class DocumentExport {
public:
  /// The lists outlive the export.
  DocumentExport(ContentNode& rootNode, const std::vector<Toolkit::Ptr<ContentNode>>& nodes, FieldsToWrite fields)
      : rootNode(rootNode), nodes(nodes), writer(fields) {}

  struct Size {
    /// How many nodes are written; one with several parents below each.
    double nodes = 0;
    /// How deeply the JSON nests at least.
    size_t nesting = 0;
    /// Whether nodes with several parents make more of a document than anyone expects of a save.
    bool IsMultiplied(size_t nodesOfDocument) const { return nodes > 10 * static_cast<double>(nodesOfDocument); }
    /// A file of so many nodes takes more memory than machines have.
    bool IsTooLarge() const { return nodes > 10'000'000; }
    /// False for what would be refused when it is read again.
    bool CanBeRead() const { return nesting <= JsonNestingLimit && !IsTooLarge(); }
  };
  /// How large the document becomes, in time linear in its connections.
  Size Measure() const;

  JsonPtr Build(const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                const std::vector<Toolkit::Ptr<CommentNode>>& comments, const std::string& workspaceId);

  /// The text of the same; empty if it could not be read again, or if there is not enough memory for it.
  std::string Print(const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                    const std::vector<Toolkit::Ptr<CommentNode>>& comments, const std::string& workspaceId);

  /// Why the pass-through nodes can't be written: those whose sides are connected to different types. Empty if all are
  /// sound.
  static std::string DescribeLinkMismatches(const std::vector<Toolkit::Ptr<ContentNode>>& nodes);

private:
  /// What is written among the floating nodes, in the order of the document.
  std::vector<ContentNode*> FloatingTops() const;
  JsonPtr BuildNodes() const;
  JsonPtr BuildFloatingNodes();
  JsonPtr BuildLinks() const;

  ContentNode& rootNode;
  const std::vector<Toolkit::Ptr<ContentNode>>& nodes;
  NodeWriter writer;
};

} // namespace Tesselor
