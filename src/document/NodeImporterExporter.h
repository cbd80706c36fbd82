#pragma once

#include "toolkit/base/Object.h"

#include <memory>
#include <string>
#include <vector>

struct cJSON;

namespace Tesselor {

class CommentNode;
class ContentNode;
class GroupNode;
struct ImportTarget;
class Workspace;

/// Brings an asset document into a view and out of it. Static operations without state. What fails is told to the
/// user and the log here.
class NodeImporterExporter {
public:
  /// The menu name of the root that a document names; empty if it names none.
  static std::string GetWorkspaceID(const cJSON* document);

  /// True if the document now stands in the graph; on false the caller empties it again.
  static bool ImportNodeTree(const cJSON* jsonData, const std::shared_ptr<Workspace>& workspace, ImportTarget* target);

  /// True if the file was written; otherwise the old file is there unchanged. Gives UUIDs to nodes and links that
  /// have none, and changes nothing else. `saveAllFields` writes fields that hold their default, too.
  static bool ExportNodeTree(const std::string& filePath, ContentNode* rootNode,
                             const std::vector<Toolkit::Ptr<ContentNode>>& nodes,
                             const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                             const std::vector<Toolkit::Ptr<CommentNode>>& comments, const std::string& workspaceId,
                             bool saveAllFields);
};

} // namespace Tesselor
