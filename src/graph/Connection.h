#pragma once

#include "nodes/ContentNode.h"
#include "nodes/NodePinControl.h"
#include "toolkit/base/RoutedEvent.h"
#include "toolkit/controls/Canvas.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/PathGeometry.h"

#include <array>

namespace Tesselor {

class ConnectionPath;

struct ConnectionClickedEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
};

/// The curve between an output pin and an input pin on the canvas panel; while it follows the mouse, one of the pins
/// is missing. It is not the truth of the graph, which lies in the connection lists of the pin data.
class Connection : public Toolkit::DependencyObject {
  TOOLKIT_TYPE(Connection)
public:
  static inline const Toolkit::DependencyProperty* InputSourceProperty = nullptr;
  static inline const Toolkit::DependencyProperty* OutputSourceProperty = nullptr;
  static inline const Toolkit::DependencyProperty* PathGeometryProperty = nullptr;
  /// Bubbling, raised on the path with the connection as source.
  static const Toolkit::RoutedEvent ConnectionClickedEvent;

  Connection();
  ~Connection() override;

  /// Takes the pin for the side that its `IsInput` names, its node, and its centre on `onPanel`.
  void SetPin(NodePinControl* control, Toolkit::Canvas* onPanel);
  /// Reads the centres of the pins anew and bends the curve to them.
  void Refresh(Toolkit::Canvas* onPanel);
  /// Bends the curve between `InputSource` and `OutputSource`.
  void UpdateCurve();
  /// Makes the path, which the caller puts on the panel.
  void CreatePath();

  Toolkit::Point GetInputSource() const { return Get<Toolkit::Point>(InputSourceProperty); }
  void SetInputSource(Toolkit::Point point) { SetValue(InputSourceProperty, point); }
  Toolkit::Point GetOutputSource() const { return Get<Toolkit::Point>(OutputSourceProperty); }
  void SetOutputSource(Toolkit::Point point) { SetValue(OutputSourceProperty, point); }
  /// Null before `CreatePath`.
  Toolkit::Path* GetPath() const;
  /// Either may be null while the connection is pending.
  NodePinControl* GetInputPin() const { return inputPin.Get(); }
  NodePinControl* GetOutputPin() const { return outputPin.Get(); }
  ContentNode* GetInputNode() const { return inputNode.Get(); }
  ContentNode* GetOutputNode() const { return outputNode.Get(); }

  /// Gives the path the selected or the normal stroke. The list of selected connections is the manager's.
  void ShowSelected() { SetStroke(SelectedBrush()); }
  void ShowNormal() { SetStroke(NormalBrush()); }
  bool IsShownSelected() const;

  /// Whether the end of this object ends the link of its two pins too. That is so while it stands among the document's
  /// connections: one that was taken out has ended its link already, and the pins may have been joined anew.
  void SetOwnsLink(bool value) { ownsLink = value; }

  /// The four points of the curve from the input to the output: start, two control points, end.
  static std::array<Toolkit::Point, 4> CurveBetween(Toolkit::Point input, Toolkit::Point output);
  std::array<Toolkit::Point, 4> Curve() const { return CurveBetween(GetInputSource(), GetOutputSource()); }

private:
  friend class ConnectionPath;
  static Toolkit::Brush* NormalBrush();
  static Toolkit::Brush* SelectedBrush();
  static Toolkit::Brush* HoverBrush();
  void SetStroke(Toolkit::Brush* brush);
  void OnPathEvent(const Toolkit::RoutedEvent& event);

  Toolkit::Ptr<Toolkit::BezierSegment> segment;
  Toolkit::Ptr<Toolkit::PathFigure> figure;
  Toolkit::Ptr<Toolkit::PathGeometry> geometry;
  Toolkit::Ptr<ConnectionPath> path;
  Toolkit::Ptr<NodePinControl> outputPin;
  Toolkit::Ptr<NodePinControl> inputPin;
  Toolkit::Ptr<ContentNode> outputNode;
  Toolkit::Ptr<ContentNode> inputNode;
  /// The ends that the segment was last bent to.
  Toolkit::Point curveInput, curveOutput;
  bool ownsLink = false;
};

} // namespace Tesselor
