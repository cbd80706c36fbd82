// Reads the include lines under src/ and holds them against the table of rooms in docs/architecture.md, without
// exceptions. A new room or layer gets a row here and there.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

/// From the ground up: every room may include itself, those before it and, in angle brackets, the standard library and
/// other libraries.
const std::vector<std::string_view> rooms = {"toolkit", "platform", "workspace", "values", "fields", "nodes",
                                             "graph",   "document", "commands",  "editor", "app"};

/// The toolkit's layers, lowest first: each may include itself and those before it.
const std::vector<std::string_view> layers = {"base",   "visual",   "text",    "render",
                                              "markup", "controls", "display", "application"};

std::vector<std::string> SplitPath(std::string_view path) {
  std::vector<std::string> parts;
  std::istringstream stream{std::string(path)};
  for (std::string part; std::getline(stream, part, '/');) parts.push_back(part);
  return parts;
}

/// Where a name stands in a list from the ground up; nothing if it isn't there.
std::optional<size_t> HeightIn(const std::vector<std::string_view>& list, std::string_view name) {
  const auto found = std::find(list.begin(), list.end(), name);
  if (found == list.end()) return std::nullopt;
  return static_cast<size_t>(found - list.begin());
}

/// Why `file` must not include `included` (both relative to src/), or nothing if it may.
std::optional<std::string> Objection(std::string_view file, std::string_view included) {
  const std::vector<std::string> from = SplitPath(file), to = SplitPath(included);
  const std::optional<size_t> fromRoom = HeightIn(rooms, from.front()), toRoom = HeightIn(rooms, to.front());
  if (!fromRoom || from.size() < 2) return "the file stands in no room of the table";
  if (!toRoom || to.size() < 2) return "the included path does not begin with a room (include paths start at src/)";
  if (*toRoom > *fromRoom) return from.front() + " may not include " + to.front() + ", which stands above it";
  if (from.front() != "toolkit") return std::nullopt;
  const std::optional<size_t> fromLayer = HeightIn(layers, from[1]), toLayer = HeightIn(layers, to[1]);
  if (!fromLayer || !toLayer) return "no such layer of the toolkit";
  if (*toLayer > *fromLayer) return "the toolkit's layer " + to[1] + " lies above " + from[1];
  return std::nullopt;
}

/// The paths of a source's quoted includes.
std::vector<std::string> QuotedIncludes(std::istream& source) {
  std::vector<std::string> paths;
  for (std::string line; std::getline(source, line);) {
    size_t at = line.find_first_not_of(" \t");
    if (at == std::string::npos || line[at] != '#') continue;
    at = line.find_first_not_of(" \t", at + 1);
    if (at == std::string::npos || line.compare(at, 7, "include") != 0) continue;
    const size_t open = line.find('"', at);
    const size_t close = open == std::string::npos ? open : line.find('"', open + 1);
    if (close != std::string::npos) paths.push_back(line.substr(open + 1, close - open - 1));
  }
  return paths;
}

} // namespace

TEST(IncludeTable, DecidesTheCasesThatItStandsFor) {
  struct Case {
    const char* file;
    const char* included;
    bool allowed;
  };
  const Case cases[] = {
      {"nodes/ContentNode.cpp", "fields/BaseField.h", true},
      {"nodes/ContentNode.cpp", "nodes/BaseNode.h", true},
      {"nodes/ContentNode.cpp", "graph/Graph.h", false},
      {"fields/FieldText.cpp", "values/FieldTextData.h", true},
      {"values/FieldTextData.h", "fields/BaseField.h", false},
      {"document/NodeImporter.cpp", "commands/BatchMoveActionCommand.h", false},
      {"platform/LogFile.cpp", "workspace/Workspaces.h", false},
      {"app/main.cpp", "editor/MainView.h", true},
      {"editor/MainView.cpp", "app/AppLauncher.h", false},
      {"toolkit/base/Value.h", "nodes/BaseNode.h", false},
      {"toolkit/text/TextLayout.h", "toolkit/base/Color.h", true},
      {"toolkit/base/Color.h", "toolkit/text/TextLayout.h", false},
      {"toolkit/application/Window.cpp", "toolkit/visual/Visual.h", true},
      {"toolkit/visual/Visual.cpp", "toolkit/application/Window.h", false},
      {"actions/Command.h", "toolkit/base/Value.h", false},
      {"fields/FieldText.cpp", "FieldText.h", false},
  };
  for (const Case& each : cases)
    EXPECT_EQ(!Objection(each.file, each.included).has_value(), each.allowed) << each.file << " -> " << each.included;
}

TEST(IncludeTable, HoldsForEverySource) {
  const std::filesystem::path root = std::filesystem::path(TESSELOR_SOURCE_DIR) / "src";
  size_t files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    const std::string extension = entry.path().extension().string();
    if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp")) continue;
    ++files;
    const std::string file = entry.path().lexically_relative(root).generic_string();
    std::ifstream source(entry.path());
    for (const std::string& included : QuotedIncludes(source)) {
      const std::optional<std::string> objection = Objection(file, included);
      EXPECT_FALSE(objection.has_value()) << file << " includes \"" << included << "\": " << objection.value_or("");
    }
  }
  EXPECT_GT(files, 0u);
}
