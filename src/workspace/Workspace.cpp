#include "workspace/Workspace.h"

#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "workspace/DirectoryWalk.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace Tesselor {

namespace {

constexpr char ErrorCaption[] = "Error Loading Schema";

bool IsSchemaFile(const DirectoryEntry& entry) {
  return entry.isRegularFile && entry.name != "_Workspace.json" && entry.path.extension() == ".json";
}

/// The configuration's JSON; null after a failure, which has been reported then.
JsonPtr ReadConfiguration(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error)) {
    ReportError("Workspace configuration file not found: " + path, "Workspace configuration file not found:\n" + path,
                ErrorCaption);
    return nullptr;
  }
  const std::optional<std::string> text = ReadTextFile(path);
  if (!text) {
    ReportError("Failed to open workspace configuration file: " + path,
                "Failed to open workspace configuration file:\n" + path, ErrorCaption);
    return nullptr;
  }
  JsonParseResult parsed = ParseJson(*text);
  if (!parsed) {
    const std::string& detail = parsed.detail;
    ReportError("Invalid JSON in workspace configuration: " + path + " - " + detail,
                "Invalid JSON in workspace configuration:\n" + path + "\n\nError: " + detail, ErrorCaption);
  }
  return std::move(parsed.json);
}

} // namespace

bool Workspace::LoadNodeDictionary() {
  if (nodeDictionary) return true;
  const std::string path = ConfigurationPath(directory);
  {
    const JsonPtr configuration = ReadConfiguration(path);
    if (!configuration) return false;
    nodeDictionary = std::make_unique<NodeDictionary>();
    ReadCategories(configuration.get(), path);
    ReadVariants(configuration.get());
    ReadAssetTypeComponents(configuration.get());
  }
  LoadSchemas();
  return true;
}

void Workspace::ReadCategories(const cJSON* configuration, const std::string& path) {
  const cJSON* categories = cJSON_GetObjectItem(configuration, "NodeCategories");
  if (!cJSON_IsObject(categories)) {
    LogFile::Write("Warning: 'NodeCategories' section missing or invalid in: " + path);
    return;
  }
  const cJSON* category = nullptr;
  cJSON_ArrayForEach(category, categories) {
    const cJSON* entry = nullptr;
    cJSON_ArrayForEach(entry, category) {
      if (const auto nodeId = JsonText(entry)) nodeDictionary->AddToCategory(category->string, *nodeId);
    }
  }
}

void Workspace::ReadVariants(const cJSON* configuration) {
  const cJSON* families = cJSON_GetObjectItem(configuration, "Variants");
  if (!cJSON_IsObject(families)) return;
  const cJSON* family = nullptr;
  cJSON_ArrayForEach(family, families) {
    const std::string key = family->string;
    const auto fieldName = JsonText(cJSON_GetObjectItem(family, "VariantFieldName"));
    if (!fieldName) {
      LogFile::Write("Warning: Invalid variant entry in workspace (missing VariantFieldName): " + key);
      continue;
    }
    const cJSON* members = cJSON_GetObjectItem(family, "Variants");
    if (!cJSON_IsObject(members)) {
      LogFile::Write("Warning: Invalid variant entry in workspace (missing Variants object): " + key);
      continue;
    }
    auto variant = std::make_unique<NodeVariant>();
    variant->VariantFieldName = *fieldName;
    const cJSON* member = nullptr;
    cJSON_ArrayForEach(member, members) {
      if (auto nodeId = JsonText(member)) variant->Variants.Assign(member->string, *std::move(nodeId));
    }
    nodeDictionary->AddVariant(key, std::move(variant));
  }
}

void Workspace::ReadAssetTypeComponents(const cJSON* configuration) {
  const cJSON* components = cJSON_GetObjectItem(configuration, "AssetTypeComponents");
  if (!cJSON_IsObject(components)) return;
  const cJSON* component = nullptr;
  cJSON_ArrayForEach(component, components) {
    if (auto nodeId = JsonText(component)) AssetTypeComponents.Insert(component->string, *std::move(nodeId));
  }
}

bool Workspace::NamesUnknownTypes() const {
  const NodeDictionary& dictionary = *nodeDictionary;
  for (const auto& [name, root] : Roots)
    if (!dictionary.KnowsType(root->RootNodeType)) return true;
  for (const auto& [assetType, id] : AssetTypeComponents)
    if (!dictionary.KnowsType(id)) return true;
  return dictionary.NamesUnknownTypes();
}

void Workspace::LoadSchemas() {
  size_t count = 0;
  std::vector<std::string> failures;
  const auto load = [&](const DirectoryEntry& entry) {
    if (!IsSchemaFile(entry)) return;
    const std::string file = entry.path.string();
    const std::optional<std::string> text = ReadTextFile(file);
    if (!text) {
      LogFile::Write("Failed to open schema file: " + file);
      failures.push_back(entry.name + " (unreadable)");
      return;
    }
    const JsonParseResult parsed = ParseJson(*text);
    if (!parsed) {
      LogFile::Write("Invalid JSON in schema file: " + file + " - " + parsed.detail);
      failures.push_back(entry.name + " (invalid JSON)");
      return;
    }
    nodeDictionary->AddSchema(parsed.json.get());
    ++count;
  };
  WalkFiles(directory, load, {}, [](const std::string& message) { LogFile::Write(message); });

  if (!failures.empty() || NamesUnknownTypes()) nodeDictionary->lacksSchemas = true;
  if (!failures.empty()) {
    std::string lines;
    for (const std::string& failure : failures) lines += "  - " + failure + "\n";
    LogFile::Write("Failed to load " + std::to_string(failures.size()) + " schema file(s):\n" + lines);
    ShowWarning("Some node schemas failed to load:\n\n" + lines + "\nThe editor will continue with available nodes.",
                "Warning: Schema Load Errors");
  }
  LogFile::Write("Loaded " + std::to_string(count) + " node schema(s) for workspace: " + WorkspaceName);
}

} // namespace Tesselor
