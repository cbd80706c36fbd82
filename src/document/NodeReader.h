#pragma once

#include "nodes/ContentNode.h"
#include "toolkit/base/Object.h"

#include <string>

struct cJSON;

namespace Tesselor {

class ContentNode;
class DocumentPrint;
class Graph;
class NodeDictionary;
class NodePinData;
class PasteDetails;
class Workspace;
struct NodeEntry;
struct NodePinTarget;

/// What becomes of the nodes that reading makes.
enum class NewNodes { Unselected, Selected };

/// Reads nodes and all below them from JSON objects: sets their fields, makes their children, and queues the
/// connections, which are made once all nodes are there. One reader serves one load or one paste. How deep it goes is
/// bounded by the parser.
class NodeReader {
public:
  /// All outlive the reader; the workspace's schemas are loaded. `print` is that of the document that is read, from
  /// which the log's texts are cut; without it they are printed one by one. With `paste`, the nodes are those of a
  /// paste and take over no UUIDs.
  NodeReader(Graph& graph, const Workspace& workspace, NewNodes newNodes, DocumentPrint* print = nullptr,
             PasteDetails* paste = nullptr)
      : graph(graph), workspace(workspace), newNodes(newNodes), print(print), paste(paste) {}

  bool IsPaste() const { return paste != nullptr; }
  /// Whether the node is that of the whole document.
  bool IsRoot(const ContentNode& node) const;
  /// The nodes whose own objects say where they stand.
  const NodeSet& PlacedNodes() const { return placed; }
  const Workspace& GetWorkspace() const { return workspace; }
  const NodeDictionary& Dictionary() const;

  /// Puts a new node into the middle of the panel.
  void Add(ContentNode& node);
  /// What tells the node of an object from others: `uuid`, that of its "$NodeId", or in a paste its label. Empty if it
  /// has none.
  std::string IdentityOf(const NodeEntry& entry, const std::string& uuid) const;
  /// Null if the graph, or in a paste that, has none with that identity.
  ContentNode* FindNode(const std::string& identity) const;
  void SetIdentity(ContentNode& node, const std::string& identity);
  /// Puts a child, which has read itself, where its parent's object says.
  void Place(ContentNode& child, const NodeEntry& entry);
  /// Notes that the node has a place if its object gives one.
  void NotePlace(const ContentNode& node, const NodeEntry& entry);
  /// Queues a connection between two pins.
  void Connect(NodePinData& childPin, NodePinData& parentPin);

  /// What a node has of its own: title, comment, name and place, then each member in the order of the file.
  void ReadBody(ContentNode& node, const cJSON* json);
  void LogNode(const ContentNode& node, const cJSON* json) const;
  /// Logs a value that no save would write again, and tells the user.
  void ReportUnknownField(const ContentNode& node, const char* key, const cJSON* value) const;
  /// Logs it only, and returns the text.
  std::string LogUnknownField(const ContentNode& node, const char* key, const cJSON* value) const;

private:
  void ReadMember(ContentNode& node, const cJSON* json, const cJSON* member);
  // These return false for what is not theirs.
  bool ReadPinMember(ContentNode& node, const cJSON* json, const cJSON* member, const NodePinTarget& target);
  bool ReadAdditionalProperty(ContentNode& node, const cJSON* member);
  bool ReadParameters(ContentNode& node, const cJSON* member);

  void ReadMadeUp(const cJSON* object, const NodePinTarget& target, NodePinData& pin);
  void ReadGeneric(ContentNode& node, const cJSON* member);
  void ReadChildrenOfLink(ContentNode& node, const cJSON* array);
  void AppendPrint(std::string& text, const cJSON* json) const;

  Graph& graph;
  const Workspace& workspace;
  NewNodes newNodes;
  DocumentPrint* print;
  /// Null in a load.
  PasteDetails* paste;
  NodeSet placed;
};

} // namespace Tesselor
