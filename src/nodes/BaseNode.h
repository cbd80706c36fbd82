#pragma once

#include "nodes/NodeMouseEventArgs.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"
#include "values/FieldTextData.h"

#include <string_view>

namespace Tesselor {

/// What stands on the canvas: content nodes, groups and comments. Owns the title and the selected state, and tells
/// with two routed events that it was pressed and released; what follows is the view's business. Where it stands is
/// the attached `Canvas.Left` and `Canvas.Top`.
class BaseNode : public Toolkit::UserControl {
  TOOLKIT_TYPE(BaseNode)
public:
  /// Written by the view only; a node never selects itself.
  static inline const Toolkit::DependencyProperty* IsSelectedProperty = nullptr;
  /// Bubbling; the arguments are of the classes of NodeMouseEventArgs.h.
  static const Toolkit::RoutedEvent NodeMouseDownEvent, NodeMouseUpEvent;

  FieldTextData* GetTitleData() const { return titleData.Get(); }
  std::string_view Title() const { return titleData->GetValue(); }
  void SetTitle(std::string_view title);

  bool IsSelected() const { return Get<bool>(IsSelectedProperty); }
  void SetSelected(bool value) { SetValue(IsSelectedProperty, value); }

  virtual void Node_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  virtual void Node_MouseUp(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);

protected:
  BaseNode();

private:
  /// Loads the class's document; called once, from the constructor.
  virtual void InitializeComponent() = 0;

  Toolkit::Ptr<FieldTextData> titleData;
};

} // namespace Tesselor
