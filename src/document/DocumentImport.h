#pragma once

#include "document/LinkImport.h"
#include "nodes/ContentNode.h"

#include <optional>
#include <string>

struct cJSON;

namespace Tesselor {

class NodeReader;
class Workspace;
struct ImportTarget;

/// One import of a parsed document into a view. It lives for that one pass, which isn't undoable and has no rollback.
class DocumentImport {
public:
  /// All three outlive the import; the workspace's schemas are loaded.
  DocumentImport(const cJSON* document, const Workspace& workspace, ImportTarget& target);

  /// False, with a box and a log line, if no root node can be made; then the view is as it was.
  bool Run(const std::string& rootNodeType);

private:
  /// The id of the root's node type behind a variant family; nothing if the file doesn't say, which the user was told.
  std::optional<std::string> ResolveRootType(const std::string& rootNodeType) const;
  /// The tree, and behind it the trees that hang on nothing.
  /// The result are the nodes whose own objects say where they stand.
  NodeSet ReadNodes(ContentNode& root);
  void ReadFloatingNode(const cJSON* item, NodeReader& reader);
  void ReadGroups();
  void ReadComments();
  /// `inlinePlaced` are the nodes whose objects gave them a place.
  void ApplyLayout(const NodeSet& inlinePlaced);
  /// Places and titles from the metadata; `placed` gets the nodes that have a place there.
  void ApplyPlaces(const cJSON* places, NodeSet& placed);
  void HideUnusedPins();

  const cJSON* document;
  /// Where the editor's own data stands: the metadata object, or the top level of a file that has none.
  const cJSON* metadata;
  const Workspace& workspace;
  ImportTarget& target;
  Graph& view;
};

} // namespace Tesselor
