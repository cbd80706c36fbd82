// Measures the unattended round trip of the built editor beside a bare parse and print of the same file:
//   RoundTrip <tesselor> [nodes ...] [--repeat=<number>] [--plain]
// For each size it generates an asset (with the program GenerateAsset beside this one) and runs, each in a process of
// its own and without a display: the JSON library's parse and print; the editor on an asset of one node, which is
// what an empty start costs; the editor's load and save. Prints a Markdown table; times are the best of the runs, and
// the time per field is without the empty start. With --plain the assets have no lists, dictionaries and other kinds of
// fields that only branches have.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <cjson/cJSON.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A child that runs longer than this is ended and counts as failed.
constexpr unsigned limitInSeconds = 600;

struct Cost {
  double wallMilliseconds = 0;
  double cpuMilliseconds = 0;
  double peakMegabytes = 0;
  bool succeeded = false;
  int exitCode = -1;
};

double Milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

double MonotonicMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Runs the body in a child process; its result is the child's exit code.
Cost MeasureChild(const std::function<int()>& body) {
  Cost cost;
  std::cout.flush();
  const double start = MonotonicMilliseconds();
  const pid_t child = fork();
  if (child == 0) {
    alarm(limitInSeconds);
    _exit(body());
  }
  if (child < 0) return cost;
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child) return cost;
  cost.wallMilliseconds = MonotonicMilliseconds() - start;
  cost.cpuMilliseconds = Milliseconds(usage.ru_utime) + Milliseconds(usage.ru_stime);
  cost.peakMegabytes = static_cast<double>(usage.ru_maxrss) / 1024;
  cost.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  cost.succeeded = cost.exitCode == 0;
  return cost;
}

Cost BestOf(int repeat, const std::function<Cost()>& measure) {
  Cost best;
  for (int i = 0; i < repeat; ++i) {
    const Cost cost = measure();
    if (!cost.succeeded) return cost;
    if (!best.succeeded || cost.cpuMilliseconds < best.cpuMilliseconds) best = cost;
  }
  return best;
}

/// Reads the file, parses it, prints it, and takes the result's first byte, as the editor does at the least.
int ParseAndPrint(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  const std::string text = content.str();
  cJSON* tree = cJSON_ParseWithLength(text.data(), text.size());
  if (!tree) return 1;
  char* printed = cJSON_Print(tree);
  return printed && printed[0] == '{' ? 0 : 1;
}

/// Replaces the process by the editor, which writes nothing to this program's output. Without an output file it loads
/// only, and then ends by itself since nothing is left to do.
int RunEditor(const std::string& program, const std::filesystem::path& directory, const std::string& asset,
              const std::string& output) {
  if (chdir(directory.c_str()) != 0) return 126;
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  const int sink = open("/dev/null", O_RDWR);
  dup2(sink, STDIN_FILENO);
  dup2(sink, STDOUT_FILENO);
  dup2(sink, STDERR_FILENO);
  const std::string load = "--load-asset=" + asset, save = "--save-to=" + output;
  if (output.empty()) execl(program.c_str(), program.c_str(), load.c_str(), nullptr);
  execl(program.c_str(), program.c_str(), load.c_str(), save.c_str(), "--exit-after-save", nullptr);
  return 127;
}

/// The number of fields of the asset that was generated; 0 after a failure. `option` goes to the generator and may be
/// null.
unsigned long Generate(const std::filesystem::path& directory, const std::string& nodes, const char* option) {
  const std::filesystem::path generator =
      std::filesystem::read_symlink("/proc/self/exe").parent_path() / "GenerateAsset";
  const std::filesystem::path report = directory / "generated.txt";
  const Cost cost = MeasureChild([&] {
    const int sink = open(report.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(sink, STDOUT_FILENO);
    execl(generator.c_str(), generator.c_str(), directory.c_str(), nodes.c_str(), option, nullptr);
    return 127;
  });
  std::string line;
  std::getline(std::ifstream(report), line);
  const size_t before = line.find(" nodes, ");
  return cost.succeeded && before != std::string::npos ? std::strtoul(line.c_str() + before + 8, nullptr, 10) : 0;
}

/// What a cost is compared with; either may be absent.
struct Reference {
  const Cost* bare = nullptr;
  const Cost* start = nullptr;
  unsigned long fields = 0;
};

void PrintRow(const std::string& nodes, const std::string& what, const Cost& cost, const Reference& reference) {
  if (!cost.succeeded) {
    std::printf("| %s | %s | failed | | | | |\n", nodes.c_str(), what.c_str());
    return;
  }
  char ratio[32] = "", perField[32] = "";
  if (reference.bare && reference.bare->cpuMilliseconds > 0)
    std::snprintf(ratio, sizeof(ratio), "%.1f", cost.cpuMilliseconds / reference.bare->cpuMilliseconds);
  if (reference.start && reference.fields > 0)
    std::snprintf(perField, sizeof(perField), "%.1f",
                  (cost.cpuMilliseconds - reference.start->cpuMilliseconds) * 1e3 /
                      static_cast<double>(reference.fields));
  std::printf("| %s | %s | %.1f | %.1f | %.0f | %s | %s |\n", nodes.c_str(), what.c_str(), cost.wallMilliseconds,
              cost.cpuMilliseconds, cost.peakMegabytes, ratio, perField);
}

} // namespace

int main(int argc, char** argv) {
  int repeat = 3;
  const char* option = nullptr;
  std::string program;
  std::vector<std::string> sizes;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument.starts_with("--repeat=")) {
      repeat = std::max(1, std::atoi(argument.c_str() + 9));
    } else if (argument == "--plain") {
      option = "--plain";
    } else if (program.empty()) {
      program = std::filesystem::absolute(argument).string();
    } else {
      sizes.push_back(argument);
    }
  }
  if (program.empty() || access(program.c_str(), X_OK) != 0) {
    std::cerr << "Usage: RoundTrip <tesselor> [nodes ...] [--repeat=<number>] [--plain]\n";
    return 1;
  }
  if (sizes.empty()) sizes = {"1000", "10000", "50000"};

  std::string pattern = (std::filesystem::temp_directory_path() / "tesselor-bench-XXXXXX").string();
  if (!mkdtemp(pattern.data())) {
    std::perror("mkdtemp");
    return 1;
  }
  const std::filesystem::path directory = pattern;
  bool allSucceeded = Generate(directory, "1", option) > 0;
  const auto editor = [&](const std::string& nodes) {
    return BestOf(repeat, [&] {
      const std::string output = "saved-" + nodes + ".json";
      std::filesystem::remove(directory / output);
      Cost cost = MeasureChild([&] { return RunEditor(program, directory, "asset-" + nodes + ".json", output); });
      // An exit code alone does not say that the asset was written.
      cost.succeeded = cost.succeeded && std::filesystem::exists(directory / output);
      return cost;
    });
  };

  std::printf("| nodes | what | wall (ms) | CPU (ms) | peak memory (MB) | CPU against parse and print | "
              "CPU per field (µs) |\n");
  std::printf("|---|---|---|---|---|---|---|\n");
  const Cost start = editor("1");
  PrintRow("1", "editor: start, load and save one node", start, {});
  allSucceeded = allSucceeded && start.succeeded;
  for (const std::string& nodes : sizes) {
    const unsigned long fields = Generate(directory, nodes, option);
    if (fields == 0) {
      std::cerr << "Cannot generate an asset of " << nodes << " nodes.\n";
      allSucceeded = false;
      continue;
    }
    const std::filesystem::path asset = directory / ("asset-" + nodes + ".json");
    const Cost bare = BestOf(repeat, [&] { return MeasureChild([&] { return ParseAndPrint(asset); }); });
    const Cost whole = editor(nodes);
    PrintRow(nodes, "bare parse and print", bare, {});
    const Cost loaded = BestOf(repeat, [&] {
      Cost cost = MeasureChild([&] { return RunEditor(program, directory, asset.string(), ""); });
      // The editor ends such a run with 1, having nothing left to do.
      cost.succeeded = cost.exitCode == 1;
      return cost;
    });
    Cost saving = whole;
    saving.wallMilliseconds -= loaded.wallMilliseconds;
    saving.cpuMilliseconds -= loaded.cpuMilliseconds;
    PrintRow(nodes, "editor: start, load and save", whole, {&bare, &start, fields});
    PrintRow(nodes, "editor: start and load", loaded, {&bare, &start, fields});
    PrintRow(nodes, "the difference: save", saving, {&bare});
    allSucceeded = allSucceeded && bare.succeeded && whole.succeeded;
    std::fflush(stdout);
  }
  std::error_code ignored;
  std::filesystem::remove_all(directory, ignored);
  return allSucceeded ? 0 : 1;
}
