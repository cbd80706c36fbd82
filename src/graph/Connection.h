#pragma once

#include "graph/ConnectionPath.h"
#include "nodes/ContentNode.h"
#include "toolkit/base/RoutedEvent.h"

#include <cstdint>
#include <list>

namespace Toolkit {
class Canvas;
}

namespace Tesselor {

struct ConnectionClickedEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
};

/// The curve between an output pin and an input pin; while it follows the mouse, one of the pins is missing. It is not
/// the truth of the graph, which lies in the connection lists of the pin data. Keeps the nodes at its ends alive.
class Connection : public Toolkit::Object {
  TOOLKIT_TYPE(Connection)
public:
  using List = std::list<Toolkit::Ptr<Connection>>;
  /// Bubbling, raised on the path with the connection as source.
  static const Toolkit::RoutedEvent ConnectionClickedEvent;

  /// With one end at the pin and the other free.
  explicit Connection(NodePinData& pin);
  Connection(NodePinData& a, NodePinData& b);
  /// Takes the path off its panel. The link of the pins stays.
  ~Connection() override;

  /// Reads the anchors of the pins anew and bends the curve to them.
  void Bend();
  /// Where the end without a pin is, in panel coordinates.
  void SetFreeEnd(Toolkit::Point point);

  Toolkit::Point GetInputSource() const { return path->GetCurve()[0]; }
  Toolkit::Point GetOutputSource() const { return path->GetCurve()[3]; }
  ConnectionPath& GetPath() const { return *path; }
  /// Either may be null while the connection is pending.
  NodePinData* GetInputPin() const { return inputPin; }
  NodePinData* GetOutputPin() const { return outputPin; }
  /// The pin that is there, of a connection that follows the mouse.
  NodePinData& AttachedPin() const { return outputPin ? *outputPin : *inputPin; }
  ContentNode* GetInputNode() const { return inputNode.Get(); }
  ContentNode* GetOutputNode() const { return outputNode.Get(); }

  /// Gives the path the selected or the normal stroke. The list of selected connections is the manager's.
  void ShowSelected() { path->SetStroke(ConnectionPath::Stroke::Selected); }
  void ShowNormal() { path->SetStroke(ConnectionPath::Stroke::Normal); }
  bool IsShownSelected() const { return path->GetStroke() == ConnectionPath::Stroke::Selected; }

  const Curve& GetCurve() const { return path->GetCurve(); }
  /// From the input to the output: it leaves to the left and arrives from the right, whatever their places.
  static Curve CurveBetween(Toolkit::Point input, Toolkit::Point output);

private:
  friend class ConnectionPath;
  friend class ConnectionManager;
  void SetPin(NodePinData& pin);
  void OnPathEvent(const Toolkit::RoutedEvent& event);

  Toolkit::Ptr<ConnectionPath> path;
  NodePinData* outputPin = nullptr;
  NodePinData* inputPin = nullptr;
  Toolkit::Ptr<ContentNode> outputNode;
  Toolkit::Ptr<ContentNode> inputNode;
  Toolkit::Point freeEnd;

  // The manager's, while the connection is listed: its place in the list and among those of its nodes.
  List::iterator place;
  uint64_t order = 0;
  size_t indexAtInput = 0;
  size_t indexAtOutput = 0;
  bool isListed = false;
  bool isBendDue = false;
};

} // namespace Tesselor
