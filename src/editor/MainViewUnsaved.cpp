// What is changed and not saved, and what becomes of it.

#include "editor/MainView.h"

#include "editor/EditInProgress.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/TextBlock.h"
#include "values/ActionHistory.h"

namespace Tesselor {

using Toolkit::MessageBox;
using Toolkit::Ptr;

bool MainView::IsSaved() const {
  return ActionHistory::Instance().State() == savedState && !(editInProgress && editInProgress->Differs());
}

void MainView::NoteSaved() {
  savedState = ActionHistory::Instance().State();
  ShowDocumentName();
}

std::string MainView::DocumentName() const {
  return filePath.empty() ? "Untitled" : filePath.substr(filePath.find_last_of("/\\") + 1);
}

void MainView::ShowDocumentName() {
  if (documentName) documentName->SetText(IsSaved() ? DocumentName() : DocumentName() + " \u2022");
}

void MainView::RequestClose() {
  bool isSaved = false;
  WithFinishedTyping([&] { isSaved = IsSaved(); });
  if (isSaved) {
    Close();
    return;
  }
  // A box that waits asks already.
  if (isAskedToClose) return;
  isAskedToClose = true;
  MessageBox::Ask("\"" + DocumentName() + "\" has unsaved changes.", "Attention!", {"Save", "Don't save", "Cancel"},
                  [view = Ptr<MainView>(this)](std::optional<size_t> choice) {
                    view->isAskedToClose = false;
                    if (choice == 0u && view->Save()) view->Close();
                    if (choice == 1u) view->Close();
                  });
}

} // namespace Tesselor
