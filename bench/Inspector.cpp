// What the fields beside the canvas cost for a node with many of them: opens and closes them by keys in the whole
// editor on a display that keeps its pixels in memory. Prints the processor time, from the key to the last pixel of the
// frame, in milliseconds.
//
//   Inspector [FIELDS [TIMES [THREADS]]]   1920x1080; 200 fields of all simple kinds, 20 times unless told
#include "ScriptedDisplay.h"

#include "editor/NodePanel.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using Toolkit::Key;

class InspectorKeys : public Bench::ScriptedDisplay {
public:
  InspectorKeys(int threads, int times) : ScriptedDisplay(threads), times(times) {}

private:
  void MakeSteps() override {
    // With nothing selected a walk begins at the root, which is the node with the fields.
    Add([this] { Press({Key::LeftAlt, Key::Right}); });
    for (int i = 0; i < times; ++i) {
      Add([this] {
        Take();
        Press({Key::LeftAlt, Key::Return});
      });
      Add([this] { Note("open"); });
      Add([this] { Press({Key::LeftAlt, Key::Return}); });
      Add([this] { Note("close"); });
    }
    Add([this] { Report(); });
  }

  void Note(const std::string& what) {
    const Times taken = Take();
    double all = 0;
    for (const double each : taken.processor) all += each;
    auto* panel = Bench::FindFirst<Tesselor::NodePanel>(*root, [](auto&) { return true; });
    const bool isOpen = panel && panel->Node();
    if (isOpen != (what == "open")) std::printf("%s did not happen\n", what.c_str());
    if (isOpen) rows = panel->GetFieldsStack()->ChildCount();
    (what == "open" ? opened : closed).push_back(all);
  }

  void Report() {
    for (auto* list : {&opened, &closed}) {
      const double first = list->front();
      std::sort(list->begin(), list->end());
      std::printf("%-6s %zu fields: first time %7.2f, median %7.2f, slowest %7.2f\n",
                  list == &opened ? "open" : "close", rows, first, (*list)[list->size() / 2], list->back());
    }
    std::fflush(stdout);
  }

  void Press(std::initializer_list<Key> keys) {
    for (const Key key : keys) input->KeyDown(key);
    for (const Key key : keys) input->KeyUp(key);
  }

  int times;
  size_t rows = 0;
  std::vector<double> opened, closed;
};

/// A workspace of one type with so many fields, and a document of it.
std::filesystem::path MakeDocument(const std::filesystem::path& home, int fields) {
  const std::filesystem::path workspace = home / "Workspaces" / "Many";
  std::filesystem::create_directories(workspace);
  constexpr const char* Types[] = {"String", "SmallString", "Int", "Float", "Checkbox", "IntSlider", "Mixed"};
  std::string content, schema;
  for (int i = 0; i < fields; ++i) {
    const std::string id = "Field" + std::to_string(i), comma = i ? ", " : "";
    content +=
        comma + R"({"Id": ")" + id + R"(", "Type": ")" + Types[static_cast<size_t>(i) % std::size(Types)] + "\"}";
    schema += comma + "\"" + id + "\": \"" + id + "\"";
  }
  std::ofstream(workspace / "Node.json") << R"({"id": "Node", "title": "Node", "color": "red", "content": [)" << content
                                         << R"(], "Schema": {)" << schema << "}}";
  std::ofstream(workspace / "_Workspace.json")
      << R"({"WorkspaceName": "Many", "Roots": {"Many": {"RootNodeType": "Node", "MenuName": "Many"}}})";
  std::ofstream(home / "document.json") << R"({"$NodeID": "root", "$NodeEditorMetadata": {"$WorkspaceID": "Many"}})";
  return home / "document.json";
}

} // namespace

int main(int argc, char** argv) {
  const int fields = argc > 1 ? std::atoi(argv[1]) : 200;
  const int times = argc > 2 ? std::atoi(argv[2]) : 20;
  const int threads = argc > 3 ? std::atoi(argv[3]) : 0;
  return Bench::RunEditorInHome(
      argv[0], [&](const std::filesystem::path& home) { return MakeDocument(home, fields); },
      [&] { return std::make_unique<InspectorKeys>(threads, times); });
}
