// What the nodes menu costs with many types: opens it in the whole editor on a display that keeps its pixels in memory,
// types into it, clears it again by keys, and walks through it. Prints the processor time of each, from the key to the
// last pixel of the frame, in milliseconds.
//
//   NodesMenu [TYPES [CATEGORIES [THREADS]]]   1920x1080; 2000 types in 40 categories unless told
#include "ScriptedDisplay.h"

#include "editor/NodesMenu.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Toolkit::Key;

/// Where only the bare canvas is.
constexpr Toolkit::Point At{200, 200};

class MenuKeys : public Bench::ScriptedDisplay {
public:
  using ScriptedDisplay::ScriptedDisplay;

private:
  void MakeSteps() override {
    for (const char* when : {"first time", "again"}) {
      Measure("open", when, [this] {
        input->MouseDown(Toolkit::MouseButton::Right, At, 1);
        input->MouseUp(Toolkit::MouseButton::Right, At);
      });
      for (const char* letter : {"t", "y", "p", "e", "1", "7"})
        Measure(std::string("key ") + letter, when, [this, letter] { input->TextInput(letter); });
      for (int i = 0; i < 6; ++i) Measure("backspace", when, [this] { Press(Key::Back); });
      for (int i = 0; i < 60; ++i) Measure("down", when, [this] { Press(Key::Down); });
      for (int i = 0; i < 20; ++i) Measure("page down", when, [this] { Press(Key::PageDown); });
      Measure("escape", when, [this] { Press(Key::Escape); });
    }
    Add([this] { Report(); });
  }

  void Measure(const std::string& name, const char* when, std::function<void()> step) {
    Add([this, name = name + ", " + when, step = std::move(step)] {
      if (measured != name) Report();
      measured = name;
      step();
    });
  }

  void Report() {
    const Times times = Take();
    size_t listed = 0;
    if (auto* menu = Bench::FindFirst<Tesselor::NodesMenu>(*root, [](auto&) { return true; })) {
      const std::function<bool(Tesselor::NodeTypeList&)> count = [&listed](auto& list) {
        listed += list.Shown().size();
        return false;
      };
      Bench::FindFirst<Tesselor::NodeTypeList>(*menu, count);
    }
    if (!measured.empty() && !times.processor.empty())
      std::printf("%-24s slowest CPU %8.2f  (%zu frames, %zu types in open categories)\n", measured.c_str(),
                  *std::max_element(times.processor.begin(), times.processor.end()), times.processor.size(), listed);
    std::fflush(stdout);
    measured.clear();
  }

  void Press(Key key) {
    input->KeyDown(key);
    input->KeyUp(key);
  }

  std::string measured;
};

void Write(const std::filesystem::path& path, const std::string& text) { std::ofstream(path) << text; }

/// A workspace of so many types, and a document of its root.
std::filesystem::path MakeDocument(const std::filesystem::path& home, int types, int categories) {
  const std::filesystem::path workspace = home / "Workspaces" / "Many";
  std::filesystem::create_directories(workspace);
  std::vector<std::string> members(static_cast<size_t>(categories));
  for (int i = 0; i < types; ++i) {
    const std::string id = "Type" + std::to_string(i);
    Write(workspace / (id + ".json"),
          R"({"id": ")" + id + R"(", "title": ")" + id + R"(", "color": "red", "Description": "One of many."})");
    std::string& ids = members[static_cast<size_t>(i) * members.size() / static_cast<size_t>(types)];
    ids += (ids.empty() ? "\"" : ", \"") + id + "\"";
  }
  std::string table;
  for (size_t i = 0; i < members.size(); ++i)
    table += (i ? ", " : "") + ("\"Category " + std::to_string(i)) + "\": [" + members[i] + "]";
  Write(workspace / "_Workspace.json", R"({"WorkspaceName": "Many", "Roots": {"Many": {"RootNodeType": "Type0",)"
                                       R"( "MenuName": "Many"}}, "NodeCategories": {)" +
                                           table + "}}");
  Write(home / "document.json", R"({"$NodeID": "root", "$NodeEditorMetadata": {"$WorkspaceID": "Many"}})");
  return home / "document.json";
}

} // namespace

int main(int argc, char** argv) {
  const int types = argc > 1 ? std::atoi(argv[1]) : 2000;
  const int categories = argc > 2 ? std::atoi(argv[2]) : 40;
  const int threads = argc > 3 ? std::atoi(argv[3]) : 0;
  return Bench::RunEditorInHome(
      argv[0], [&](const std::filesystem::path& home) { return MakeDocument(home, types, categories); },
      [&] { return std::make_unique<MenuKeys>(threads); });
}
