#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Tesselor {

/// Of what document an unsaved state was kept.
struct RescuedDocument {
  /// Empty for one that was never saved.
  std::string path;
  /// The menu name of its root.
  std::string root;
  /// What is known of the file from which it came, so that a change behind its back shows. Any text.
  std::string fileState;
};

/// One kept state, in a file of its own.
struct RescueCopy {
  std::filesystem::path file;
  RescuedDocument document;
  std::time_t time = 0;
};

/// The copies of unsaved documents: one that follows the document of this process, and those that were set aside when
/// another document took its place. What a process leaves behind when it ends is abandoned, and any other one may
/// claim it. Knows files only, and tells nobody anything.
class RescueStore {
public:
  explicit RescueStore(std::filesystem::path directory);
  const std::filesystem::path& Directory() const { return directory; }

  /// Replaces the copy of this process's document. Safe in a forked child, which writes the parent's.
  bool Write(const RescuedDocument& document, std::string_view text) const;
  /// There is nothing to rescue any more.
  void Remove() const;
  /// A copy that stays when the document's own goes; nothing if it can't be written.
  std::optional<RescueCopy> SetAside(const RescuedDocument& document, std::string_view text);
  /// Of processes that don't run any more, newest first.
  std::vector<RescueCopy> Abandoned() const;
  /// Takes a copy for this process, so that no other one takes it too: its text, and the copy's new file. Nothing if it
  /// is not there any more or can't be read.
  std::optional<std::string> Claim(RescueCopy& copy);
  static void Delete(const RescueCopy& copy);

private:
  std::filesystem::path FileOf(std::string_view suffix) const;

  std::filesystem::path directory;
  /// Names this process, also in a child that it forks.
  std::string owner;
  unsigned setAsideCount = 0;
};

} // namespace Tesselor
