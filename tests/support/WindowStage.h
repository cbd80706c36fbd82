#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "ChosenFile.h"
#include "MemoryClipboard.h"
#include "Stage.h"
#include "TemporaryDirectory.h"
#include "ToolkitWarnings.h"
#include "editor/MainView.h"
#include "editor/NodeEditorCanvas.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "values/ActionHistory.h"

#include <filesystem>
#include <string>
#include <vector>

namespace TestSupport {

/// A directory with one workspace of the given schemas, each a JSON object as text. The first one's "id" is the root
/// type of its documents and the name of the root in the menu.
class TestWorkspace : public TemporaryDirectory {
public:
  explicit TestWorkspace(const std::vector<std::string>& schemas);
};

struct WindowSetup {
  /// A sample by its name ("quest"), of which a copy is opened, or the path of an asset; empty for the default document
  /// of the first root.
  std::string document = {};
  /// Holds `Workspaces`; the current directory while the stage lives.
  std::filesystem::path directory = TESSELOR_DATA_DIR;
  Toolkit::Size size = {1280, 800};
  Stage::Frames frames = Stage::Frames::Recorded;
  /// What is told in boxes while the window comes up.
  std::vector<std::string> complaints = {};
};

/// The editor's whole window on a stage, with a document in it. Message boxes, log lines, warnings, file dialogs and
/// the clipboard are kept from the desktop. A warning, or a box that is not expected, while the document opens fails
/// the test, and so does a window that outlives its stage.
///
///   WindowStage window("quest");
///   ContentNode& node = window.Node("The nest");
///   window.LookAt(node);
///   window.Click(node, {.held = {Key::LeftShift}});
///   window.Undo();
///   EXPECT_EQ(window.Exported(), before);
class WindowStage : public Stage {
public:
  explicit WindowStage(const WindowSetup& setup = {});
  explicit WindowStage(const char* document) : WindowStage(WindowSetup{.document = document}) {}
  ~WindowStage();

  Tesselor::MainView& View() const { return *view; }
  Tesselor::NodeEditorCanvas& Canvas() const { return view->GetCanvas(); }
  Tesselor::ActionHistory& History() const { return Tesselor::ActionHistory::Instance(); }

  // Parts of the document; a part that is not there ends the test.
  /// The first node of that title, without its array index. The root's begins with "[ROOT] ".
  Tesselor::ContentNode& Node(const std::string& title) const;
  /// The drawn shape of a pin, which is pressed to connect it.
  Toolkit::FrameworkElement& Pin(const Tesselor::ContentNode& node, const std::string& id) const;
  /// The element of that class, in tree order, in one of a node's fields.
  template <class T>
  T& FieldPart(const Tesselor::ContentNode& node, const std::string& fieldId, size_t index = 0) const {
    return *All<T>(Field(node, fieldId)).at(index);
  }
  Tesselor::BaseField& Field(const Tesselor::ContentNode& node, const std::string& id) const;
  /// The text that a save would write; empty without a root.
  std::string Exported() const;

  /// Shows what the canvas has at an element's middle, at the zoom step nearest below `zoom`, with the mouse outside.
  void LookAt(const Toolkit::UIElement& element, float zoom = 1);
  /// A point of the window where only the bare canvas is.
  Toolkit::Point EmptySpot() const;
  /// The point of the window that shows a point of the canvas's panel, and the other way round.
  Toolkit::Point ToWindow(Toolkit::Point onPanel) const;
  Toolkit::Point ToPanel(Toolkit::Point inWindow) const { return Canvas().GetPanel()->PointFromRoot(inWindow); }

  // What a user does by keys.
  void Undo() { Chord({Toolkit::Key::LeftCtrl, Toolkit::Key::Z}); }
  void Redo() { Chord({Toolkit::Key::LeftCtrl, Toolkit::Key::LeftShift, Toolkit::Key::Z}); }
  /// The texts of the bar, newest first. Settles before.
  std::vector<std::string> NoticesShown();
  /// Opens a file by the dialog.
  void Open(const std::string& path);

  CapturedLog log;
  CapturedBoxes boxes;
  ChosenFile dialogs;
  MemoryClipboard clipboard;

private:
  CurrentDirectoryScope directory;
  TemporaryDirectory copies;
  ToolkitWarnings warnings;
  Toolkit::Ptr<Tesselor::MainView> view;
};

} // namespace TestSupport
