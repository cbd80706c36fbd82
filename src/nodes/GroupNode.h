#pragma once

#include "nodes/FrameNode.h"

namespace Tesselor {

/// A titled frame behind the nodes of the canvas. It has no list of members: what lies in it is worked out from the
/// geometry each time. Far out, a big title above the frame keeps it readable.
class GroupNode : public FrameNode {
  TOOLKIT_TYPE(GroupNode)
public:
  static inline const Toolkit::DependencyProperty* CursorTypeProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TitleInputVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TitleTextVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* BigTitleVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;
  static inline const Toolkit::DependencyProperty* HeightProperty = nullptr;
  static inline const Toolkit::DependencyProperty* BorderThicknessProperty = nullptr;
  /// Bubbling, with `GroupResizingEventArgs`.
  static const Toolkit::RoutedEvent GroupResizingEvent;

  GroupNode();

  void SetZoom(float zoom) override;

private:
  static const Properties& FrameProperties();
  void InitializeComponent() override;
  void Group_MouseMove(Toolkit::Object* sender, const Toolkit::MouseEventArgs& args);
};

} // namespace Tesselor
