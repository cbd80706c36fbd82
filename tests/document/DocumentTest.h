#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "TestGraph.h"
#include "platform/JsonFile.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace TestSupport {

/// Base of the tests of the document walks: a workspace with a few node types, and an import and export of JSON texts
/// through a view without a window. Boxes and log lines are kept; toolkit warnings fail the test.
///
/// "Doc" is the root: fields "Name" and "Count", a constant, a list, a single pin, a map, a pair of field and pin.
/// "Item" hangs on all of them and has a list and a single pin of its own; "Entry" holds a scalar of the map. "Free"
/// takes unknown keys as "Property" nodes and an object "Params" as "Parameter" nodes.
class DocumentTest : public testing::Test {
protected:
  explicit DocumentTest(std::string rootNodeType = "Doc");
  ~DocumentTest() override;

  /// Starts a workspace with those node types alone. The view belongs to the former one and goes.
  void StartWorkspace();
  void AddSchema(const std::string& json);
  bool Import(const std::string& json);
  /// The whole document, unformatted.
  std::string Export(bool saveAllFields = false);
  /// The same without the metadata. UUIDs made by the export stand as "<new>".
  std::string ExportAsset();
  /// The metadata's member of that name.
  std::string ExportMetadata(const char* key);
  /// Import and export of an asset in a view of its own.
  std::string RoundTrip(const std::string& json);
  void StartView(const std::string& rootNodeType);

  CapturedBoxes boxes;
  CapturedLog log;
  std::shared_ptr<Tesselor::Workspace> workspace = std::make_shared<Tesselor::Workspace>();
  std::unique_ptr<TestGraph> view;

private:
  Tesselor::JsonPtr Build(bool saveAllFields);
};

/// `text` with each single quote as a double one, which keeps JSON readable in a source.
std::string Quoted(std::string text);

std::string PrintUnformatted(const cJSON* json);

} // namespace TestSupport
