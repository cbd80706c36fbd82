#include "platform/FileDialogs.h"

#include "platform/ExecutableDirectory.h"
#include "platform/MessageBoxes.h"

#include <cstdlib>
#include <dlfcn.h>
#include <utility>

namespace Tesselor {

namespace {

constexpr int dialogAccepted = 1;
using DialogFunction = int (*)(const char* filterList, const char* defaultPath, char** outPath);
using TurnFunction = bool (*)();

/// The desktop's dialogs live in a module of their own that is loaded by the first dialog: their toolkit takes far
/// longer to start than the whole program, and an unattended run must not need it. The module is never unloaded,
/// since its toolkit leaves threads and exit handlers behind.
class DialogModule {
public:
  DialogModule() {
    if (ExecutableDirectory::Get().empty()) return;
    for (const char* place : {"/", "/../lib/", "/../lib/tesselor/"}) {
      const std::string path = ExecutableDirectory::Get() + place + "libtesselor_filedialogs.so";
      void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
      if (!module) continue;
      open = reinterpret_cast<DialogFunction>(dlsym(module, "NFD_OpenDialog"));
      save = reinterpret_cast<DialogFunction>(dlsym(module, "NFD_SaveDialog"));
      setWhileOpen = reinterpret_cast<void (*)(TurnFunction)>(dlsym(module, "NFD_SetWhileOpen"));
      return;
    }
  }

  static const DialogModule& Instance() {
    static const DialogModule instance;
    return instance;
  }

  DialogFunction open = nullptr;
  DialogFunction save = nullptr;
  void (*setWhileOpen)(TurnFunction) = nullptr;
};

TurnFunction whileOpen = nullptr;
std::function<std::string()> currentFile;

std::string StartPath() { return currentFile ? currentFile() : std::string(); }

std::optional<std::string> Run(DialogFunction dialog, const std::string& filter, const std::string& startPath) {
  if (!dialog) {
    ReportError(
        "No file dialog can be shown: libtesselor_filedialogs.so is missing or can't be loaded",
        "Files can't be chosen here: the module with the desktop's file dialogs, libtesselor_filedialogs.so, is "
        "missing or can't be loaded.",
        "No File Dialog");
    return std::nullopt;
  }
  if (const auto set = DialogModule::Instance().setWhileOpen) set(whileOpen);
  char* chosen = nullptr;
  const int result =
      dialog(filter.empty() ? nullptr : filter.c_str(), startPath.empty() ? nullptr : startPath.c_str(), &chosen);
  if (result != dialogAccepted || !chosen) {
    std::free(chosen);
    return std::nullopt;
  }
  std::string path = chosen;
  std::free(chosen);
  return path;
}

FileDialogBackend* currentBackend = nullptr;

} // namespace

std::optional<std::string> FileDialogs::Open(const std::string& filter) {
  const std::string start = StartPath();
  return currentBackend ? currentBackend->Open(filter, start) : Run(DialogModule::Instance().open, filter, start);
}

std::optional<std::string> FileDialogs::Save(const std::string& filter) {
  const std::string start = StartPath();
  return currentBackend ? currentBackend->Save(filter, start) : Run(DialogModule::Instance().save, filter, start);
}

void FileDialogs::SetCurrentFile(std::function<std::string()> path) { currentFile = std::move(path); }

void FileDialogs::SetWhileOpen(bool (*turn)()) { whileOpen = turn; }

FileDialogBackend* FileDialogs::SetBackend(FileDialogBackend* backend) {
  return std::exchange(currentBackend, backend);
}

} // namespace Tesselor
