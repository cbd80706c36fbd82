#pragma once

#include "editor/BasicLine.h"
#include "editor/BasicRectangle.h"
#include "editor/CanvasEvents.h"
#include "editor/NodesMenu.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"
#include "toolkit/visual/Transform.h"

namespace Tesselor {

/// The surface on which the graph lives: a very large panel behind a pan and a zoom transform, with the rubber-band
/// rectangle, the cut line and the mouse logic that tells these gestures apart. All nodes, connection paths and the
/// nodes menu are children of its panel. It knows nothing of the document: finished gestures go out as events.
class NodeEditorCanvas : public Toolkit::UserControl {
  TOOLKIT_TYPE(NodeEditorCanvas)
public:
  static const Toolkit::RoutedEvent SelectionUpEvent, ShowNodesMenuEvent, CutLineUpEvent;

  NodeEditorCanvas();

  /// Nodes and paths are its children; their `Canvas.Left` and `Canvas.Top` are panel coordinates.
  Toolkit::Canvas* GetPanel() const { return panel; }
  NodesMenu* GetNodesMenu() const { return nodesMenu.Get(); }
  Toolkit::ScaleTransform* GetScaleTransform() const { return scale.Get(); }
  Toolkit::TranslateTransform* GetTranslateTransform() const { return translation.Get(); }
  BasicRectangle* GetSelectedArea() const { return selectedArea.Get(); }
  BasicLine* GetCutLine() const { return cutLine.Get(); }
  /// The scale, the same on both axes.
  float GetZoom() const { return scale->GetScaleX(); }

  /// The only way in which the pan changes: keeps the panel's edges outside the view, and centres a panel that is
  /// smaller than it. View pixels.
  void SetTranslationClamped(float x, float y);
  /// Zoom 1 with `point` of the panel in the middle of the view.
  void ResetViewTo(Toolkit::Point point);
  /// The panel position nearest to `position` at which the nodes menu lies inside the view. Lays the menu out.
  Toolkit::Point ClampMenuPosition(Toolkit::Point position);
  Toolkit::Point ClampMenuPosition(float x, float y) { return ClampMenuPosition({x, y}); }

protected:
  /// Pans to what takes the focus by Tab or is typed into, if it is outside the view.
  Toolkit::Rect Reveal(const Toolkit::Rect& area) override;

private:
  void SetZoom(float zoom);
  void TellZoomToFrames();

  void Canvas_Loaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void Canvas_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void Canvas_MouseMove(Toolkit::Object* sender, const Toolkit::MouseEventArgs& args);
  void Canvas_MouseUp(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void Canvas_MouseWheel(Toolkit::Object* sender, const Toolkit::MouseWheelEventArgs& args);
  void Pan();
  void StretchSelection(Toolkit::Point mouse);
  void RaiseCutLineUp();
  void RaiseSelectionUp();

  Toolkit::Ptr<BasicRectangle> selectedArea;
  Toolkit::Ptr<BasicLine> cutLine;
  /// Held by the tree that the document describes.
  Toolkit::Canvas* panel = nullptr;
  /// The last mouse position in panel coordinates; where a selection or a cut began.
  Toolkit::Point lastMouse;
  Toolkit::Ptr<NodesMenu> nodesMenu;
  Toolkit::Ptr<Toolkit::ScaleTransform> scale;
  Toolkit::Ptr<Toolkit::TranslateTransform> translation;
  /// What the wheel has turned since the last zoom step, in notches.
  float wheelRotation = 0;
  bool isSelecting = false;
  bool isCutting = false;
  bool isPanning = false;
  /// The mouse moved on both axes since the press: the right button's release opens no menu.
  bool hasPanned = false;
};

} // namespace Tesselor
