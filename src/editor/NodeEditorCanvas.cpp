#include "editor/NodeEditorCanvas.h"

#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/controls/Shapes.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/render/Brush.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Tesselor {

using Toolkit::Mouse;
using Toolkit::Point;

namespace {

constexpr float ZoomStep = 0.1f;
constexpr float SmallestZoom = 0.015f;
constexpr float LargestZoom = 1.5f;
constexpr int32_t NodesMenuZIndex = 10;
/// View pixels around what was brought into the view.
constexpr float RevealRoom = 40;
/// How far the nodes menu keeps from the edges of the view, in pixels.
constexpr float MenuMargin = 10;

bool IsFinite(Point point) { return std::isfinite(point.x) && std::isfinite(point.y); }

/// One axis of the pan: the panel covers the view, or stands in its middle if it is smaller.
float ClampTranslation(float translation, float viewLength, float panelLength) {
  if (viewLength >= panelLength) return (viewLength - panelLength) * 0.5f;
  return std::clamp(translation, viewLength - panelLength, 0.0f);
}

} // namespace

const Toolkit::RoutedEvent NodeEditorCanvas::SelectionUpEvent("SelectionUp", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodeEditorCanvas::ShowNodesMenuEvent("ShowNodesMenu", Toolkit::RoutingStrategy::Bubble);
const Toolkit::RoutedEvent NodeEditorCanvas::CutLineUpEvent("CutLineUp", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(NodeEditorCanvas, Toolkit::UserControl, "Tesselor.NodeEditorCanvas")
void NodeEditorCanvas::Describe(Toolkit::TypeBuilder<NodeEditorCanvas>& type) {
  type.Event(&SelectionUpEvent);
  type.Event(&ShowNodesMenuEvent);
  type.Event(&CutLineUpEvent);
  type.Member<&NodeEditorCanvas::GetSelectedArea>("SelectedArea");
  type.Member<&NodeEditorCanvas::GetCutLine>("CutLine");
  type.Handler<&NodeEditorCanvas::Canvas_Loaded>("Canvas_Loaded", LoadedEvent);
  type.Handler<&NodeEditorCanvas::Canvas_MouseWheel>("Canvas_MouseWheel", MouseWheelEvent);
}

NodeEditorCanvas::NodeEditorCanvas()
    : selectedArea(Toolkit::MakePtr<BasicRectangle>()), cutLine(Toolkit::MakePtr<BasicLine>()) {
  SetDataContext(this);
  Toolkit::GUI::LoadComponent(*this, "NodeEditorCanvas.xaml");
  panel = FindName<Toolkit::Canvas>("ContainerCanvas");
  TOOLKIT_ASSERT(panel);
  panel->KeepDrawings();
  for (const char* name : {"SelectionRectangle", "CutLine"}) {
    auto* shape = FindName<Toolkit::Shape>(name);
    TOOLKIT_ASSERT(shape);
    marks.emplace_back(shape, shape->Get<float>(Toolkit::Shape::StrokeThicknessProperty));
  }
  const auto* group = panel->Get<Toolkit::TransformGroup*>(RenderTransformProperty);
  TOOLKIT_ASSERT(group && group->ChildCount() == 2);
  scale = Toolkit::Ptr(Toolkit::DynamicCast<Toolkit::ScaleTransform>(group->Child(0)));
  translation = Toolkit::Ptr(Toolkit::DynamicCast<Toolkit::TranslateTransform>(group->Child(1)));
  nodesMenu = Toolkit::MakePtr<NodesMenu>();
  panel->AddChild(nodesMenu.Get());
  Toolkit::Panel::SetZIndex(nodesMenu.Get(), NodesMenuZIndex);
  nodesMenu->AddHandler(NodesMenu::ResizedEvent,
                        Toolkit::RoutedEventHandler::From<&NodeEditorCanvas::OnNodesMenuResized>(this));
}

void NodeEditorCanvas::SetTranslationClamped(float x, float y) {
  const auto* view = panel->VisualParent();
  const Point clamped{ClampTranslation(x, view->ActualWidth(), scale->GetScaleX() * panel->GetWidth()),
                      ClampTranslation(y, view->ActualHeight(), scale->GetScaleY() * panel->GetHeight())};
  if (!IsFinite(clamped)) return;
  translation->SetX(clamped.x);
  translation->SetY(clamped.y);
}

Point NodeEditorCanvas::MousePosition() const { return Mouse::GetPosition(panel); }

Point NodeEditorCanvas::MiddleOfView() const {
  return panel->PointFromRoot(TransformToAncestor(nullptr).Map({ActualWidth() * 0.5f, ActualHeight() * 0.5f}));
}

void NodeEditorCanvas::ResetViewTo(Point point) {
  SetZoom(1);
  SetTranslationClamped(ActualWidth() * 0.5f - point.x, ActualHeight() * 0.5f - point.y);
  TellZoomToFrames();
}

void NodeEditorCanvas::ZoomBySteps(int steps) {
  const float factor = std::pow(steps > 0 ? 1 + ZoomStep : 1 - ZoomStep, static_cast<float>(std::abs(steps)));
  ZoomAround({ActualWidth() * 0.5f, ActualHeight() * 0.5f}, GetZoom() * factor);
}

void NodeEditorCanvas::ShowAll(const Toolkit::Rect& area) {
  const float fitting =
      std::min((ActualWidth() - 2 * RevealRoom) / area.width, (ActualHeight() - 2 * RevealRoom) / area.height);
  const float zoom = std::clamp(fitting, SmallestZoom, 1.0f);
  SetZoom(zoom);
  SetTranslationClamped(ActualWidth() * 0.5f - (area.x + area.width * 0.5f) * zoom,
                        ActualHeight() * 0.5f - (area.y + area.height * 0.5f) * zoom);
  TellZoomToFrames();
}

void NodeEditorCanvas::ZoomAround(Point fixed, float zoom) {
  const float before = GetZoom();
  if (zoom >= SmallestZoom && zoom <= LargestZoom) {
    const Point offset{translation->GetX(), translation->GetY()};
    SetZoom(zoom);
    SetTranslationClamped(fixed.x - (fixed.x - offset.x) / before * zoom,
                          fixed.y - (fixed.y - offset.y) / before * zoom);
  }
  TellZoomToFrames();
}

Point NodeEditorCanvas::TranslationToShow(const Toolkit::Rect& area) const {
  // Per axis: how far to move what is not wholly inside, with some room around it. What is too long begins at the edge.
  const auto wayInto = [](float start, float length, float viewLength) {
    if (start >= 0 && start + length <= viewLength) return 0.0f;
    const float room = std::clamp((viewLength - length) * 0.5f, 0.0f, RevealRoom);
    return start < 0 || length > viewLength ? room - start : viewLength - room - start - length;
  };
  const Point now = GetTranslation();
  return {now.x + wayInto(area.x, area.width, ActualWidth()), now.y + wayInto(area.y, area.height, ActualHeight())};
}

Toolkit::Rect NodeEditorCanvas::Reveal(const Toolkit::Rect& area) {
  const Point before = GetTranslation(), wanted = TranslationToShow(area);
  SetTranslationClamped(wanted.x, wanted.y);
  return {area.x + translation->GetX() - before.x, area.y + translation->GetY() - before.y, area.width, area.height};
}

Point NodeEditorCanvas::ClampMenuPosition(Point position) {
  nodesMenu->UpdateLayout();
  return MenuPositionInView(position, RenderSize());
}

Point NodeEditorCanvas::MenuPositionInView(Point position, Toolkit::Size view) const {
  const float zoom = GetZoom();
  const auto clamp = [zoom](float at, float offset, float menuLength, float viewLength) {
    const float end = viewLength - MenuMargin;
    if (zoom * at + offset + menuLength > end) at = (end - menuLength - offset) / zoom;
    // The near edge comes last, so that it wins when the menu is larger than the view.
    if (zoom * at + offset < MenuMargin) at = (MenuMargin - offset) / zoom;
    return at;
  };
  return {clamp(position.x, translation->GetX(), nodesMenu->ActualWidth(), view.width),
          clamp(position.y, translation->GetY(), nodesMenu->ActualHeight(), view.height)};
}

void NodeEditorCanvas::OnNodesMenuResized(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  KeepNodesMenuIn(RenderSize());
}

void NodeEditorCanvas::KeepNodesMenuIn(Toolkit::Size view) {
  const Point place =
      MenuPositionInView({Toolkit::Canvas::GetLeft(nodesMenu.Get()), Toolkit::Canvas::GetTop(nodesMenu.Get())}, view);
  Toolkit::Canvas::SetLeft(nodesMenu.Get(), place.x);
  Toolkit::Canvas::SetTop(nodesMenu.Get(), place.y);
}

Toolkit::Size NodeEditorCanvas::ArrangeOverride(Toolkit::Size finalSize) {
  nodesMenu->FitInto({finalSize.width - 2 * MenuMargin, finalSize.height - 2 * MenuMargin});
  if (nodesMenu->IsOpen()) KeepNodesMenuIn(finalSize);
  return UserControl::ArrangeOverride(finalSize);
}

void NodeEditorCanvas::SetZoom(float zoom) {
  scale->SetScaleX(zoom);
  scale->SetScaleY(zoom);
  nodesMenu->GetScaleTransform()->SetScaleX(1 / zoom);
  nodesMenu->GetScaleTransform()->SetScaleY(1 / zoom);
  for (const auto& [shape, thickness] : marks)
    shape->SetValue(Toolkit::Shape::StrokeThicknessProperty, thickness / zoom);
}

void NodeEditorCanvas::TellZoomToFrames() {
  const float zoom = GetZoom();
  for (size_t i = 0; i < panel->ChildCount(); ++i)
    if (auto* frame = Toolkit::DynamicCast<FrameNode>(panel->Child(i))) frame->SetZoom(zoom);
}

void NodeEditorCanvas::Canvas_Loaded(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  SetTranslationClamped(-0.5f * panel->GetWidth(), -0.5f * panel->GetHeight());
}

void NodeEditorCanvas::Canvas_MouseWheel(Toolkit::Object*, const Toolkit::MouseWheelEventArgs& args) {
  const Point mouse = Mouse::GetPosition(this);
  const float before = GetZoom();
  // A touchpad turns by small parts of a notch; a step is due when they add up to one.
  wheelRotation += args.wheelRotation;
  if (std::abs(wheelRotation) < 1) return;
  const float zoom = before + before * (wheelRotation > 0 ? ZoomStep : -ZoomStep);
  wheelRotation = 0;
  if (IsFinite(mouse)) ZoomAround(mouse, zoom);
}

void NodeEditorCanvas::RaiseShowNodesMenu(Point position) {
  ShowNodesMenuEventArgs show(ShowNodesMenuEvent, this);
  show.x = position.x;
  show.y = position.y;
  RaiseEvent(show);
}

} // namespace Tesselor
