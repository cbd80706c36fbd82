#include "nodes/CommentNode.h"

#include "nodes/CommentValueActionCommand.h"
#include "nodes/NodeKeys.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::Visibility;

namespace {

constexpr FrameNode::Names CommentNames{"CommentBorder", "CommentTitle"};
constexpr float MinimumHeight = 60;
constexpr float SmallestFont = 8;
constexpr float LargestFont = 128;
constexpr float FontStep = 4;
constexpr float BigFontStep = 20;

} // namespace

const Toolkit::RoutedEvent CommentNode::CommentResizingEvent("CommentResizing", Toolkit::RoutingStrategy::Bubble);

TOOLKIT_TYPE_IMPL(CommentNode, FrameNode, "Tesselor.CommentNode")
void CommentNode::Describe(Toolkit::TypeBuilder<CommentNode>& type) {
  CursorTypeProperty = type.Property<std::string>("CursorType", "Arrow");
  TitleInputVisibilityProperty = type.Property<Visibility>("TitleInputVisibility", Visibility::Collapsed);
  TitleTextVisibilityProperty = type.Property<Visibility>("TitleTextVisibility", Visibility::Visible);
  WidthProperty = type.Property<float>("Width", 250);
  HeightProperty = type.Property<float>("Height", 150);
  BorderThicknessProperty = type.Property<float>("BorderThickness", 7.5f);
  CommentTextProperty = type.Property<std::string>("CommentText");
  CommentFontSizeProperty = type.Property<float>("CommentFontSize", 13);
  FontControlsVisibilityProperty = type.Property<Visibility>("FontControlsVisibility", Visibility::Collapsed);
  type.Event(&CommentResizingEvent);
  type.Handler<&CommentNode::Comment_MouseMove>("Comment_MouseMove", MouseMoveEvent);
  type.Handler<&CommentNode::FontControls_MouseDown>("FontControls_MouseDown", MouseDownEvent);
  type.Handler<&CommentNode::CommentTextBox_GotFocus>("CommentTextBox_GotFocus", GotFocusEvent);
  type.Handler<&CommentNode::CommentTextBox_LostFocus>("CommentTextBox_LostFocus", LostFocusEvent);
  type.Handler<&CommentNode::IncreaseFontSize_Click>("IncreaseFontSize_Click", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&CommentNode::IncreaseFontSizeBig_Click>("IncreaseFontSizeBig_Click", Toolkit::ButtonBase::ClickEvent);
  type.Handler<&CommentNode::DecreaseFontSize_Click>("DecreaseFontSize_Click", Toolkit::ButtonBase::ClickEvent);
}

const FrameNode::Properties& CommentNode::FrameProperties() {
  static const Properties properties{
      CursorTypeProperty, TitleInputVisibilityProperty, TitleTextVisibilityProperty, WidthProperty,
      HeightProperty,     BorderThicknessProperty};
  return properties;
}

CommentNode::CommentNode() : FrameNode(FrameProperties(), CommentNames, CommentResizingEvent, MinimumHeight) {
  InitializeComponent();
}

void CommentNode::InitializeComponent() {
  Toolkit::GUI::LoadComponent(*this, "CommentNode.xaml");
  SetTitle("Comment");
}

void CommentNode::SetCommentFontSize(float value) {
  SetValue(CommentFontSizeProperty, std::clamp(value, SmallestFont, LargestFont));
}

JsonPtr CommentNode::ToJson() const {
  JsonPtr json = FrameNode::ToJson();
  cJSON_AddStringToObject(json.get(), Keys::Text, std::string(CommentText()).c_str());
  cJSON_AddNumberToObject(json.get(), Keys::FontSize, CommentFontSize());
  return json;
}

void CommentNode::Comment_MouseMove(Toolkit::Object*, const Toolkit::MouseEventArgs&) {
  const auto* border = FindName<Toolkit::Border>(CommentNames.border);
  if (!border) return;
  const Toolkit::Point mouse = Toolkit::Mouse::GetPosition(border);
  const float margin = 2 * FrameBorder();
  const bool isInside = margin <= mouse.x && mouse.x <= border->ActualWidth() - margin && margin <= mouse.y &&
                        mouse.y <= border->ActualHeight() - margin;
  SetCursor(isInside ? "Arrow" : CursorOf(HitTestEdge(*border)));
}

void CommentNode::FontControls_MouseDown(Toolkit::Object*, const Toolkit::MouseButtonEventArgs& args) {
  if (args.changedButton == Toolkit::MouseButton::Left) args.handled = true;
}

void CommentNode::CommentTextBox_GotFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  SetValue(FontControlsVisibilityProperty, Visibility::Visible);
  textBefore = GetValue(CommentTextProperty).AsString();
}

void CommentNode::CommentTextBox_LostFocus(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  SetValue(FontControlsVisibilityProperty, Visibility::Collapsed);
  const Toolkit::SharedString text = GetValue(CommentTextProperty).AsString();
  if (!(text == textBefore))
    ActionHistory::Instance().Push(std::make_unique<CommentTextActionCommand>(*this, textBefore, text));
  textBefore = text;
  const auto* box = FindName<Toolkit::TextBox>("CommentTextBox");
  const std::optional<std::string> undone = box ? box->UndoneText() : std::nullopt;
  if (undone && undone != text.View())
    ActionHistory::Instance().PushUndone(
        std::make_unique<CommentTextActionCommand>(*this, text, Toolkit::SharedString(*undone)));
}

void CommentNode::ChangeFontSize(float step) {
  const float before = CommentFontSize();
  SetCommentFontSize(before + step);
  if (CommentFontSize() != before)
    ActionHistory::Instance().Push(std::make_unique<CommentFontActionCommand>(*this, before, CommentFontSize()));
}

void CommentNode::IncreaseFontSize_Click(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  ChangeFontSize(FontStep);
}

void CommentNode::IncreaseFontSizeBig_Click(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  ChangeFontSize(BigFontStep);
}

void CommentNode::DecreaseFontSize_Click(Toolkit::Object*, const Toolkit::RoutedEventArgs&) {
  ChangeFontSize(-FontStep);
}

} // namespace Tesselor
