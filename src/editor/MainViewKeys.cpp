// What the keys do in the window.

#include "editor/MainView.h"

#include "editor/GraphWalk.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Key;
using Toolkit::Keyboard;
using Toolkit::Ptr;

/// What a key runs that goes down while its modifiers are held. All rows that match run, from top to bottom.
struct MainView::KeyBinding {
  enum class Ctrl { Up, Down, Either };
  enum class Shift { Up, Down, Either };
  enum class Alt { Up, Down, Either };
  /// Whether it runs again while the key is held.
  enum class Repeat { No, Yes };
  /// What a text box leaves of its keys is the graph's only where that can't surprise who types.
  enum class InText { No, Yes };
  /// `Canvas` only while the keys are the graph's, so that no other control is robbed of its own.
  enum class Where { Anywhere, Canvas };

  Ctrl ctrl;
  Shift shift;
  Key key;
  Repeat repeat;
  InText inText;
  void (MainView::*run)();
  Alt alt = Alt::Either;
  Where where = Where::Anywhere;

  bool Matches(const Toolkit::KeyEventArgs& args, bool isInText) const;
};

/// A chord is what the keys are that are held, whichever of its own keys came last. Another key that is pressed while
/// it is held does not run it again.
bool MainView::KeyBinding::Matches(const Toolkit::KeyEventArgs& args, bool isInText) const {
  if (isInText && inText == InText::No) return false;
  if (args.isRepeat && repeat == Repeat::No) return false;
  const bool isShiftHeld = Keyboard::IsKeyDown(Key::LeftShift);
  if (ctrl != Ctrl::Either && Keyboard::IsKeyDown(Key::LeftCtrl) != (ctrl == Ctrl::Down)) return false;
  if (shift != Shift::Either && isShiftHeld != (shift == Shift::Down)) return false;
  const bool isAltHeld = Keyboard::IsKeyDown(Key::LeftAlt) || Keyboard::IsKeyDown(Key::RightAlt);
  if (alt != Alt::Either && isAltHeld != (alt == Alt::Down)) return false;
  if (args.key == key) return true;
  const bool isOwnModifier =
      (ctrl == Ctrl::Down && args.key == Key::LeftCtrl) || (shift == Shift::Down && args.key == Key::LeftShift);
  return isOwnModifier && Keyboard::IsKeyDown(key);
}

void MainView::RunKeyBindings(const Toolkit::KeyEventArgs& args) {
  using B = KeyBinding;
  constexpr auto Held = B::Ctrl::Down;
  constexpr auto Free = B::Ctrl::Up;
  constexpr auto Any = B::Ctrl::Either;
  constexpr auto NoAlt = B::Alt::Up;
  constexpr auto WithAlt = B::Alt::Down;
  constexpr auto OnCanvas = B::Where::Canvas;
  static const KeyBinding bindings[] = {
      {Held, B::Shift::Down, Key::S, B::Repeat::No, B::InText::Yes, &MainView::SaveAsByKey},
      {Held, B::Shift::Either, Key::S, B::Repeat::No, B::InText::Yes, &MainView::SaveByKey},
      {Held, B::Shift::Either, Key::O, B::Repeat::No, B::InText::Yes, &MainView::Open},
      {Held, B::Shift::Either, Key::F, B::Repeat::No, B::InText::Yes, &MainView::ToggleSearchPanel},
      {Held, B::Shift::Either, Key::C, B::Repeat::No, B::InText::Yes, &MainView::Copy},
      {Held, B::Shift::Either, Key::V, B::Repeat::No, B::InText::Yes, &MainView::Paste},
      {Held, B::Shift::Down, Key::Z, B::Repeat::Yes, B::InText::Yes, &MainView::Redo},
      {Held, B::Shift::Up, Key::Z, B::Repeat::Yes, B::InText::Yes, &MainView::Undo},
      {Held, B::Shift::Up, Key::Y, B::Repeat::Yes, B::InText::Yes, &MainView::Redo},
      {Held, B::Shift::Up, Key::X, B::Repeat::No, B::InText::No, &MainView::Cut},
      {Held, B::Shift::Up, Key::D, B::Repeat::No, B::InText::No, &MainView::Duplicate},
      {Held, B::Shift::Up, Key::A, B::Repeat::No, B::InText::No, &MainView::SelectAll},
      {Free, B::Shift::Up, Key::F2, B::Repeat::No, B::InText::No, &MainView::EditTitle},
      {Any, B::Shift::Either, Key::Delete, B::Repeat::No, B::InText::No, &MainView::DeleteSelection},
      {Free, B::Shift::Either, Key::Left, B::Repeat::Yes, B::InText::No, &MainView::NudgeLeft, NoAlt},
      {Free, B::Shift::Either, Key::Right, B::Repeat::Yes, B::InText::No, &MainView::NudgeRight, NoAlt},
      {Free, B::Shift::Either, Key::Up, B::Repeat::Yes, B::InText::No, &MainView::NudgeUp, NoAlt},
      {Free, B::Shift::Either, Key::Down, B::Repeat::Yes, B::InText::No, &MainView::NudgeDown, NoAlt},
      {Any, B::Shift::Either, Key::H, B::Repeat::No, B::InText::No, &MainView::ToggleHotkeys},
      {Any, B::Shift::Either, Key::Escape, B::Repeat::No, B::InText::Yes, &MainView::GiveUpByKey},
      {Free, B::Shift::Either, Key::Left, B::Repeat::Yes, B::InText::No, &MainView::WalkToParent, WithAlt, OnCanvas},
      {Free, B::Shift::Either, Key::Right, B::Repeat::Yes, B::InText::No, &MainView::WalkToChild, WithAlt, OnCanvas},
      {Free, B::Shift::Either, Key::Up, B::Repeat::Yes, B::InText::No, &MainView::WalkToPrevious, WithAlt, OnCanvas},
      {Free, B::Shift::Either, Key::Down, B::Repeat::Yes, B::InText::No, &MainView::WalkToNext, WithAlt, OnCanvas},
      {Free, B::Shift::Up, Key::Return, B::Repeat::No, B::InText::No, &MainView::EditFirstField, NoAlt, OnCanvas},
      {Free, B::Shift::Up, Key::Return, B::Repeat::No, B::InText::Yes, &MainView::ToggleInspector, WithAlt},
      {Free, B::Shift::Up, Key::Insert, B::Repeat::No, B::InText::No, &MainView::OpenNodesMenuByKey, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::P, B::Repeat::No, B::InText::No, &MainView::OpenPinList, NoAlt, OnCanvas},
      {Free, B::Shift::Either, Key::Apps, B::Repeat::No, B::InText::No, &MainView::OpenNodeMenu, NoAlt, OnCanvas},
      {Free, B::Shift::Down, Key::F10, B::Repeat::No, B::InText::No, &MainView::OpenNodeMenu, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::G, B::Repeat::No, B::InText::No, &MainView::GroupSelection, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::K, B::Repeat::No, B::InText::No, &MainView::AddComment, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::R, B::Repeat::No, B::InText::No, &MainView::SetSelectedAsRoot, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::L, B::Repeat::No, B::InText::No, &MainView::AskToLayOut, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::M, B::Repeat::No, B::InText::No, &MainView::AskToMirror, NoAlt, OnCanvas},
      {Held, B::Shift::Up, Key::E, B::Repeat::No, B::InText::No, &MainView::ToggleCompactMode, NoAlt, OnCanvas},
      {Held, B::Shift::Down, Key::Left, B::Repeat::Yes, B::InText::No, &MainView::NarrowFrame, NoAlt, OnCanvas},
      {Held, B::Shift::Down, Key::Right, B::Repeat::Yes, B::InText::No, &MainView::WidenFrame, NoAlt, OnCanvas},
      {Held, B::Shift::Down, Key::Up, B::Repeat::Yes, B::InText::No, &MainView::LowerFrame, NoAlt, OnCanvas},
      {Held, B::Shift::Down, Key::Down, B::Repeat::Yes, B::InText::No, &MainView::HeightenFrame, NoAlt, OnCanvas},
      {Held, B::Shift::Either, Key::Plus, B::Repeat::Yes, B::InText::No, &MainView::ZoomIn, NoAlt},
      {Held, B::Shift::Either, Key::Minus, B::Repeat::Yes, B::InText::No, &MainView::ZoomOut, NoAlt},
      {Held, B::Shift::Up, Key::D1, B::Repeat::No, B::InText::No, &MainView::ZoomToActualSize, NoAlt},
      {Held, B::Shift::Up, Key::D0, B::Repeat::No, B::InText::No, &MainView::ZoomToFit, NoAlt},
      {Free, B::Shift::Up, Key::Home, B::Repeat::No, B::InText::No, &MainView::WalkToRoot, NoAlt, OnCanvas},
  };
  const bool isInText = Toolkit::DynamicCast<Toolkit::TextBox>(args.source) != nullptr;
  // What one of them does, such as opening a dialog, must not decide whether another one runs.
  std::vector<void (MainView::*)()> matching;
  const bool isOnCanvas = IsCanvasFocused() && !gestures->IsUnderWay();
  for (const KeyBinding& binding : bindings)
    if (binding.Matches(args, isInText) && (isOnCanvas || binding.where == B::Where::Anywhere))
      matching.push_back(binding.run);
  for (const auto run : matching) (this->*run)();
}

void MainView::Window_PreviewKeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) {
  for (Overlay* overlay : {workspaceOverlay.get(), hotkeysOverlay.get(), versionsOverlay.get()})
    if (overlay->IsShown()) return overlay->OnPreviewKey(args);
}

void MainView::Window_KeyDown(Toolkit::Object*, const Toolkit::KeyEventArgs& args) { RunKeyBindings(args); }

void MainView::SaveByKey() { Save(); }
void MainView::SaveAsByKey() { SaveAs(); }

void MainView::GiveUp() {
  gestures->Cancel();
  newNodes->CloseMenu();
  pendingPin.Clear();
}

void MainView::GiveUpByKey() {
  LeaveField();
  GiveUp();
}

void MainView::WalkToParent() { Walk(WalkTo::Parent); }
void MainView::WalkToChild() { Walk(WalkTo::FirstChild); }
void MainView::WalkToPrevious() { Walk(WalkTo::PreviousSibling); }
void MainView::WalkToNext() { Walk(WalkTo::NextSibling); }

void MainView::ToggleHotkeys() {
  const bool shown = Get<Toolkit::Visibility>(HotkeysModalVisibilityProperty) == Toolkit::Visibility::Visible;
  SetValue(HotkeysModalVisibilityProperty, shown ? Toolkit::Visibility::Collapsed : Toolkit::Visibility::Visible);
}

void MainView::Undo() { StepInHistory(&ActionHistory::UndoLast, "Nothing to undo"); }

void MainView::Redo() { StepInHistory(&ActionHistory::RedoLast, "Nothing to redo"); }

void MainView::StepInHistory(bool (ActionHistory::*step)(), const char* otherwise) {
  BeginEdit();
  WithFinishedTyping([&] {
    if (!(ActionHistory::Instance().*step)()) Tell(otherwise);
  });
  CloseInspectorOfGoneNode();
  commandStates->Refresh();
}

void MainView::WithFinishedTyping(const std::function<void()>& run) {
  // A field makes the step when it loses the focus. The panel has none to make, and keeps the place where Tab goes on.
  Toolkit::InputState* input = Toolkit::InputState::Current();
  Toolkit::UIElement* holder = input ? input->Focused() : nullptr;
  const Ptr<Toolkit::UIElement> focused(holder == &graph->Panel() ? nullptr : holder);
  if (focused) input->SetFocus(nullptr);
  run();
  if (focused && focused->IsAttached() && !input->Focused()) focused->Focus();
}

} // namespace Tesselor
