// Reads the include lines under src/ and holds them against the table "Rooms and who may call whom" of
// docs/architecture.md. A new room or layer gets a row here and there.
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

struct Room {
  std::string_view name;
  std::vector<std::string_view> mayInclude;
};

/// Every room may include itself and the standard and third-party headers in angle brackets. "app" stands for its
/// leaves; "top" for the sources that put the program together.
const std::vector<Room> rooms = {
    {"toolkit", {}},
    {"app", {"toolkit"}},
    {"workspace", {"toolkit", "app"}},
    {"fields", {"toolkit", "app", "workspace", "actions"}},
    {"nodes", {"toolkit", "app", "workspace", "fields"}},
    {"actions", {"toolkit", "nodes"}},
    {"document", {"toolkit", "app", "nodes", "fields", "workspace"}},
    {"editor", {"toolkit", "app", "workspace", "fields", "nodes", "document", "actions"}},
    {"top", {"toolkit", "app", "workspace", "fields", "nodes", "document", "actions", "editor"}},
    {"dialogmodule", {}},
};

const std::vector<std::string_view> topSources = {"main", "AppLauncher", "App", "ComponentRegistration"};

/// The toolkit's layers, lowest first: each may include itself and those before it.
const std::vector<std::string_view> layers = {"base",   "visual",   "text",    "render",
                                              "markup", "controls", "display", "application"};

/// Leaves inside a higher layer that every layer may include.
const std::vector<std::string_view> leaves = {"toolkit/application/MessageBox.h"};
/// The value carriers of fields know only the toolkit, and the commands that set a value hold them.
const std::vector<std::string_view> valueCarriers = {"values/FieldTextData.h", "values/FieldCheckboxData.h",
                                                     "values/FieldIntData.h"};

bool Contains(const std::vector<std::string_view>& list, std::string_view name) {
  return std::find(list.begin(), list.end(), name) != list.end();
}

std::vector<std::string> SplitPath(std::string_view path) {
  std::vector<std::string> parts;
  std::istringstream stream{std::string(path)};
  for (std::string part; std::getline(stream, part, '/');) parts.push_back(part);
  return parts;
}

/// The room of a path relative to src/, or nothing if no room holds it.
std::optional<std::string> RoomOf(std::string_view path) {
  const std::vector<std::string> parts = SplitPath(path);
  if (parts.size() < 2) return std::nullopt;
  if (parts[0] == "app" && parts[1] == "dialogmodule") return "dialogmodule";
  if (parts[0] == "app" && Contains(topSources, std::filesystem::path(parts.back()).stem().string())) return "top";
  for (const Room& room : rooms)
    if (room.name == parts[0]) return parts[0];
  return std::nullopt;
}

/// Why `file` must not include `included` (both relative to src/), or nothing if it may.
std::optional<std::string> Objection(std::string_view file, std::string_view included) {
  const std::optional<std::string> from = RoomOf(file);
  const std::optional<std::string> to = RoomOf(included);
  if (!from) return "the file stands in no room of the table";
  if (!to) return "the included path does not begin with a room (include paths start at src/)";
  if (*from == *to && *from != "toolkit") return std::nullopt;
  if (*from != *to) {
    const auto row = std::find_if(rooms.begin(), rooms.end(), [&](const Room& room) { return room.name == *from; });
    if (Contains(row->mayInclude, *to)) return std::nullopt;
    if (*from == "actions" && Contains(valueCarriers, included)) return std::nullopt;
    return *from + " may not include " + *to;
  }
  if (Contains(leaves, included)) return std::nullopt;
  const auto fromLayer = std::find(layers.begin(), layers.end(), SplitPath(file)[1]);
  const auto toLayer = std::find(layers.begin(), layers.end(), SplitPath(included)[1]);
  if (fromLayer == layers.end() || toLayer == layers.end()) return "no such layer of the toolkit";
  if (toLayer > fromLayer)
    return "the toolkit's layer " + std::string(*toLayer) + " lies above " + std::string(*fromLayer);
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
      {"nodes/ContentNode.cpp", "document/NodeImporterExporter.h", false},
      {"toolkit/base/Value.h", "nodes/BaseNode.h", false},
      {"toolkit/text/TextLayout.h", "toolkit/base/Color.h", true},
      {"toolkit/base/Color.h", "toolkit/text/TextLayout.h", false},
      {"toolkit/visual/Visual.cpp", "toolkit/application/MessageBox.h", true},
      {"toolkit/visual/Visual.cpp", "toolkit/application/Window.h", false},
      {"app/LogFile.cpp", "workspace/Workspaces.h", false},
      {"app/main.cpp", "editor/MainView.h", true},
      {"workspace/Workspace.cpp", "platform/LogFile.h", true},
      {"workspace/Workspace.cpp", "app/AppLauncher.h", false},
      {"fields/TextBoxValueActionCommand.h", "values/FieldTextData.h", true},
      {"fields/TextBoxValueActionCommand.h", "fields/BaseField.h", false},
      {"values/FieldTextData.h", "toolkit/base/Observable.h", true},
      {"values/FieldTextData.h", "nodes/BaseNode.h", false},
      {"document/Importer.cpp", "values/ActionHistory.h", false},
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
