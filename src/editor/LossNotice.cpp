#include "editor/LossNotice.h"

#include "document/DocumentLosses.h"
#include "editor/LossPanel.h"
#include "editor/NoticeBar.h"
#include "graph/Graph.h"
#include "nodes/NodeNames.h"
#include "platform/ForkedWork.h"
#include "toolkit/base/Dispatcher.h"
#include "values/ActionHistory.h"
#include "workspace/RootType.h"

#include <string>
#include <utility>

namespace Tesselor {

namespace {

constexpr char NoticeId[] = "losses";
/// Milliseconds: enough for the first frame to come before.
constexpr double Pause = 50;
/// With more a user would notice the comparison.
constexpr size_t MostNodes = 500;

} // namespace

LossNotice::LossNotice(NoticeBar& bar, LossPanel& panel, const Graph& graph) : bar(bar), panel(panel), graph(graph) {}

LossNotice::~LossNotice() { Toolkit::Dispatcher::Current().Cancel(timer); }

void LossNotice::Begin(AssetFile file, std::shared_ptr<RootType> newRoot) {
  End();
  waiting = std::move(file);
  root = std::move(newRoot);
  revision = ActionHistory::Instance().Revision();
  documentNumber = graph.DocumentNumber();
  timer = Toolkit::Dispatcher::Current().StartTimer(Pause, [this] { Compare(); });
}

void LossNotice::End() {
  Toolkit::Dispatcher::Current().Cancel(timer);
  waiting = {};
  comparison.reset();
  bar.Dismiss(NoticeId);
  panel.Close();
}

void LossNotice::Compare() {
  const auto file = std::make_shared<AssetFile>(std::exchange(waiting, {}));
  if (revision != ActionHistory::Instance().Revision() || documentNumber != graph.DocumentNumber()) return;
  const auto compare = [this, file] { return FindDocumentLosses(*file->json, file->longNumbers, graph, *root); };
  const auto& nodes = graph.ContentNodes();
  if (nodes.size() > MostNodes)
    comparison = ForkedWork::Start([&] { return WriteLosses(compare(), nodes); },
                                   [this, nodes, compare](const ForkedWork::Result& found) {
                                     if (documentNumber != graph.DocumentNumber()) return;
                                     if (found) return Show(ReadLosses(*found, nodes));
                                     // A child that was ended has told nothing. What was edited meanwhile is no loss.
                                     if (revision == ActionHistory::Instance().Revision()) Show(compare());
                                   });
  if (!comparison) Show(compare());
}

void LossNotice::Show(std::vector<DocumentLoss> losses) {
  if (losses.empty()) return;
  const std::string count = Counted(losses.size(), "value", "values");
  bar.Show({NoticeId, "Saving this file changes " + count, {{"Details", [this, losses = std::move(losses)] {
                                                               panel.Open(losses);
                                                             }}}});
}

} // namespace Tesselor
