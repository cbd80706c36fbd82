#pragma once

#include "workspace/OrderedTable.h"
#include "workspace/RootType.h"

#include <memory>
#include <string>
#include <vector>

namespace Tesselor {

/// The directory that holds the workspaces: "Workspaces/" under the current directory, else `Data/Workspaces` beside
/// the program's own directory. Without either it is the first, so that the search reports that one as missing.
std::string FindWorkspacesDirectory();

/// The registry of everything that a document can start from. Filled once, before there is any reader.
class Workspaces {
public:
  Workspaces() = default;
  ~Workspaces();
  Workspaces(const Workspaces&) = delete;
  Workspaces& operator=(const Workspaces&) = delete;

  /// Discovers the workspaces in `directory` and in its subdirectory `Generated`, and registers their roots. True if
  /// at least one workspace was found; otherwise the user has been told.
  bool ImportWorkspaces(const std::string& directory);

  /// Discovers the workspaces directly in `directory` and returns their number. A workspace that can't be used adds a
  /// line to `failures` and stops no other.
  size_t LoadDirectory(const std::string& directory, std::vector<std::string>& failures);

  /// The menu name of every root, in the order of `Roots`.
  std::vector<std::string> GetRootNames() const;

  /// Null if no root has this menu name.
  std::shared_ptr<RootType> FindRoot(const std::string& menuName) const;

  /// All roots by menu name; of two roots with one name the later stays.
  OrderedTable<std::shared_ptr<RootType>> Roots;
  /// The root selected in the view; empty until one is chosen.
  std::shared_ptr<RootType> currentRoot;

private:
  bool LoadWorkspace(const std::string& path, const std::string& name, std::vector<std::string>& failures);

  // A workspace and its roots hold each other. The registry keeps hold of the workspaces only to part them at its end.
  std::vector<std::shared_ptr<Workspace>> loaded;
};

} // namespace Tesselor
