#pragma once

#include "editor/ClickSelection.h"
#include "editor/gestures/ConnectionDragGesture.h"
#include "editor/gestures/EdgeScroll.h"
#include "toolkit/visual/InputEvents.h"

#include <functional>
#include <memory>

namespace Tesselor {

class FrameNode;
class Graph;
class NodeEditorCanvas;
enum class ResizeEdge : uint8_t;

/// Turns presses on the canvas into gestures and leads the one that is under way: the one place that decides which
/// gesture a press begins. While a gesture lasts the canvas holds the mouse, so that it ends wherever the button is
/// released; if the mouse is lost, it is cancelled.
class CanvasGestures {
public:
  struct Callbacks {
    /// A node was double-clicked.
    std::function<void(ContentNode&)> openNode;
    ConnectionDragGesture::Callbacks connection;
  };
  /// The canvas and the graph, which stands on its panel, outlive this.
  CanvasGestures(NodeEditorCanvas& canvas, Graph& graph, Callbacks callbacks);
  ~CanvasGestures();
  CanvasGestures(const CanvasGestures&) = delete;
  CanvasGestures& operator=(const CanvasGestures&) = delete;

  bool IsUnderWay() const { return gesture != nullptr; }
  /// Takes the gesture that is under way back, and the view to where it was when it began, unless it was zoomed
  /// meanwhile.
  void Cancel();

private:
  /// In place of one that is under way, which is cancelled.
  void Begin(std::unique_ptr<Gesture> begun, Toolkit::MouseButton button);
  std::unique_ptr<Gesture> TakeGesture();
  /// Whether a press on `source` may begin a gesture at all.
  bool MayBegin(const Toolkit::Object* source) const;
  /// From a text box, so that the keys are the graph's again.
  void TakeFocus();

  void OnPress(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void OnNodePress(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnPinPress(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnFramePress(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnMove(Toolkit::Object* sender, const Toolkit::MouseEventArgs& args);
  void OnRelease(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void OnLostMouse(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnQueryCursor(Toolkit::Object* sender, const Toolkit::QueryCursorEventArgs& args);
  template <class Visit> void ForEachHandler(Visit visit);

  NodeEditorCanvas& canvas;
  Graph& graph;
  Callbacks callbacks;
  ClickSelection clicks;
  std::unique_ptr<Gesture> gesture;
  /// Ends the gesture.
  Toolkit::MouseButton heldButton = Toolkit::MouseButton::Left;
  /// In the root's coordinates, when the mouse last moved during the gesture.
  Toolkit::Point lastPosition;
  EdgeScroll edgeScroll;
  /// The view when the gesture began.
  Toolkit::Point startTranslation;
  float startZoom = 1;
};

} // namespace Tesselor
