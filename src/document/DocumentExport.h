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

  JsonPtr Build(const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                const std::vector<Toolkit::Ptr<CommentNode>>& comments, const std::string& workspaceId);

  /// Why the pass-through nodes can't be written: those whose sides are connected to different types. Empty if all are
  /// sound.
  static std::string DescribeLinkMismatches(const std::vector<Toolkit::Ptr<ContentNode>>& nodes);

private:
  JsonPtr BuildNodes() const;
  JsonPtr BuildFloatingNodes();
  JsonPtr BuildLinks() const;

  ContentNode& rootNode;
  const std::vector<Toolkit::Ptr<ContentNode>>& nodes;
  NodeWriter writer;
};

} // namespace Tesselor
