// Pastes any text into a graph. What is pasted is taken away and brought back; copied and pasted again it stays what it
// is.

#include "TreeMutator.h"
#include "app/ComponentRegistration.h"
#include "commands/BatchPasteNodeActionCommand.h"
#include "document/ClipboardText.h"
#include "document/DocumentExport.h"
#include "document/NodeCopy.h"
#include "document/NodePaste.h"
#include "fields/FieldRawJson.h"
#include "nodes/GenericContentNode.h"
#include "platform/LogFile.h"
#include "support/TestGraph.h"
#include "support/ToolkitEnvironment.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/base/Diagnostics.h"
#include "workspace/Workspace.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

using namespace Tesselor;

namespace {

using Nodes = std::vector<Toolkit::Ptr<BaseNode>>;

/// A node with a pin of each kind, one with two inputs of a type and a pin without a key, a map's value, a reference,
/// and one that takes any keys.
constexpr const char* schemas[] = {
    R"({"id": "Item", "title": "Item", "color": "red",
        "inputs": [{"id": "in", "Type": "T", "color": "red", "Multiple": true}],
        "outputs": [{"id": "items", "Type": "T", "color": "red", "Multiple": true}, {"id": "one", "Type": "T", "color": "red"},
                    {"id": "map", "Type": "T", "color": "red", "Multiple": true, "IsMap": true}],
        "content": [{"Id": "label", "Type": "SmallString", "Options": {"Default": ""}}, {"Id": "raw", "Type": "RawJson"}],
        "Schema": {"Label": "label", "Raw": "raw", "Items": {"node": "Item", "pin": "items"},
                   "One$Pin": {"node": "Item", "pin": "one"}, "Map": {"node": "Entry", "pin": "map"}}})",
    R"({"id": "Odd", "title": "Odd", "color": "red",
        "inputs": [{"id": "a", "Type": "T", "color": "red"}, {"id": "b", "Type": "T", "color": "red", "Multiple": true}],
        "outputs": [{"id": "free", "Type": "T", "color": "red", "Multiple": true}], "Schema": {}})",
    R"({"id": "Entry", "title": "Entry", "color": "red", "inputs": [{"id": "in", "Type": "T", "color": "red"}],
        "content": [{"Id": "key", "Type": "SmallString"}, {"Id": "value", "Type": "Mixed"}],
        "Schema": {"$Key": "key", "$Value": "value"}})",
    R"({"id": "File", "title": "File", "color": "red", "isreference": true, "filerefkey": "FileId", "filerefvalue": "Id",
        "modifykey": "Values", "inputs": [{"id": "in", "Type": "T", "color": "red"}]})",
    R"({"id": "Free", "title": "Free", "color": "red", "inputs": [{"id": "in", "Type": "T", "color": "red"}],
        "outputs": [{"id": "properties", "Type": "P", "color": "red", "Multiple": true}],
        "Schema": {"$AdditionalProperties$Pin": {"node": "Property", "pin": "properties"}}})",
    R"({"id": "Property", "title": "Property", "color": "red", "inputs": [{"id": "in", "Type": "P", "color": "red"}],
        "content": [{"Id": "key", "Type": "SmallString"}, {"Id": "value", "Type": "SmallString"}],
        "Schema": {"$Key": "key", "Value": "value"}})"};

constexpr const char* words[] = {
    "$NodeId", "$Generic", "$Link",  "$Position",   "$x",          "$y",        "$Title",    "$Comment", "$text",
    "$width",  "$height",  "$name",  "$fontSize",   "$Copied",     "label",     "mapKey",    "links",    "connections",
    "items",   "one",      "map",    "GenericOut",  "free",        "1:in",      "2:in",      "1:a",      "2:b",
    "1",       "2",        "Item",   "Odd",         "Entry",       "File",      "Free",      "Link",     "Generic",
    "Items",   "One$Pin",  "Map",    "Raw",         "Label",       "Children",  "$FileName", "FileId",   "Values",
    "$Key",    "$Value",   "Item-1", "[ROOT] Item", "2:GenericIn", "1:Generic", "}{",        "",         "\xff"};

const Workspace& Start() {
  static const Workspace* const workspace = [] {
    LogFile::SetSink([](std::string_view) {});
    Toolkit::SetLogHandler([](const char*, uint32_t, Toolkit::LogLevel, const char*, const char*) {});
    Toolkit::MessageBox::SetPresenter([](Toolkit::MessageBox::Request) {});
    TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
    auto* made = new Workspace;
    made->nodeDictionary = std::make_unique<NodeDictionary>();
    for (const char* schema : schemas) made->nodeDictionary->AddSchema(ParseJson(schema).json.get());
    return made;
  }();
  return *workspace;
}

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

/// What is written the second time: the first gives out identities.
std::string Exported(TestSupport::TestGraph& graph) {
  DocumentExport document(*graph->Root(), graph->ContentNodes(), FieldsToWrite::Changed);
  document.Build(graph->GroupNodes(), graph->CommentNodes(), "Root");
  return PrintJson(document.Build(graph->GroupNodes(), graph->CommentNodes(), "Root").get());
}

Nodes Paste(TestSupport::TestGraph& graph, const std::string& text, Toolkit::Point place) {
  const size_t count = graph->ContentNodes().size();
  Nodes nodes = NodePaste(*graph, Start()).Run(ReadClipboardText(text), place);
  Require(graph->PendingConnections().empty(), "connections are left over");
  Require(graph->ContentNodes().size() >= count, "nodes of the document were lost");
  Nodes pasted = nodes;
  std::sort(pasted.begin(), pasted.end(),
            [](const auto& a, const auto& b) { return a->DocumentOrder() < b->DocumentOrder(); });
  Require(graph->Selected().AllNodes() == pasted, "something else is selected than what was pasted");
  return nodes;
}

/// Whether a text that the user may have typed makes its node another one for a reader.
bool HoldsEditorKeys(const Nodes& nodes) {
  return std::any_of(nodes.begin(), nodes.end(), [](const auto& node) {
    const auto* generic = Toolkit::DynamicCast<GenericContentNode>(node.Get());
    return generic && generic->RawField()->GetValueAsString().find("\"$") != std::string::npos;
  });
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
  LogFile::SetSink([](std::string_view) {});
  const std::vector<JsonPtr> objects = ReadClipboardText({reinterpret_cast<const char*>(data), size});
  if (seed % 16 == 0 || objects.empty()) return LLVMFuzzerMutate(data, size, maxSize);
  TestSupport::TreeMutator mutator(seed, words);
  if (!mutator.Change(objects[seed % objects.size()].get(), objects[seed / 7 % objects.size()].get()))
    return LLVMFuzzerMutate(data, size, maxSize);
  std::string joined;
  for (const JsonPtr& object : objects) joined += PrintJson(object.get(), JsonForm::Compact);
  if (joined.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::copy(joined.begin(), joined.end(), data);
  return joined.size();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const Workspace& workspace = Start();
  TestSupport::TestGraph graph("Item");
  const Toolkit::Ptr<ContentNode> root = workspace.nodeDictionary->CreateNode("Item", true);
  graph->Add(*root, {1000, 500});
  graph->SetRootNode(root.Get());
  const std::string before = Exported(graph);
  Nodes nodes = Paste(graph, {reinterpret_cast<const char*>(data), size}, {1100, 600});
  if (nodes.empty()) return 0;
  const std::string after = Exported(graph);
  std::optional<NodeCopy> copy = CopySelection(*graph);
  bool isOdd = HoldsEditorKeys(nodes);
  BatchPasteNodeActionCommand command(*graph, std::move(nodes), {});
  command.Undo();
  Require(Exported(graph) == before, "a paste is not taken away");
  command.Do();
  Require(Exported(graph) == after, "a paste is not brought back");
  // The first copy still holds what no copy gives back.
  for (int i = 0; copy && i < 2; ++i) {
    isOdd |= HoldsEditorKeys(Paste(graph, copy->text, copy->corner));
    const std::optional<NodeCopy> next = CopySelection(*graph);
    Require(i == 0 || !next || isOdd || next->text == copy->text, "a copy changes when it is pasted and copied");
    copy = next;
  }
  return 0;
}
