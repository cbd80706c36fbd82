#include "platform/LogFile.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/uio.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace Tesselor {

namespace {

constexpr std::string_view directoryName = "NodeEditorLogs";
constexpr long long retentionHours = 168;

/// The local time by a `strftime` format; the result is empty if there is none.
size_t FormatLocalTime(std::time_t now, const char* format, char* buffer, size_t size) {
  std::tm local{};
  if (now == static_cast<std::time_t>(-1) || !localtime_r(&now, &local)) return 0;
  return std::strftime(buffer, size, format, &local);
}

} // namespace

LogFile& LogFile::Instance() {
  static LogFile instance;
  return instance;
}

LogFile::~LogFile() {
  if (descriptor >= 0) close(descriptor);
}

void LogFile::Open(const std::string& directory) {
  LogFile& log = Instance();
  const std::filesystem::path path = std::filesystem::path(directory) / directoryName;
  std::error_code error;
  if (!std::filesystem::exists(path, error)) std::filesystem::create_directory(path, error);
  if (!std::filesystem::exists(path, error)) {
    std::fputs("Log Directory couldn't be created\n", stderr);
    return;
  }

  char name[64];
  const size_t length = FormatLocalTime(std::time(nullptr), "%Y-%m-%d-%H-%M-%S", name, sizeof name);
  if (length == 0) return;
  if (!log.IsOpen()) {
    const std::string file = (path / (std::string(name, length) + ".log")).string();
    log.descriptor = open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (!log.IsOpen()) std::fputs("Log file not opened!\n", stderr);
  }
  // Registered after the record was made, so that it runs before the record goes.
  if (!std::exchange(log.endsAtExit, true)) std::atexit([] { Instance().End(); });
}

void LogFile::Write(std::string_view text) {
  LogFile& log = Instance();
  if (log.sink) {
    log.sink(text);
    return;
  }
  if (!log.IsOpen()) {
    std::fputs("Log file is not initialized\n", stderr);
    return;
  }
  log.WriteLine(log.CurrentTime(), "::", text);
}

void LogFile::WriteBoth(std::string_view first, std::string_view second) {
  LogFile& log = Instance();
  if (log.sink || !log.IsOpen()) {
    Write(first);
    Write(second);
    return;
  }
  const std::string_view time = log.CurrentTime();
  std::string& lines = log.twoLines;
  lines.assign(first);
  lines += '\n';
  lines += time;
  lines += "::";
  lines += second;
  log.WriteLine(time, "::", lines);
}

void LogFile::Prune() {
  std::error_code error;
  std::filesystem::directory_iterator entries(directoryName, error);
  if (error) return;
  const auto now = std::filesystem::file_time_type::clock::now();
  std::vector<std::filesystem::path> old;
  for (const std::filesystem::directory_iterator end; !error && entries != end; entries.increment(error)) {
    std::error_code entryError;
    if (!entries->is_regular_file(entryError) || entryError) continue;
    const auto written = entries->last_write_time(entryError);
    if (entryError) continue;
    if (std::chrono::duration_cast<std::chrono::hours>(now - written).count() >= retentionHours)
      old.push_back(entries->path());
  }
  for (const std::filesystem::path& path : old) std::filesystem::remove(path, error);
}

LogFile::Sink LogFile::SetSink(Sink sink) { return std::exchange(Instance().sink, std::move(sink)); }

std::string_view LogFile::CurrentTime() {
  const std::time_t now = std::time(nullptr);
  if (formattedLength == 0 || now != formattedSecond) {
    formattedLength = FormatLocalTime(now, "%H-%M-%S", formatted, sizeof formatted);
    formattedSecond = now;
  }
  return {formatted, formattedLength};
}

void LogFile::WriteLine(std::string_view time, std::string_view separator, std::string_view text) {
  constexpr std::string_view lineEnd = "\n";
  iovec parts[4];
  int count = 0;
  for (const std::string_view part : {time, separator, text, lineEnd})
    parts[count++] = {const_cast<char*>(part.data()), part.size()};

  // One system call for a line keeps the lines of two runs that share a file apart.
  iovec* rest = parts;
  while (count > 0) {
    ssize_t written = writev(descriptor, rest, count);
    if (written < 0) {
      if (errno == EINTR) continue;
      TellInstead(errno, text);
      return;
    }
    while (count > 0 && static_cast<size_t>(written) >= rest->iov_len) {
      written -= static_cast<ssize_t>(rest->iov_len);
      ++rest;
      --count;
    }
    if (count > 0) {
      rest->iov_base = static_cast<char*>(rest->iov_base) + written;
      rest->iov_len -= static_cast<size_t>(written);
    }
  }
}

void LogFile::TellInstead(int error, std::string_view text) {
  constexpr int longestLine = 200;
  if (!std::exchange(hasFailed, true)) std::fprintf(stderr, "The log can't be written: %s\n", std::strerror(error));
  std::fprintf(stderr, "%.*s\n", static_cast<int>(std::min<size_t>(text.size(), longestLine)), text.data());
}

void LogFile::End() {
  if (!IsOpen()) return;
  WriteLine({}, {}, "Application ended");
  close(std::exchange(descriptor, -1));
}

} // namespace Tesselor
