// The writing side of NodeImporterExporter.

#include "document/DocumentExport.h"
#include "document/NodeImporterExporter.h"
#include "document/RoundedCount.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "platform/AtomicFile.h"
#include "platform/JsonMemory.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "toolkit/application/MessageBox.h"

#include <string_view>
#include <utility>

namespace Tesselor {

namespace {

constexpr char Caption[] = "Export Error";

bool Fail(std::string_view logLine, std::string text) {
  ReportError(logLine, std::move(text), Caption);
  return false;
}

bool FailTooDeep(size_t nesting) {
  const std::string levels = std::to_string(nesting);
  return Fail("ExportNodeTree: Nests too deeply: " + levels + " levels",
              "Cannot export: The file would nest " + levels + " levels deep, and only " +
                  std::to_string(JsonNestingLimit) + " can be opened again.");
}

} // namespace

bool NodeImporterExporter::ExportNodeTree(const std::string& filePath, ContentNode* rootNode,
                                          const std::vector<Toolkit::Ptr<ContentNode>>& nodes,
                                          const std::vector<Toolkit::Ptr<GroupNode>>& groups,
                                          const std::vector<Toolkit::Ptr<CommentNode>>& comments,
                                          const std::string& workspaceId, bool saveAllFields) {
  if (const std::string report = DocumentExport::DescribeLinkMismatches(nodes); !report.empty()) {
    Toolkit::MessageBox::Show(report, Caption);
    return false;
  }
  if (!rootNode) return Fail("ExportNodeTree: rootNode is null", "Cannot export: No root node defined.");
  const FieldsToWrite fields = saveAllFields ? FieldsToWrite::All : FieldsToWrite::Changed;
  DocumentExport document(*rootNode, nodes, fields);
  const DocumentExport::Size size = document.Measure();
  if (size.nesting > JsonNestingLimit) return FailTooDeep(size.nesting);
  if (size.IsTooLarge())
    return Fail("ExportNodeTree: Too many nodes: " + RoundedCount(size.nodes),
                "Cannot export: The file would hold " + RoundedCount(size.nodes) +
                    " nodes, since nodes with several parents are written below each. That is more than can be "
                    "opened again.");
  std::string text;
  {
    const JsonMemory memory;
    const JsonPtr json = document.Build(groups, comments, workspaceId);
    if (!json || memory.RanOut())
      return Fail("ExportNodeTree: Failed to create JSON structure", "Cannot export: Failed to create JSON data.");
    text = PrintJson(json.get());
    if (text.empty() || memory.RanOut())
      return Fail("ExportNodeTree: Failed to convert JSON to string", "Failed to save file: Unable to serialize data.");
  }
  if (const size_t nesting = JsonNesting(text); nesting > JsonNestingLimit) return FailTooDeep(nesting);
  if (const JsonParseResult again = ParseJson(text, JsonTail::Refused); !again)
    return Fail("ExportNodeTree: The result can't be read again: " + again.detail,
                "Cannot export: The file could not be opened again.\n\nError: " + again.detail);
  switch (AtomicFile::Write(filePath, text)) {
  case FileWriteResult::Written: LogFile::Write("Successfully exported to: " + filePath); return true;
  case FileWriteResult::OpenFailed:
    return Fail("ExportNodeTree: Failed to open file for writing: " + filePath,
                "Failed to save file:\n" + filePath +
                    "\n\nThe file may be in use or you may not have permission to write to this location.");
  case FileWriteResult::WriteFailed: break;
  }
  return Fail("ExportNodeTree: Write operation failed for: " + filePath,
              "Failed to write to file:\n" + filePath + "\n\nDisk may be full or a write error occurred.");
}

} // namespace Tesselor
