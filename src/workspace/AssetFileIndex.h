#pragma once

#include "workspace/OrderedTable.h"

#include <atomic>
#include <string>

namespace Tesselor {

/// The path of the nearest directory named `OrvaleAssets` around `path`, which is not itself looked at; the empty
/// string if there is none. Only the text of the path counts.
std::string FindAssetRoot(const std::string& path);

/// Every JSON file of one asset tree by its lower-case name. One process-wide record, which is never destroyed: a scan
/// that runs at process exit goes on writing into it.
///
/// `isBuilding` alone stands between the two threads. The scan owns `entries` from the moment the flag is set until it
/// clears the flag, which is the last thing it does.
class AssetFileIndex {
public:
  static AssetFileIndex& Instance();

  /// Starts to list the tree that holds `path` on a thread of its own; does nothing while a scan is running.
  void BuildAsync(std::string path);

  /// Lower-case file name up to its last "." to the file's full path; the first file found stays.
  OrderedTable<std::string> entries;
  /// The file that the command line asks for; empty if there is none.
  std::string assetToLoad;
  std::atomic<bool> isBuilding = false;

private:
  AssetFileIndex() = default;
  void Scan(const std::string& path);
};

} // namespace Tesselor
