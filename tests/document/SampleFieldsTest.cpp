// The samples are what shows that every kind of field comes through a load and a save, so each kind must be in them.
#include "DocumentTest.h"

#include "document/NodeImporterExporter.h"
#include "fields/FieldObject.h"
#include "nodes/ReferenceNode.h"
#include "workspace/NodeFieldBlueprint.h"
#include "workspace/NodePinBlueprint.h"
#include "workspace/Workspaces.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace {

using namespace Tesselor;

class SampleFields : public TestSupport::DocumentTest {
protected:
  void CollectFrom(const std::string& type, const cJSON* options, const BaseField& field) {
    if (type == "Label") kinds.insert(type);
    if (!field.HasLoadedValue()) return;
    if (type == "Object") {
      kinds.insert(type);
      const cJSON* child = nullptr;
      cJSON_ArrayForEach(child, cJSON_GetObjectItem(options, "Fields")) {
        const cJSON* childOptions = cJSON_GetObjectItem(child, "Options");
        const auto& object = static_cast<const FieldObject&>(field);
        const BaseField* nested = object.FindField(*JsonText(cJSON_GetObjectItem(child, "Id")));
        const std::string childType = *JsonText(cJSON_GetObjectItem(child, "Type"));
        if (childType == "Object") kinds.insert("Object in Object");
        CollectFrom(childType, childOptions, *nested);
      }
    } else if (!field.GetValueAsString().empty()) {
      std::string kind = type;
      if (type == "List" || type == "Dictionary")
        kind += " " + JsonText(cJSON_GetObjectItem(options, "Type")).value_or("string");
      if (cJSON_IsTrue(cJSON_GetObjectItem(options, "UseUUID"))) kind += " uuid";
      kinds.insert(kind);
    }
  }
  void CollectFrom(const ContentNode& node) {
    const auto collect = [&](const std::vector<std::unique_ptr<NodeFieldBlueprint>>& fields) {
      for (const auto& blueprint : fields)
        if (const BaseField* field = node.FindField(blueprint->Id))
          CollectFrom(blueprint->Type, blueprint->Options.get(), *field);
    };
    collect(node.Blueprint().content);
    for (const auto& pin : node.Blueprint().inputs) collect(pin->fields);
    for (const auto& pin : node.Blueprint().outputs) collect(pin->fields);
    if (node.Blueprint().isReference)
      for (const auto& [name, field] : node.contentFields)
        kinds.insert("reference with " + std::string(static_cast<Toolkit::Object&>(*field).GetType().Name()));
  }

  std::set<std::string> kinds;
};

TEST_F(SampleFields, AreOfEveryKindAndHoldValues) {
  Workspaces workspaces;
  ASSERT_TRUE(workspaces.ImportWorkspaces(TESSELOR_DATA_DIR "/Workspaces"));
  for (const auto& entry : std::filesystem::directory_iterator(TESSELOR_DATA_DIR "/samples")) {
    if (entry.path().extension() != ".json" || entry.path().stem() == "plain") continue;
    SCOPED_TRACE(entry.path().string());
    const JsonParseResult asset = ParseJson(ReadTextFile(entry.path().string()).value_or(""));
    const cJSON* metadata = cJSON_GetObjectItem(asset.json.get(), "$NodeEditorMetadata");
    const auto root = workspaces.FindRoot(JsonText(cJSON_GetObjectItem(metadata, "$WorkspaceID")).value_or(""));
    ASSERT_TRUE(root);
    root->workspace->LoadNodeDictionary();
    StartView(root->RootNodeType);
    ASSERT_TRUE(NodeImporterExporter::ImportNodeTree(asset.json.get(), root->workspace, &view->target));
    for (const auto& node : (*view)->ContentNodes()) CollectFrom(*node);
  }
  const std::set<std::string> wanted = {"SmallString",
                                        "String",
                                        "Checkbox",
                                        "Int",
                                        "IntSlider",
                                        "Float",
                                        "RawJson",
                                        "Label",
                                        "Mixed",
                                        "Spacer",
                                        "FilePath",
                                        "FilePath uuid",
                                        "Enum",
                                        "EnumFilterable",
                                        "Object",
                                        "Object in Object",
                                        "List string",
                                        "List uuid",
                                        "List int",
                                        "List float",
                                        "Dictionary string",
                                        "Dictionary uuid",
                                        "Dictionary int",
                                        "Dictionary float",
                                        "Dictionary bool",
                                        "Dictionary mixed",
                                        "reference with Tesselor.FieldInt",
                                        "reference with Tesselor.FieldFloat",
                                        "reference with Tesselor.FieldSmallText"};
  EXPECT_EQ(kinds, wanted);
}

} // namespace
