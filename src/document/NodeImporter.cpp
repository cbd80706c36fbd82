// The reading side of NodeImporterExporter.

#include "document/DocumentImport.h"
#include "document/ImportTarget.h"
#include "document/NodeImporterExporter.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "workspace/Workspace.h"

#include <string_view>
#include <utility>

namespace Tesselor {

namespace {

bool Fail(std::string_view logLine, std::string text, const char* caption) {
  ReportError(logLine, std::move(text), caption);
  return false;
}

} // namespace

std::string NodeImporterExporter::GetWorkspaceID(const cJSON* document) {
  const cJSON* metadata = cJSON_GetObjectItem(document, Keys::Metadata);
  return JsonText(cJSON_GetObjectItem(metadata ? metadata : document, Keys::WorkspaceId)).value_or(std::string());
}

bool NodeImporterExporter::ImportNodeTree(const cJSON* jsonData, const std::shared_ptr<Workspace>& workspace,
                                          ImportTarget* target) {
  constexpr const char* importing = "Error Importing";
  if (!jsonData)
    return Fail("ImportNodeTree: jsonData is null", "Cannot import node tree: No data provided.", importing);
  if (!workspace)
    return Fail("ImportNodeTree: workspace is null", "Cannot import node tree: No workspace selected.", importing);
  if (!target) {
    LogFile::Write("ImportNodeTree: mainView is null");
    return false;
  }
  if (!workspace->nodeDictionary)
    return Fail("ImportNodeTree: NodeDictionary is null - workspace may not be fully loaded",
                "Cannot import node tree: Workspace schemas not loaded.", importing);
  if (!target->root)
    return Fail("ImportNodeTree: No root type selected", "Cannot import node tree: No root type selected.", importing);
  return DocumentImport(jsonData, *workspace, *target).Run(target->root->RootNodeType);
}

} // namespace Tesselor
