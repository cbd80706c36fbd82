// What editing many nodes at once costs: opens an asset in the whole editor on a display that keeps its pixels in
// memory, and does what a user does to all of its nodes: select, drag, drop, copy, delete, undo, redo, paste. Prints
// the processor time of each, from the key or the mouse to the last pixel of the frame, in milliseconds; in the median
// also the kernel's part of it.
//
//   Editing ASSET [THREADS [STEPS]]   1920x1080; the asset's workspace is found as the editor finds it; a drag has 20
//                                     steps unless told
#include "ScriptedDisplay.h"

#include "nodes/ContentNode.h"
#include "toolkit/visual/Clipboard.h"
#include "values/ActionHistory.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

using Toolkit::Key;
using Toolkit::MouseButton;
using Toolkit::Point;

/// A clipboard that stays in the program.
struct MemoryClipboard : Toolkit::ClipboardBackend {
  bool SetText(const std::string& value) override {
    text = value;
    return true;
  }
  std::optional<std::string> GetText() override { return text; }
  std::string text;
};

class Edits : public Bench::ScriptedDisplay {
public:
  Edits(int threads, int dragSteps) : ScriptedDisplay(threads), dragSteps(dragSteps) {
    Toolkit::Clipboard::SetBackend(&clipboard);
  }
  ~Edits() override { Toolkit::Clipboard::SetBackend(nullptr); }

private:
  void MakeSteps() override {
    // A child writes the copy of unsaved work; until it is there nothing else waits for it.
    Measure("start of a rescue copy", [this] { View().Keeper()->StartCopy(); });
    Measure("rescue copy until it is there", [this] { View().Keeper()->Finish(); });
    Add([this] {
      // In the middle of the view stands a node that is pressed below.
      const Toolkit::Rect bounds = View().ContentNodes().back()->Bounds();
      const Point onPanel{bounds.x + bounds.width / 2, bounds.Bottom() - 5};
      canvas->ResetViewTo(onPanel);
      grip = canvas->GetPanel()->TransformToAncestor(nullptr).Map(onPanel);
      canvas->GetPanel()->Focus();
    });
    Measure("select all", [this] { Chord(Key::A); });
    Measure("press", [this] { input->MouseDown(MouseButton::Left, grip, 1); });
    for (int i = 1; i <= dragSteps; ++i)
      Measure(i == 1 ? "first step of a drag" : "step of a drag", [this, i] {
        input->MouseMove({grip.x + static_cast<float>(i % 90 * 3), grip.y + static_cast<float>(i % 70 * 2)});
      });
    Measure("drop", [this] { input->MouseUp(MouseButton::Left, {grip.x + 60, grip.y + 40}); });
    Measure("undo of the drag", [this] { Chord(Key::Z); });
    Measure("redo of the drag", [this] { Chord(Key::Y); });
    for (int i = 0; i < 3; ++i) Measure("arrow key", [this] { Press(Key::Right); });
    Measure("copy", [this] { Chord(Key::C); });
    Measure("delete", [this] { Press(Key::Delete); });
    Measure("undo of the delete", [this] { Chord(Key::Z); });
    Measure("redo of the delete", [this] { Chord(Key::Y); });
    Measure("undo of the delete again", [this] { Chord(Key::Z); });
    Measure("paste", [this] { Chord(Key::V); });
    Measure("undo of the paste", [this] { Chord(Key::Z); });
    Measure("redo of the paste", [this] { Chord(Key::Y); });
    Measure("second paste", [this] { Chord(Key::V); });
    Measure("undo of the second paste", [this] { Chord(Key::Z); });
    Measure("open the search", [this] { Chord(Key::F); });
    // The panel reads ahead while nobody types.
    for (int i = 0; i < 50; ++i) Measure("pause", [] {});
    for (const char* letter : {"m", "a", "r", "r", "o", "w"})
      Measure("key in the search", [this, letter] {
        input->TextInput(letter);
        // A search waits for a pause in typing; a key that steps through the results does not.
        Press(Key::Down);
      });
    for (int i = 0; i < 10; ++i) Measure("step in the search", [this] { Press(Key::Down); });
    Measure("result of the search", [this] { Press(Key::Return); });
    Add([this] { Report(); });
  }

  void Measure(const char* name, std::function<void()> step) {
    Add([this, name, step = std::move(step)] {
      if (measured != name) Report();
      measured = name;
      step();
    });
  }

  void Report() {
    Times times = Take();
    if (measured.empty() || times.processor.empty()) {
      measured.clear();
      return;
    }
    std::sort(times.processor.begin(), times.processor.end());
    std::sort(times.wall.begin(), times.wall.end());
    std::sort(times.kernel.begin(), times.kernel.end());
    std::printf("%-28s CPU %9.2f  slowest %9.2f  kernel %8.2f  wall %9.2f  (%zu frames, %zu nodes, %zu selected)\n",
                measured.c_str(), times.processor[times.processor.size() / 2], times.processor.back(),
                times.kernel[times.kernel.size() / 2], times.wall[times.wall.size() / 2], times.wall.size(),
                View().ContentNodes().size(), View().GetGraph().Selected().GetNodes().size());
    std::fflush(stdout);
    measured.clear();
  }

  void Press(Key key) {
    input->KeyDown(key);
    input->KeyUp(key);
  }
  void Chord(Key key) {
    input->KeyDown(Key::LeftCtrl);
    Press(key);
    input->KeyUp(Key::LeftCtrl);
  }

  int dragSteps;
  MemoryClipboard clipboard;
  /// Where the node is held, in the window.
  Point grip;
  std::string measured;
};

} // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: Editing ASSET [THREADS [STEPS]]\n", stderr);
    return 2;
  }
  const int threads = argc > 2 ? std::atoi(argv[2]) : 0;
  const int dragSteps = argc > 3 ? std::atoi(argv[3]) : 20;
  return Bench::RunEditor(argv[0], argv[1], [&] { return std::make_unique<Edits>(threads, dragSteps); });
}
