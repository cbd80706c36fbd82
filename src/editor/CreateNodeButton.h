#pragma once

#include "toolkit/base/Color.h"
#include "toolkit/controls/UserControl.h"

#include <string>

namespace Tesselor {

struct CreateNodeEventArgs : Toolkit::RoutedEventArgs {
  using RoutedEventArgs::RoutedEventArgs;
  std::string nodeId;
};

/// One node type of the nodes menu. A click raises `CreateNode` with its id.
class CreateNodeButton : public Toolkit::UserControl {
  TOOLKIT_TYPE(CreateNodeButton)
public:
  static const Toolkit::RoutedEvent CreateNodeEvent;

  CreateNodeButton(std::string nodeId, std::string label, const Toolkit::Color& color, std::string description);
  const std::string& GetNodeId() const { return nodeId; }
  const std::string& GetLabel() const { return label; }

private:
  void OnLoaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void OnClick(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  std::string nodeId;
  std::string label;
  Toolkit::Color color;
  std::string description;
  bool isConnected = false;
};

} // namespace Tesselor
