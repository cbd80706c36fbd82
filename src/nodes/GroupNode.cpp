#include "nodes/GroupNode.h"

#include "toolkit/controls/Border.h"
#include "toolkit/markup/GUI.h"

namespace Tesselor {

using Toolkit::Visibility;

namespace {

constexpr FrameNode::Names GroupNames{"GroupBorder", "GroupTitle"};
constexpr float MinimumHeight = 100;
/// Below this scale the title on the frame can't be read.
constexpr float BigTitleZoom = 0.5f;

} // namespace

const Toolkit::RoutedEvent GroupNode::GroupResizingEvent("GroupResizing", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(GroupNode, FrameNode, "Tesselor.GroupNode")
void GroupNode::Describe(Toolkit::TypeBuilder<GroupNode>& type) {
  CursorTypeProperty = type.Property<std::string>("CursorType", "Arrow");
  TitleInputVisibilityProperty = type.Property<Visibility>("TitleInputVisibility", Visibility::Collapsed);
  TitleTextVisibilityProperty = type.Property<Visibility>("TitleTextVisibility", Visibility::Visible);
  BigTitleVisibilityProperty = type.Property<Visibility>("BigTitleVisibility", Visibility::Collapsed);
  WidthProperty = type.Property<float>("Width", 300);
  HeightProperty = type.Property<float>("Height", 300);
  BorderThicknessProperty = type.Property<float>("BorderThickness", 7.5f);
  type.Event(&GroupResizingEvent);
  type.Handler<&GroupNode::Group_MouseMove>("Group_MouseMove", MouseMoveEvent);
}

const FrameNode::Properties& GroupNode::FrameProperties() {
  static const Properties properties{
      CursorTypeProperty, TitleInputVisibilityProperty, TitleTextVisibilityProperty, WidthProperty,
      HeightProperty,     BorderThicknessProperty};
  return properties;
}

GroupNode::GroupNode() : FrameNode(FrameProperties(), GroupNames, GroupResizingEvent, MinimumHeight) {
  InitializeComponent();
}

void GroupNode::InitializeComponent() {
  Toolkit::GUI::LoadComponent(*this, "GroupNode.xaml");
  SetTitle("Group Title");
}

void GroupNode::SetZoom(float zoom) {
  FrameNode::SetZoom(zoom);
  SetValue(BigTitleVisibilityProperty, zoom < BigTitleZoom ? Visibility::Visible : Visibility::Collapsed);
}

void GroupNode::Group_MouseMove(Toolkit::Object*, const Toolkit::MouseEventArgs& args) {
  if (const Toolkit::Border* frame = SourceFrame(args)) SetCursor(CursorOf(HitTestEdge(*frame)));
}

} // namespace Tesselor
