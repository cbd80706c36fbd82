#pragma once

#include "platform/FileDialogs.h"

#include <optional>
#include <string>
#include <utility>

namespace TestSupport {

/// Takes the place of the desktop's file dialogs and answers them with a path; without one they count as cancelled.
class ChosenFile : public Tesselor::FileDialogBackend {
public:
  explicit ChosenFile(std::optional<std::string> path = {}) : path(std::move(path)) {
    former = Tesselor::FileDialogs::SetBackend(this);
  }
  ~ChosenFile() override { Tesselor::FileDialogs::SetBackend(former); }
  ChosenFile(const ChosenFile&) = delete;
  ChosenFile& operator=(const ChosenFile&) = delete;

  std::optional<std::string> Open(const std::string& asked, const std::string& start) override {
    filter = asked;
    startPath = start;
    return path;
  }
  std::optional<std::string> Save(const std::string& asked, const std::string& start) override {
    return Open(asked, start);
  }

  std::optional<std::string> path;
  /// What the last dialog was asked to show; nothing if there was none.
  std::optional<std::string> filter;
  /// Where it was asked to start.
  std::string startPath;

private:
  Tesselor::FileDialogBackend* former;
};

} // namespace TestSupport
