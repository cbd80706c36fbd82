// The clipboard of the graph.

#include "editor/MainView.h"

namespace Tesselor {

void MainView::Copy() {}

void MainView::Cut() {
  Copy();
  DeleteSelection();
}

void MainView::Paste() {}

void MainView::Duplicate() {}

} // namespace Tesselor
