#include "app/AppLauncher.h"
#include "platform/CommandLineOptions.h"
#include "platform/EndSignals.h"
#include "platform/ExecutableDirectory.h"
#include "platform/LogFile.h"
#include "platform/OutOfMemory.h"
#include "toolkit/base/Diagnostics.h"
#include "workspace/AssetFileIndex.h"

#include <cstdio>
#include <memory>
#include <string_view>

#ifdef TESSELOR_JEMALLOC
/// Read by the allocator when it starts: huge pages, since a document's objects are many and stay, until a window
/// shows. No thread of the allocator's own, and one arena, since one thread does the work.
extern "C" {
const char* malloc_conf = "thp:always,narenas:1,background_thread:false,dirty_decay_ms:10000";
}
#endif

namespace Tesselor {
namespace {

/// What a handler formats goes through a buffer of this size; longer text is cut.
constexpr size_t DiagnosticLength = 1024;

const char* LevelName(Toolkit::LogLevel level) {
  static const char* const names[] = {"Trace", "Debug", "Info", "Warning", "Error"};
  return names[static_cast<uint32_t>(level) % 5];
}

/// A source file by its path in the source tree: where the program was built tells nobody anything.
const char* InTree(const char* file) {
  const std::string_view path(file), root("/src/");
  const size_t at = path.rfind(root);
  return at == path.npos ? file : file + at + root.size();
}

void OnLog(const char* file, uint32_t line, Toolkit::LogLevel level, const char*, const char* message) {
  char text[DiagnosticLength];
  std::snprintf(text, sizeof text, "[NOESIS/%s] %s:%d %s", LevelName(level), InTree(file), static_cast<int>(line),
                message);
  LogFile::Write(text);
}

void OnError(const char* file, uint32_t line, const char* message, bool fatal) {
  char text[DiagnosticLength];
  std::snprintf(text, sizeof text, "[NOESIS/Error] %s:%d %s (%s)", InTree(file), static_cast<int>(line), message,
                fatal ? "fatal" : "");
  LogFile::Write(text);
}

bool OnAssert(const char* file, uint32_t line, const char* expression) {
  char text[DiagnosticLength];
  std::snprintf(text, sizeof text, "[NOESIS/Assert] %s:%d %s", InTree(file), static_cast<int>(line), expression);
  LogFile::Write(text);
  return true;
}

void OpenLog(Arguments arguments) {
  const std::vector<std::string> directories = FindLogDirectories(arguments);
  for (const std::string& directory : directories) LogFile::Open(directory);
  if (directories.empty()) LogFile::Open("");
}

void ReadOptions(Arguments arguments) {
  if (std::optional<std::string> asset = FindAssetToLoad(arguments)) {
    AssetFileIndex& index = AssetFileIndex::Instance();
    index.assetToLoad = *asset;
    index.BuildAsync(*asset);
  }
  ReadCommandLineOptions(arguments, CommandLineOptions::Instance());
}

int Run(int argc, const char* const* argv) {
  EndWhenOutOfMemory();
  OccupyStandardDescriptors();
  TakeFailedWritesAsErrors();
  Toolkit::SetLogHandler(&OnLog);
  Toolkit::SetErrorHandler(&OnError);
  Toolkit::SetAssertHandler(&OnAssert);
  const Arguments arguments(argv, argc > 0 ? static_cast<size_t>(argc) : 0);
  OpenLog(arguments);
  if (!arguments.empty()) ExecutableDirectory::SetFromProgram(argv[0]);

  auto launcher = std::make_unique<AppLauncher>();
  launcher->SetArguments(argc, argv);
  launcher->SetApplicationFile("App.xaml");
  LogFile::Prune();
  LogFile::Write("Starting node editor application");
  ReadOptions(arguments);
  const int exitCode = launcher->Run();

  Toolkit::SetLogHandler(nullptr);
  Toolkit::SetErrorHandler(nullptr);
  Toolkit::SetAssertHandler(nullptr);
  return exitCode;
}

} // namespace
} // namespace Tesselor

int main(int argc, char** argv) { return Tesselor::Run(argc, argv); }
