#pragma once

#include "editor/BasicLine.h"
#include "editor/BasicRectangle.h"
#include "editor/CanvasEvents.h"
#include "editor/NodesMenu.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"
#include "toolkit/visual/Transform.h"

#include <utility>
#include <vector>

namespace Toolkit {
class Shape;
}

namespace Tesselor {

/// The surface on which the graph lives: a very large panel behind a pan and a zoom transform, with the rubber-band
/// rectangle and the cut line. All nodes, connection paths and the nodes menu are children of its panel. It knows
/// nothing of the document, nor of the gestures (`CanvasGestures`) that draw on it and raise its events.
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
  /// Of the panel's corner in the view, in view pixels.
  Toolkit::Point GetTranslation() const { return {translation->GetX(), translation->GetY()}; }
  /// Where the mouse is, in panel coordinates.
  Toolkit::Point MousePosition() const;
  /// What stands in the middle of the view, in panel coordinates.
  Toolkit::Point MiddleOfView() const;

  /// The only way in which the pan changes: keeps the panel's edges outside the view, and centres a panel that is
  /// smaller than it. View pixels.
  void SetTranslationClamped(float x, float y);
  /// Zoom 1 with `point` of the panel in the middle of the view.
  void ResetViewTo(Toolkit::Point point);
  /// Steps of the wheel, positive ones nearer, around the middle of the view.
  void ZoomBySteps(int steps);
  /// The whole area of the panel in the middle of the view, at most at zoom 1.
  void ShowAll(const Toolkit::Rect& area);
  /// The translation that brings an area in view pixels wholly into the view, or the present one if it is there.
  Toolkit::Point TranslationToShow(const Toolkit::Rect& inView) const;
  /// The panel position nearest to `position` at which the nodes menu lies inside the view. Lays the menu out.
  Toolkit::Point ClampMenuPosition(Toolkit::Point position);
  Toolkit::Point ClampMenuPosition(float x, float y) { return ClampMenuPosition({x, y}); }
  /// Asks for the nodes menu at a point of the panel.
  void RaiseShowNodesMenu(Toolkit::Point position);

protected:
  /// Pans to what takes the focus by Tab or is typed into, if it is outside the view.
  Toolkit::Rect Reveal(const Toolkit::Rect& area) override;
  /// The open menu follows the edges of the view.
  Toolkit::Size ArrangeOverride(Toolkit::Size finalSize) override;

private:
  /// The same as `ClampMenuPosition`, for the menu as it was laid out last, in a view of that size.
  Toolkit::Point MenuPositionInView(Toolkit::Point position, Toolkit::Size view) const;
  void KeepNodesMenuIn(Toolkit::Size view);
  void OnNodesMenuResized(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void SetZoom(float zoom);
  /// What lies at a point of the view stays there.
  void ZoomAround(Toolkit::Point fixed, float zoom);
  void TellZoomToFrames();

  void Canvas_Loaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void Canvas_MouseWheel(Toolkit::Object* sender, const Toolkit::MouseWheelEventArgs& args);

  Toolkit::Ptr<BasicRectangle> selectedArea;
  Toolkit::Ptr<BasicLine> cutLine;
  /// Held by the tree that the document describes.
  Toolkit::Canvas* panel = nullptr;
  /// What gestures draw, likewise, and how thick its stroke is on the screen.
  std::vector<std::pair<Toolkit::Shape*, float>> marks;
  Toolkit::Ptr<NodesMenu> nodesMenu;
  Toolkit::Ptr<Toolkit::ScaleTransform> scale;
  Toolkit::Ptr<Toolkit::TranslateTransform> translation;
  /// What the wheel has turned since the last zoom step, in notches.
  float wheelRotation = 0;
};

} // namespace Tesselor
