#pragma once

#include "document/RescueStore.h"
#include "platform/ForkedWork.h"
#include "toolkit/base/Dispatcher.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace Tesselor {

class NoticeBar;

/// Keeps a copy of the document beside the user's state while it has changes that its file doesn't hold, and offers
/// what other runs have left.
///
/// The copy is written by a forked child: it has the document as it stood in one moment, may take its time, and what
/// the export changes, such as fresh identities, is gone with it. The document's own process is held only by the fork.
class WorkKeeper {
public:
  struct Document {
    std::function<bool()> isSaved;
    std::function<RescuedDocument()> describe;
    /// The text that a save would write; empty if none can be made.
    std::function<std::string()> print;
    /// Shows a text as an unsaved document; false if it can't be read, which the user was told.
    std::function<bool(const RescuedDocument&, const std::string& text)> restore;
  };

  /// All outlive the keeper.
  WorkKeeper(Document document, NoticeBar& notices, std::filesystem::path directory);
  /// A copy that is being written is waited for.
  ~WorkKeeper();
  WorkKeeper(const WorkKeeper&) = delete;
  WorkKeeper& operator=(const WorkKeeper&) = delete;

  /// The document may have changed, or may have been saved.
  void Follow();
  /// The user gives the changes up.
  void Discard();
  /// Another document is about to take the place of this one: what is unsaved is set aside, and the user told. False
  /// if it can't be kept.
  bool SetAside();
  /// Offers the copies that other runs have left.
  void OfferAbandoned();
  /// Brings the copy up to date before it returns, as the process is about to end.
  void WriteNow();
  /// Begins to write a copy, without waiting for a pause.
  void StartCopy();
  /// Waits until the copy that is being written is there.
  void Finish();

private:
  void Ended(bool isWritten);
  void ForgetFailure();
  void Schedule();
  /// `text` tells the user what it is.
  void Offer(const RescueCopy& copy, const std::string& text);
  void Restore(RescueCopy copy, const std::string& text);
  void DeleteReplaced();

  Document document;
  NoticeBar& notices;
  RescueStore store;
  Toolkit::Dispatcher::TimerId copyTimer = 0;
  std::unique_ptr<ForkedWork> copying;
  /// When the document first changed since the copy that is there or being written, by the dispatcher's clock; negative
  /// if it did not.
  double changedAt = -1;
  bool mayExist = false;
  /// The last copy could not be written, which the user was told.
  bool hasFailed = false;
  /// Restored copies, which go when the document's own copy is there.
  std::vector<RescueCopy> replaced;
};

} // namespace Tesselor
