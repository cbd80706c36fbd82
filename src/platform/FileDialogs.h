#pragma once

#include <functional>
#include <optional>
#include <string>

namespace Tesselor {

/// Shows the dialogs of the desktop, or what stands in for them.
class FileDialogBackend {
public:
  virtual ~FileDialogBackend() = default;
  /// The dialog starts in the directory of the file `startPath`, and one that saves with its name; an empty path leaves
  /// that to the desktop.
  virtual std::optional<std::string> Open(const std::string& filter, const std::string& startPath) = 0;
  virtual std::optional<std::string> Save(const std::string& filter, const std::string& startPath) = 0;
};

/// The system's dialogs for choosing a file; both block until the dialog is closed and give the path in UTF-8.
/// Nothing comes back from a dialog that was cancelled, and a dialog that can't be shown counts as cancelled; the user
/// is told if there is none to show at all.
///
/// `filter` lists extensions without dots: commas join extensions into one choice, semicolons separate choices
/// ("json,txt;png"). An empty filter shows all files.
class FileDialogs {
public:
  static std::optional<std::string> Open(const std::string& filter = {});
  static std::optional<std::string> Save(const std::string& filter = {});

  /// Installs a backend, which stays the caller's and must outlive its installation; returns the former one. Null, as
  /// at the start, means the desktop's own dialogs.
  static FileDialogBackend* SetBackend(FileDialogBackend* backend);
  /// Tells the path of the file that is worked on, where dialogs start; empty if there is none. Null, as at the start,
  /// means that there is none.
  static void SetCurrentFile(std::function<std::string()> path);
  /// What is called again and again while a dialog of the desktop is open, so that the window behind it can repaint and
  /// unsaved work is kept. False ends the dialog as if it were cancelled.
  static void SetWhileOpen(bool (*turn)());
};

} // namespace Tesselor
