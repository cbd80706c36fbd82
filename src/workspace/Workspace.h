#pragma once

#include "workspace/NodeDictionary.h"
#include "workspace/OrderedTable.h"
#include "workspace/RootType.h"

#include <memory>
#include <string>

namespace Tesselor {

/// How one family of asset files is edited: a directory with a configuration and node schemas.
///
/// Made by discovery, which reads the head of the configuration only; the rest is read on first use. It lives through
/// the roots that it declares.
class Workspace {
public:
  Workspace() = default;
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  /// Reads the second half of the configuration and every schema below the directory, once. True if the dictionary is
  /// there, also when some schemas failed; false if the configuration can't be read, which the user is told and which
  /// a later call tries again.
  bool LoadNodeDictionary();

  /// The configuration of a workspace directory.
  static std::string ConfigurationPath(const std::string& directory) { return directory + "/_Workspace.json"; }

  std::string WorkspaceName;
  /// The extension filter of the file dialogs.
  std::string FileFormat = "json";
  /// Fields equal to their defaults are written too.
  bool ExportDefaults = false;
  /// As the directory walk gave it.
  std::string directory;
  /// The workspace's own roots by menu name.
  OrderedTable<std::shared_ptr<RootType>> Roots;
  /// Null until the schemas are loaded.
  std::unique_ptr<NodeDictionary> nodeDictionary;
  /// Asset type to node id.
  OrderedTable<std::string> AssetTypeComponents;

private:
  void ReadCategories(const cJSON* configuration, const std::string& path);
  void ReadVariants(const cJSON* configuration);
  void ReadAssetTypeComponents(const cJSON* configuration);
  void LoadSchemas();
  /// Whether anything of the workspace names a type that no schema describes.
  bool NamesUnknownTypes() const;
};

} // namespace Tesselor
