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
  /// The entry that Return takes.
  static inline const Toolkit::DependencyProperty* IsMarkedProperty = nullptr;

  CreateNodeButton(std::string nodeId, std::string label, const Toolkit::Color& color, const std::string& description);
  const std::string& GetNodeId() const { return nodeId; }
  const std::string& GetLabel() const { return label; }
  bool IsMarked() const { return Get<bool>(IsMarkedProperty); }
  void SetIsMarked(bool value) { SetValue(IsMarkedProperty, value); }

private:
  void OnClick(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  std::string nodeId;
  std::string label;
};

} // namespace Tesselor
