#include "editor/WorkKeeper.h"

#include "editor/NoticeBar.h"
#include "platform/LogFile.h"

#include <algorithm>
#include <utility>

namespace Tesselor {

namespace {

/// Milliseconds. With the time that a copy of fifty thousand nodes takes, a change is on the disk within two seconds.
constexpr double copyDelay = 500;
constexpr char failureId[] = "copy failed";

std::string NameOf(const RescuedDocument& document) {
  return document.path.empty() ? "Untitled" : std::filesystem::path(document.path).filename().string();
}

std::string LocalTime(std::time_t time) {
  std::tm local{};
  char text[32];
  if (!localtime_r(&time, &local)) return {};
  return std::string(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local));
}

} // namespace

WorkKeeper::WorkKeeper(Document document, NoticeBar& notices, std::filesystem::path directory)
    : document(std::move(document)), notices(notices), store(std::move(directory)) {}

WorkKeeper::~WorkKeeper() {
  Toolkit::Dispatcher::Current().Cancel(copyTimer);
  // No copy follows the last one.
  changedAt = -1;
  Finish();
}

void WorkKeeper::Follow() {
  if (document.isSaved()) {
    Discard();
    return;
  }
  if (changedAt < 0) changedAt = Toolkit::Dispatcher::Current().Now();
  Schedule();
}

void WorkKeeper::Schedule() {
  if ((copying && copying->IsRunning()) || copyTimer != 0 || changedAt < 0) return;
  Toolkit::Dispatcher& dispatcher = Toolkit::Dispatcher::Current();
  copyTimer = dispatcher.StartTimer(std::max(0.0, changedAt + copyDelay - dispatcher.Now()), [this] {
    copyTimer = 0;
    StartCopy();
  });
}

void WorkKeeper::Discard() {
  Toolkit::Dispatcher::Current().Cancel(std::exchange(copyTimer, 0));
  changedAt = -1;
  DeleteReplaced();
  ForgetFailure();
  if (!mayExist) return;
  // One that is not done would bring the copy back.
  copying.reset();
  mayExist = false;
  store.Remove();
}

void WorkKeeper::StartCopy() {
  Finish();
  Toolkit::Dispatcher::Current().Cancel(std::exchange(copyTimer, 0));
  const RescuedDocument described = document.describe();
  changedAt = -1;
  mayExist = true;
  const auto write = [this, &described] {
    const std::string text = document.print();
    return !text.empty() && store.Write(described, text);
  };
  copying = ForkedWork::Start([&write] { return write() ? ForkedWork::Result("") : std::nullopt; },
                              [this](const ForkedWork::Result& result) { Ended(result.has_value()); });
  if (!copying) Ended(write());
}

void WorkKeeper::Finish() {
  if (copying) copying->Finish();
}

void WorkKeeper::Ended(bool isWritten) {
  if (isWritten) {
    DeleteReplaced();
    ForgetFailure();
  } else {
    LogFile::Write("The copy of the unsaved document could not be written");
    if (!std::exchange(hasFailed, true))
      notices.Show({failureId,
                    "Unsaved changes can't be kept in \"" + store.Directory().string() + "\" for now. Save often.",
                    {}});
  }
  Schedule();
}

void WorkKeeper::ForgetFailure() {
  if (std::exchange(hasFailed, false)) notices.Dismiss(failureId);
}

void WorkKeeper::WriteNow() {
  Toolkit::Dispatcher::Current().Cancel(std::exchange(copyTimer, 0));
  const bool isBehind = changedAt >= 0;
  changedAt = -1;
  Finish();
  if ((!isBehind && !hasFailed) || document.isSaved()) return;
  mayExist = true;
  const std::string text = document.print();
  if (!text.empty() && store.Write(document.describe(), text)) DeleteReplaced();
}

bool WorkKeeper::SetAside() {
  if (document.isSaved()) return true;
  const std::string text = document.print();
  const RescuedDocument described = document.describe();
  const std::optional<RescueCopy> copy = text.empty() ? std::nullopt : store.SetAside(described, text);
  if (!copy) {
    LogFile::Write("The unsaved changes of \"" + NameOf(described) + "\" could not be kept");
    return false;
  }
  Discard();
  Offer(*copy, "The unsaved changes of \"" + NameOf(described) + "\" were kept.");
  return true;
}

void WorkKeeper::OfferAbandoned() {
  std::vector<RescueCopy> copies = store.Abandoned();
  if (copies.size() > NoticeBar::MostLines) copies.resize(NoticeBar::MostLines);
  for (auto copy = copies.rbegin(); copy != copies.rend(); ++copy)
    Offer(*copy, "\"" + NameOf(copy->document) + "\" had unsaved changes when the editor ended. They were kept on " +
                     LocalTime(copy->time) + ".");
}

void WorkKeeper::Offer(const RescueCopy& copy, const std::string& text) {
  const std::string id = "rescue " + copy.file.string();
  notices.Show({id,
                text,
                {{"Restore",
                  [this, copy, id, text] {
                    notices.Dismiss(id);
                    Restore(copy, text);
                  }},
                 {"Delete",
                  [this, copy, id] {
                    notices.Dismiss(id);
                    RescueStore::Delete(copy);
                  }}},
                "Later"});
}

void WorkKeeper::Restore(RescueCopy copy, const std::string& text) {
  const std::optional<std::string> kept = store.Claim(copy);
  if (!kept) {
    notices.Show({"rescue gone", "These changes are not there any more.", {}});
    return;
  }
  // What can't be shown now is there for another try.
  if (!document.restore(copy.document, *kept)) return Offer(copy, text);
  replaced.push_back(std::move(copy));
  Follow();
}

void WorkKeeper::DeleteReplaced() {
  for (const RescueCopy& copy : std::exchange(replaced, {})) RescueStore::Delete(copy);
}

} // namespace Tesselor
