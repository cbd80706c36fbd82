#include "document/DocumentLosses.h"

#include "document/DocumentExport.h"
#include "document/NodeShapes.h"
#include "document/RoundedCount.h"
#include "document/UnnamedNodes.h"
#include "graph/Graph.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/application/MessageBox.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace Tesselor {

namespace {

/// Takes back the identities that writing gives.
class IdentityScope {
public:
  explicit IdentityScope(const Graph& graph) {
    for (const auto& node : graph.ContentNodes()) {
      if (node->NodeId().empty()) withoutNodeId.push_back(node);
      if (node->linkId.empty()) withoutLinkId.push_back(node);
    }
  }
  ~IdentityScope() {
    for (const auto& node : withoutNodeId) node->SetNodeId({});
    for (const auto& node : withoutLinkId) node->linkId.clear();
  }
  IdentityScope(const IdentityScope&) = delete;
  IdentityScope& operator=(const IdentityScope&) = delete;

private:
  std::vector<Toolkit::Ptr<ContentNode>> withoutNodeId, withoutLinkId;
};

/// Fields that can't write their value say so when the user saves, not before.
class SilentBoxes {
public:
  SilentBoxes() : former(Toolkit::MessageBox::SetPresenter([](Toolkit::MessageBox::Request) {})) {}
  ~SilentBoxes() { Toolkit::MessageBox::SetPresenter(std::move(former)); }
  SilentBoxes(const SilentBoxes&) = delete;
  SilentBoxes& operator=(const SilentBoxes&) = delete;

private:
  Toolkit::MessageBox::Presenter former;
};

/// No fewer than the nodes that a file holds.
size_t CountObjects(const cJSON* value) {
  size_t count = cJSON_IsObject(value) ? 1 : 0;
  const cJSON* child = nullptr;
  cJSON_ArrayForEach(child, value) count += CountObjects(child);
  return count;
}

std::vector<Loss> LossesBy(FieldsToWrite fields, const cJSON& file, const std::vector<LongNumber>& longNumbers,
                           const Graph& graph, const RootType& root) {
  const std::string text = DocumentExport(*graph.Root(), graph.ContentNodes(), fields)
                               .Print(graph.GroupNodes(), graph.CommentNodes(), root.MenuName);
  const JsonPtr exported = ParseJson(text, JsonTail::Refused).json;
  if (!exported) return {};
  static const NodeDictionary builtIn;
  const NodeShapes shapes(root.workspace ? *root.workspace->nodeDictionary : builtIn, graph.ContentNodes());
  return FindLosses(file, *exported, shapes, longNumbers);
}

} // namespace

std::vector<DocumentLoss> FindDocumentLosses(const cJSON& file, const std::vector<LongNumber>& longNumbers,
                                             const Graph& graph, const RootType& root) {
  if (!DocumentExport::DescribeLinkMismatches(graph.ContentNodes()).empty()) return {};
  const IdentityScope identities(graph);
  const SilentBoxes silent;
  const bool saveAllFields = root.workspace && root.workspace->ExportDefaults;
  const size_t count = graph.ContentNodes().size();
  const DocumentExport::Size size = DocumentExport(*graph.Root(), graph.ContentNodes(), FieldsToWrite::All).Measure();
  if (!size.CanBeRead()) return {};
  if (size.IsMultiplied(std::max(count, CountObjects(&file)))) {
    Loss loss{"$", std::to_string(count) + " nodes", RoundedCount(size.nodes), {}};
    return {{std::move(loss), {}}};
  }
  std::vector<Loss> losses =
      LossesBy(saveAllFields ? FieldsToWrite::All : FieldsToWrite::Changed, file, longNumbers, graph, root);
  if (!losses.empty() && !saveAllFields) {
    std::unordered_set<std::string> lostInAnyCase;
    for (Loss& loss : LossesBy(FieldsToWrite::All, file, longNumbers, graph, root))
      lostInAnyCase.insert(std::move(loss.path));
    std::erase_if(losses, [&](const Loss& loss) { return !lostInAnyCase.contains(loss.path); });
  }

  std::unordered_map<std::string_view, ContentNode*> nodes;
  for (const auto& node : graph.ContentNodes())
    if (!node->NodeId().empty()) nodes.emplace(node->NodeId(), node.Get());
  std::vector<DocumentLoss> result;
  for (Loss& loss : losses) {
    const auto found = nodes.find(loss.nodeId);
    result.push_back({std::move(loss), found == nodes.end() ? nullptr : found->second});
  }
  for (ContentNode* link : UnnamedNodes::FindUnidentified(graph))
    result.push_back({{"$",
                       "connections of \"" + std::string(link->Title()) + "\" to nodes without identity",
                       "none after the next load",
                       {}},
                      link});
  return result;
}

std::string WriteLosses(const std::vector<DocumentLoss>& losses, const std::vector<Toolkit::Ptr<ContentNode>>& nodes) {
  std::unordered_map<const ContentNode*, size_t> indices;
  for (size_t i = 0; i < nodes.size(); ++i) indices.emplace(nodes[i].Get(), i);
  const JsonPtr list(cJSON_CreateArray());
  for (const auto& [loss, node] : losses) {
    for (const std::string* text : {&loss.path, &loss.was, &loss.becomes})
      cJSON_AddItemToArray(list.get(), cJSON_CreateString(text->c_str()));
    const auto found = indices.find(node.Get());
    cJSON_AddItemToArray(list.get(),
                         cJSON_CreateNumber(found == indices.end() ? -1 : static_cast<double>(found->second)));
  }
  return PrintJson(list.get(), JsonForm::Compact);
}

std::vector<DocumentLoss> ReadLosses(const std::string& text, const std::vector<Toolkit::Ptr<ContentNode>>& nodes) {
  const JsonPtr list = ParseJson(text).json;
  std::vector<DocumentLoss> losses;
  for (const cJSON* item = list ? list->child : nullptr; item; item = item->next) {
    DocumentLoss& read = losses.emplace_back();
    for (std::string* member : {&read.loss.path, &read.loss.was, &read.loss.becomes}) {
      *member = JsonText(item).value_or(std::string());
      if (item->next) item = item->next;
    }
    const auto index = static_cast<size_t>(item->valuedouble);
    if (item->valuedouble >= 0 && index < nodes.size()) read.node = Toolkit::WeakPtr<ContentNode>(nodes[index].Get());
  }
  return losses;
}

} // namespace Tesselor
