// The reading side of NodeImporterExporter.

#include "document/DocumentImport.h"
#include "document/ImportTarget.h"
#include "document/NodeImporterExporter.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "workspace/Workspace.h"

#include <filesystem>
#include <string_view>
#include <utility>

namespace Tesselor {

namespace {

bool Fail(std::string_view logLine, std::string text, const char* caption) {
  ReportError(logLine, std::move(text), caption);
  return false;
}

bool Exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

} // namespace

std::string NodeImporterExporter::GetWorkspaceID(const std::string& path) {
  if (!Exists(path)) {
    LogFile::Write("GetWorkspaceID: File not found: " + path);
    return {};
  }
  const auto text = ReadTextFile(path);
  if (!text) {
    LogFile::Write("GetWorkspaceID: Failed to open file: " + path);
    return {};
  }
  const JsonParseResult file = ParseJson(*text);
  if (!file) {
    LogFile::Write("GetWorkspaceID: Invalid JSON in file: " + path);
    return {};
  }
  const cJSON* metadata = cJSON_GetObjectItem(file.json.get(), Keys::Metadata);
  const cJSON* place = metadata ? metadata : file.json.get();
  return JsonText(cJSON_GetObjectItem(place, Keys::WorkspaceId)).value_or(std::string());
}

bool NodeImporterExporter::ImportNodeTree(const std::string& filePath, const std::shared_ptr<Workspace>& workspace,
                                          ImportTarget* target) {
  constexpr const char* opening = "Error Opening File";
  if (!Exists(filePath)) return Fail("File not found: " + filePath, "File not found:\n" + filePath, opening);
  const auto text = ReadTextFile(filePath);
  if (!text)
    return Fail("Failed to open file: " + filePath,
                "Failed to open file:\n" + filePath +
                    "\n\nThe file may be in use or you may not have permission to read it.",
                opening);
  const JsonParseResult file = ParseJson(*text);
  if (!file) {
    const std::string detail = file.detail.empty() ? "unknown error" : file.detail;
    return Fail("Invalid JSON in file: " + filePath + " - " + detail,
                "Invalid JSON in file:\n" + filePath + "\n\nError: " + detail, "Error Parsing File");
  }
  return ImportNodeTree(file.json.get(), workspace, target);
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
