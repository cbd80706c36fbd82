#include "workspace/Workspaces.h"

#include "platform/ExecutableDirectory.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "platform/MessageBoxes.h"
#include "workspace/DirectoryWalk.h"
#include "workspace/Workspace.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace Tesselor {

namespace {

constexpr const char* generatedName = "Generated";

bool IsDirectory(const std::string& path) {
  std::error_code error;
  return std::filesystem::is_directory(path, error);
}

bool Exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(path, error);
}

constexpr char ErrorCaption[] = "Error Loading Workspaces";

} // namespace

std::string FindWorkspacesDirectory() {
  const std::string local = "Workspaces/";
  if (IsDirectory(local) || ExecutableDirectory::Get().empty()) return local;
  const std::string installed = ExecutableDirectory::Get() + "/../Data/Workspaces";
  return IsDirectory(installed) ? installed : local;
}

Workspaces::~Workspaces() {
  for (const auto& workspace : loaded) workspace->Roots.Clear();
}

bool Workspaces::ImportWorkspaces(const std::string& directory) {
  if (!Exists(directory)) {
    ReportError("Workspaces directory not found: " + directory,
                "Workspaces directory not found:\n" + directory + "\n\nPlease ensure the Workspaces folder exists.",
                ErrorCaption);
    return false;
  }

  std::vector<std::string> failures;
  size_t count = LoadDirectory(directory, failures);
  const std::string generated = directory + "/" + generatedName;
  if (IsDirectory(generated)) {
    LogFile::Write("Loading workspaces from Generated subdirectory: " + generated);
    count += LoadDirectory(generated, failures);
  }

  std::string lines;
  for (const std::string& failure : failures) lines += "  - " + failure + "\n";
  if (!failures.empty()) LogFile::Write("Failed to load workspaces:\n" + lines);
  if (count != 0) return true;
  ShowError("No valid workspaces were found in:\n" + directory +
                (failures.empty() ? std::string() : "\n\nFailed workspaces:\n" + lines),
            ErrorCaption);
  return false;
}

size_t Workspaces::LoadDirectory(const std::string& directory, std::vector<std::string>& failures) {
  std::error_code error;
  LogFile::Write("Iterating over " + std::filesystem::absolute(directory, error).string());
  const auto log = [](const std::string& message) { LogFile::Write(message); };
  size_t count = 0;
  for (const DirectoryEntry& entry : ListDirectory(directory, log)) {
    if (!entry.isDirectory) continue;
    LogFile::Write("Found workspace directory " + entry.path.string());
    // Reached from the directory above only, and never a workspace itself.
    if (entry.name == generatedName) continue;
    if (LoadWorkspace(entry.path.string(), entry.name, failures)) ++count;
  }
  return count;
}

std::vector<std::string> Workspaces::GetRootNames() const {
  std::vector<std::string> names;
  for (const auto& [name, root] : Roots) names.push_back(name);
  return names;
}

std::shared_ptr<RootType> Workspaces::FindRoot(const std::string& menuName) const {
  const auto* root = Roots.Find(menuName);
  return root ? *root : nullptr;
}

bool Workspaces::LoadWorkspace(const std::string& path, const std::string& name, std::vector<std::string>& failures) {
  const std::string config = Workspace::ConfigurationPath(path);
  const auto fail = [&](const std::string& line, const char* reason) {
    if (!line.empty()) LogFile::Write(line);
    failures.push_back(name + " (" + reason + ")");
    return false;
  };

  if (!Exists(config)) {
    LogFile::Write("Skipping workspace directory without _Workspace.json: " + name);
    return false;
  }
  const std::optional<std::string> text = ReadTextFile(config);
  if (!text) return fail("Failed to open workspace file: " + config, "file unreadable");
  const JsonParseResult parsed = ParseJson(*text);
  if (!parsed) return fail("Invalid JSON in workspace file: " + config + " - " + parsed.detail, "invalid JSON");
  const cJSON* json = parsed.json.get();
  const auto workspaceName = JsonText(cJSON_GetObjectItem(json, "WorkspaceName"));
  if (!workspaceName) return fail("Missing or invalid 'WorkspaceName' in: " + config, "missing WorkspaceName");

  const auto workspace = std::make_shared<Workspace>();
  workspace->WorkspaceName = *workspaceName;
  workspace->directory = path;
  LogFile::Write("Found workspace " + workspace->WorkspaceName);
  if (auto format = JsonText(cJSON_GetObjectItem(json, "FileFormat"))) workspace->FileFormat = *std::move(format);
  const cJSON* exportDefaults = cJSON_GetObjectItem(json, "ExportDefaults");
  if (cJSON_IsBool(exportDefaults)) workspace->ExportDefaults = cJSON_IsTrue(exportDefaults);

  const cJSON* roots = cJSON_GetObjectItem(json, "Roots");
  if (!cJSON_IsObject(roots)) return fail("Missing or invalid 'Roots' in: " + config, "missing Roots");
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, roots) {
    const auto nodeType = JsonText(cJSON_GetObjectItem(member, "RootNodeType"));
    const auto menuName = JsonText(cJSON_GetObjectItem(member, "MenuName"));
    if (!nodeType || !menuName) {
      LogFile::Write("Invalid root entry in workspace: " + config + " - missing RootNodeType or MenuName");
      continue;
    }
    const auto root = std::make_shared<RootType>(RootType{*nodeType, *menuName, workspace});
    workspace->Roots.Assign(*menuName, root);
    Roots.Assign(*menuName, root);
    LogFile::Write("New root found " + *menuName);
  }
  if (workspace->Roots.empty()) return fail({}, "no valid roots");
  loaded.push_back(workspace);
  LogFile::Write("Successfully loaded workspace: " + workspace->WorkspaceName);
  return true;
}

} // namespace Tesselor
