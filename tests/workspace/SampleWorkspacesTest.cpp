#include "support/CapturedBoxes.h"
#include "support/CapturedLog.h"
#include "workspace/Workspace.h"
#include "workspace/Workspaces.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using Tesselor::NodeBlueprint;
using Tesselor::NodeDictionary;

bool HasPin(const NodeBlueprint& node, const std::string& id) {
  return std::any_of(node.outputs.begin(), node.outputs.end(), [&](const auto& pin) { return pin->id == id; });
}

bool HasField(const NodeBlueprint& node, const std::string& id) {
  const auto has = [&](const auto& fields) {
    return std::any_of(fields.begin(), fields.end(), [&](const auto& field) { return field->Id == id; });
  };
  const auto pinHas = [&](const auto& pin) { return has(pin->fields); };
  return has(node.content) || std::any_of(node.inputs.begin(), node.inputs.end(), pinHas) ||
         std::any_of(node.outputs.begin(), node.outputs.end(), pinHas);
}

/// A schema that names what isn't there loads all the same and only shows in what is written, so the samples need a
/// check of their own.
void CheckReferences(const NodeDictionary& dictionary) {
  const auto isNode = [&](const std::string& id) {
    EXPECT_TRUE(dictionary.FindBlueprint(id)) << id;
    EXPECT_EQ(id.find('-'), std::string::npos) << id;
  };
  for (const auto& [category, ids] : dictionary.categories) std::for_each(ids.begin(), ids.end(), isNode);
  for (const auto& [family, variant] : dictionary.variants) {
    const std::string* firstPin = nullptr;
    for (const auto& [value, id] : variant->Variants) {
      isNode(id);
      const NodeBlueprint* node = dictionary.FindBlueprint(id);
      if (!node || node->inputs.empty()) continue;
      // The pin that is found for the first child of an array is used by name for the others.
      if (!firstPin) firstPin = &node->inputs[0]->id;
      EXPECT_EQ(node->inputs[0]->id, *firstPin) << family << " " << id;
    }
  }
  for (const auto& [id, node] : dictionary.blueprints) {
    EXPECT_EQ(node->schemaKeys.size(), node->schema.size() + node->pinSchema.size()) << id;
    for (const auto& [key, field] : node->schema)
      EXPECT_TRUE(field.starts_with("$Const:") || HasField(*node, field)) << id << " " << key;
    for (const auto& [key, target] : node->pinSchema) {
      EXPECT_TRUE(HasPin(*node, target.pin)) << id << " " << key;
      EXPECT_TRUE(dictionary.FindVariant(target.node) || dictionary.FindBlueprint(target.node)) << id << " " << key;
    }
  }
}

TEST(SampleWorkspaces, LoadWithoutAComplaintAndNameOnlyWhatIsThere) {
  TestSupport::CapturedLog log;
  TestSupport::CapturedBoxes boxes;
  Tesselor::Workspaces workspaces;
  ASSERT_TRUE(workspaces.ImportWorkspaces(TESSELOR_DATA_DIR "/Workspaces"));
  EXPECT_EQ(workspaces.GetRootNames(),
            (std::vector<std::string>{"Quest", "Dialogue", "Character", "Sound bank", "Mixer"}));
  for (const auto& [name, root] : workspaces.Roots) {
    EXPECT_TRUE(root->workspace->LoadNodeDictionary());
    EXPECT_FALSE(root->workspace->nodeDictionary->lacksSchemas) << name;
    EXPECT_TRUE(root->workspace->nodeDictionary->FindBlueprint(root->RootNodeType)) << name;
    for (const auto& [type, id] : root->workspace->AssetTypeComponents)
      EXPECT_TRUE(root->workspace->nodeDictionary->FindBlueprint(id)) << type;
    CheckReferences(*root->workspace->nodeDictionary);
  }
  EXPECT_TRUE(boxes.boxes.empty());
  for (const std::string& line : log.lines)
    EXPECT_TRUE(line.find("Warning") == std::string::npos && line.find("Failed") == std::string::npos) << line;
}

} // namespace
