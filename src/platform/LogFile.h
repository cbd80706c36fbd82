#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace Tesselor {

/// The program's one log, a text file of timestamped lines in a directory `NodeEditorLogs`.
///
/// The record lives from its first access to process exit. No failure of the log ever stops the program: what goes
/// wrong here is told on the standard error stream only. Not guarded by a lock; only the UI thread writes.
class LogFile {
public:
  /// Receives texts in place of the file.
  using Sink = std::function<void(std::string_view text)>;

  LogFile(const LogFile&) = delete;
  LogFile& operator=(const LogFile&) = delete;

  static LogFile& Instance();

  /// Opens `<directory>/NodeEditorLogs/<local time>.log`, creating the last level only; an empty directory means the
  /// current one. A log that is already open stays open, and nothing is opened in its place.
  static void Open(const std::string& directory);

  /// Writes one line, which reaches the file before the call returns. Dropped, with a word on the standard error
  /// stream, as long as no file is open.
  static void Write(std::string_view text);
  /// Two lines between which nothing happens, at the cost of one.
  static void WriteBoth(std::string_view first, std::string_view second);

  /// Deletes every file that is 168 hours old or older from `NodeEditorLogs` under the current directory, wherever
  /// this run's own log lies.
  static void Prune();

  /// Sends texts to `sink` and returns the former one; an empty sink means the file again.
  static Sink SetSink(Sink sink);

  bool IsOpen() const { return descriptor >= 0; }

private:
  LogFile() = default;
  ~LogFile();

  std::string_view CurrentTime();
  void WriteLine(std::string_view time, std::string_view separator, std::string_view text);
  /// Says on standard error, cut to a length, what the log did not take.
  void TellInstead(int error, std::string_view text);
  void End();

  int descriptor = -1;
  bool endsAtExit = false;
  Sink sink;
  // A load writes hundreds of thousands of lines, nearly all of them within the second of the line before.
  long long formattedSecond = -1;
  char formatted[16] = {};
  size_t formattedLength = 0;
  /// Kept for its memory.
  std::string twoLines;
  bool hasFailed = false;
};

} // namespace Tesselor
