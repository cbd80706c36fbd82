// Makes a workspace of any schema files, loads any asset by it, edits the rows of its lists, saves, and loads what was
// saved. An input is the schema files and, behind them, the asset, parted by lines "%%". Changes go to the JSON trees,
// so that most inputs are still JSON.

#include "TreeMutator.h"
#include "app/ComponentRegistration.h"
#include "document/AssetFile.h"
#include "document/NodeImporterExporter.h"
#include "fields/FieldDictionary.h"
#include "fields/FieldList.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "support/TestGraph.h"
#include "support/ToolkitEnvironment.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/base/Diagnostics.h"
#include "workspace/Workspace.h"
#include "workspace/Workspaces.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

using namespace Tesselor;

namespace {

constexpr std::string_view separator = "\n%%\n";
constexpr const char* configuration = R"({"WorkspaceName": "Fuzz",
  "Roots": {"Root": {"RootNodeType": "Root", "MenuName": "Root"}},
  "NodeCategories": {"All": ["Root", "Item", "Other", "Reference"]},
  "Variants": {"Family": {"VariantFieldName": "Type", "Variants": {"item": "Item", "other": "Other", "": "Item"}}}})";

std::vector<std::string> Split(std::string_view text) {
  std::vector<std::string> parts;
  for (size_t at; (at = text.find(separator)) != std::string_view::npos; text.remove_prefix(at + separator.size()))
    parts.emplace_back(text.substr(0, at));
  parts.emplace_back(text);
  return parts;
}

/// The directory that all inputs use in turn.
const std::filesystem::path& Start() {
  static const std::filesystem::path directory = [] {
    LogFile::SetSink([](std::string_view) {});
    Toolkit::SetLogHandler([](const char*, uint32_t, Toolkit::LogLevel, const char*, const char*) {});
    Toolkit::MessageBox::SetPresenter([](Toolkit::MessageBox::Request) {});
    TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
    auto path = std::filesystem::temp_directory_path() / ("tesselor-fuzz-" + std::to_string(getpid()));
    std::filesystem::create_directories(path / "Workspaces/Fuzz");
    std::ofstream(path / "Workspaces/Fuzz/_Workspace.json") << configuration;
    return path;
  }();
  return directory;
}

/// What undo does to the rows, and what search and the side panel ask of a field.
void Exercise(BaseField& field) {
  field.GetValueAsString();
  field.ShouldSerialize();
  if (auto* list = Toolkit::DynamicCast<FieldList>(&field)) list->SetValues(list->GetValues());
  if (auto* dictionary = Toolkit::DynamicCast<FieldDictionary>(&field)) dictionary->SetValues(dictionary->GetValues());
}

bool LoadAndSave(const std::shared_ptr<Workspace>& workspace, const std::string& asset, const std::string& output,
                 bool saveAllFields) {
  TestSupport::TestGraph view("Root");
  const AssetFile file = AssetFile::Read(asset);
  if (!NodeImporterExporter::ImportNodeTree(file.json.get(), workspace, &view.target) || !view->Root()) return false;
  for (const auto& node : view->ContentNodes())
    for (const auto& [id, field] : node->contentFields) Exercise(*field);
  view.Layout();
  return NodeImporterExporter::ExportNodeTree(output, view->Root(), view->ContentNodes(), view->GroupNodes(),
                                              view->CommentNodes(), "Root", saveAllFields);
}

constexpr const char* words[] = {
    "Default",        "Min",        "Max",          "Width",     "Height",        "Values",      "Type",     "Fields",
    "Options",        "Id",         "UseUUID",      "IsUUID",    "IsNodeName",    "Required",    "Active",   "Label",
    "content",        "inputs",     "outputs",      "Schema",    "Multiple",      "IsMap",       "$Value",   "$Key",
    "$NodeId",        "$Link",      "$Generic",     "$FileName", "$Nodes",        "$Position",   "node",     "pin",
    "Root",           "Item",       "Other",        "Family",    "List",          "Dictionary",  "Object",   "Enum",
    "EnumFilterable", "RawJson",    "Mixed",        "Int",       "IntSlider",     "Float",       "Checkbox", "FilePath",
    "SmallString",    "String",     "Spacer",       "uuid",      "mixed",         "bool",        "",         "\xff",
    "isreference",    "filerefkey", "filerefvalue", "modifykey", "TickFrequency", "LargeChange", "FontSize"};

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize, unsigned seed) {
  std::vector<std::string> parts = Split({reinterpret_cast<const char*>(data), size});
  const JsonParseResult tree = ParseJson(parts[seed % parts.size()]);
  const JsonParseResult donor = ParseJson(parts[seed / 7 % parts.size()]);
  if (seed % 16 == 0 || !tree || !donor ||
      !TestSupport::TreeMutator(seed, words).Change(tree.json.get(), donor.json.get()))
    return LLVMFuzzerMutate(data, size, maxSize);
  char* printed = cJSON_PrintUnformatted(tree.json.get());
  if (!printed) return LLVMFuzzerMutate(data, size, maxSize);
  parts[seed % parts.size()] = printed;
  cJSON_free(printed);
  std::string joined;
  for (size_t i = 0; i < parts.size(); ++i) joined += (i ? std::string(separator) : std::string()) + parts[i];
  if (joined.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
  std::copy(joined.begin(), joined.end(), data);
  return joined.size();
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::filesystem::path& directory = Start();
  const std::vector<std::string> parts = Split({reinterpret_cast<const char*>(data), size});
  const std::filesystem::path schemas = directory / "Workspaces/Fuzz";
  for (size_t i = 0; i + 1 < parts.size(); ++i) std::ofstream(schemas / (std::to_string(i) + ".json")) << parts[i];
  // The files of a longer input before this one.
  for (size_t i = parts.size() - 1; std::filesystem::remove(schemas / (std::to_string(i) + ".json")); ++i) {
  }
  std::ofstream(directory / "asset.json") << parts.back();

  Workspaces workspaces;
  if (!workspaces.ImportWorkspaces((directory / "Workspaces").string())) std::abort();
  const std::shared_ptr<Workspace> workspace = workspaces.FindRoot("Root")->workspace;
  workspace->LoadNodeDictionary();
  const std::string first = (directory / "first.json").string(), second = (directory / "second.json").string();
  if (!LoadAndSave(workspace, (directory / "asset.json").string(), first, size % 2 == 0)) return 0;
  if (!LoadAndSave(workspace, first, second, size % 2 == 0)) {
    std::fprintf(stderr, "what was saved does not load\n");
    std::abort();
  }
  return 0;
}
