#pragma once

#include <memory>
#include <string>

namespace Tesselor {

class Workspace;

/// One kind of document: what a user picks in the root menu and what an asset file names.
struct RootType {
  /// The node id of the root node of such a document.
  std::string RootNodeType;
  /// The name in the menu, and the key of this root everywhere.
  std::string MenuName;
  /// The workspace that declared it.
  std::shared_ptr<Workspace> workspace;
};

} // namespace Tesselor
