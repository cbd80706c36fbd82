#include "editor/FileGuard.h"

#include "editor/NoticeBar.h"
#include "platform/FileState.h"

#include <filesystem>
#include <utility>

namespace Tesselor {

namespace {
constexpr char noticeId[] = "file changed";
} // namespace

void FileGuard::Take(const std::string& newPath) { Take(newPath, FileStateOf(newPath)); }

void FileGuard::Take(const std::string& newPath, std::string newState) {
  notices.Dismiss(noticeId);
  state = toldState = std::move(newState);
  if (path == newPath) return;
  path = newPath;
  watch.reset();
  if (!path.empty()) watch.emplace(path, [this] { Look(); });
}

bool FileGuard::IsChanged(const std::string& asked) const {
  if (asked.empty() || asked != path) return false;
  const std::string now = FileStateOf(path);
  return !now.empty() && now != state;
}

void FileGuard::Look() {
  const std::string now = FileStateOf(path);
  if (now == toldState) return;
  toldState = now;
  const std::string name = "\"" + std::filesystem::path(path).filename().string() + "\"";
  if (now == state)
    notices.Dismiss(noticeId);
  else if (now.empty())
    notices.Show({noticeId, name + " was removed by another program.", {}});
  else
    notices.Show({noticeId, name + " was changed by another program.", {{"Reload", [this] { reload(); }}}});
}

} // namespace Tesselor
