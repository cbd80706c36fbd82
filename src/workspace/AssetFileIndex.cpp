#include "workspace/AssetFileIndex.h"

#include "platform/AsciiCase.h"
#include "platform/LogFile.h"
#include "workspace/DirectoryWalk.h"

#include <filesystem>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace Tesselor {

std::string FindAssetRoot(const std::string& path) {
  for (std::filesystem::path current = path;;) {
    std::filesystem::path parent = current.parent_path();
    if (parent.empty() || parent == current) return {};
    if (parent.filename() == "OrvaleAssets") return parent.string();
    current = std::move(parent);
  }
}

AssetFileIndex& AssetFileIndex::Instance() {
  static AssetFileIndex* const instance = new AssetFileIndex;
  return *instance;
}

void AssetFileIndex::BuildAsync(std::string path) {
  if (isBuilding) return;
  entries.Clear();
  isBuilding = true;
  try {
    std::thread([this, path = std::move(path)] {
      Scan(path);
      isBuilding = false;
    }).detach();
  } catch (const std::system_error& error) {
    isBuilding = false;
    LogFile::Write(std::string("Failed to start the scan of the asset files: ") + error.what());
  }
}

void AssetFileIndex::Scan(const std::string& path) {
  std::error_code error;
  const std::filesystem::path start = path;
  const bool isDirectory = std::filesystem::is_directory(start, error);
  const std::string root = FindAssetRoot(isDirectory ? path : start.parent_path().string());
  if (root.empty()) return;

  const auto add = [this](const DirectoryEntry& entry) {
    constexpr std::string_view extension = ".json";
    const std::string name = LowerCase(entry.name);
    if (name.size() < extension.size() || name.find(extension) == std::string::npos) return;
    entries.Insert(std::string_view(name).substr(0, name.rfind('.')), entry.path.string());
  };
  WalkFiles(root, add, [](const DirectoryEntry& entry) { return entry.name.find('.') == std::string::npos; });
}

} // namespace Tesselor
