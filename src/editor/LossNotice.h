#pragma once

#include "document/AssetFile.h"
#include "document/DocumentLosses.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace Tesselor {

class ForkedWork;
class Graph;
class LossPanel;
class NoticeBar;
struct RootType;

/// Tells in the bar what a save of a freshly loaded file changes, and lists it on demand. The comparison waits until
/// the document has been seen; it costs a part of what the load did, so of a large document a forked child makes it.
class LossNotice {
public:
  /// All outlive this.
  LossNotice(NoticeBar& bar, LossPanel& panel, const Graph& graph);
  ~LossNotice();
  LossNotice(const LossNotice&) = delete;
  LossNotice& operator=(const LossNotice&) = delete;

  /// The graph holds the file as it was loaded. What was told of another one goes.
  void Begin(AssetFile file, std::shared_ptr<RootType> root);
  /// Takes everything back: the file is another one now.
  void End();

private:
  void Compare();
  void Show(std::vector<DocumentLoss> losses);

  NoticeBar& bar;
  LossPanel& panel;
  const Graph& graph;
  AssetFile waiting;
  std::shared_ptr<RootType> root;
  uint64_t timer = 0;
  /// Of the history when the file was loaded: what was edited since is no loss.
  uint64_t revision = 0;
  uint64_t documentNumber = 0;
  std::unique_ptr<ForkedWork> comparison;
};

} // namespace Tesselor
