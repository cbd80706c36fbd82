#include "nodes/ContentNode.h"

#include "nodes/NodeIdentity.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodeNames.h"
#include "nodes/NodeObserver.h"
#include "nodes/NodePinControl.h"
#include "nodes/TitleBrushes.h"
#include "platform/Uuid.h"
#include "toolkit/controls/Border.h"
#include "toolkit/controls/ContentPresenter.h"
#include "toolkit/controls/ItemsControl.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/render/Painter.h"

#include <cstdio>
#include <utility>

namespace Tesselor {

using Toolkit::Visibility;

namespace {

/// Pixels per canvas unit up to which a title is no text any more.
constexpr float LargestDetailOfBoxes = 0.25f;
constexpr Toolkit::CornerRadius BoxCorners{11, 11, 9, 9};
/// Pixels.
constexpr float BoxOutline = 2;

NodePinControl* PinControlOf(Toolkit::Object* container) {
  const auto* presenter = Toolkit::DynamicCast<Toolkit::ContentPresenter>(container);
  return presenter ? Toolkit::DynamicCast<NodePinControl>(presenter->ContentElement()) : nullptr;
}

} // namespace

TOOLKIT_TYPE_IMPL(ContentNode, BaseNode, "Tesselor.ContentNode")
void ContentNode::Describe(Toolkit::TypeBuilder<ContentNode>& type) {
  type.Member<&ContentNode::GetFieldCommentData>("FieldCommentData");
  type.Member<&ContentNode::ReflectedInput>("Input");
  type.Member<&ContentNode::ReflectedOutput>("Output");
  CommentInputVisibilityProperty = type.Property<Visibility>("CommentInputVisibility", Visibility::Collapsed);
  CommentTextVisibilityProperty = type.Property<Visibility>("CommentTextVisibility", Visibility::Visible);
  CommentBlockVisibilityProperty = type.Property<Visibility>("CommentBlockVisibility", Visibility::Collapsed);
  const Toolkit::Ptr<Toolkit::Brush> gradient = Toolkit::Brushes::Magenta()->Clone();
  TitleColorGradientProperty = type.Property<Toolkit::Brush*>("TitleColorGradient", gradient.Get());
  const Toolkit::Ptr<Toolkit::Brush> color = Toolkit::Brushes::Magenta()->Clone();
  TitleColorProperty = type.Property<Toolkit::Brush*>("TitleColor", color.Get());
  IsLinkValidProperty = type.Property<bool>("IsLinkValid", true);
  ArrayIndexTextProperty = type.Property<std::string>("ArrayIndexText");
  ArrayIndexVisibilityProperty = type.Property<Visibility>("ArrayIndexVisibility", Visibility::Collapsed);
  NamingVisibilityProperty = type.Property<Visibility>("NamingVisibility", Visibility::Visible);
  type.Member<&ContentNode::ReflectedNamingField>("NamingField");
  type.Handler<&ContentNode::Comment_MouseDown>("Comment_MouseDown", PreviewMouseDownEvent);
  type.Handler<&ContentNode::CommentToggle_MouseDown>("CommentToggle_MouseDown", PreviewMouseDownEvent);
  type.Handler<&ContentNode::OutputPinsToggle_MouseDown>("OutputPinsToggle_MouseDown", PreviewMouseDownEvent);
  type.Handler<&ContentNode::CommentTextBox_KeyUp>("CommentTextBox_KeyUp", PreviewKeyUpEvent);
}

ContentNode::ContentNode() : input(Toolkit::MakePtr<Pins>()), output(Toolkit::MakePtr<Pins>()) {
  // Most nodes have no comment: they share the text that stands for it.
  static const Toolkit::SharedString noComment(NoComment);
  fieldCommentData = Toolkit::MakePtr<FieldTextData>(noComment);
  notesLayout = true;
}

ContentNode::ContentNode(WithoutDocument, std::string typeId, const NodeBlueprint& blueprint) : ContentNode() {
  this->blueprint = &blueprint;
  this->typeId = std::move(typeId);
  SetTitle(blueprint.title);
  SetTitleColor(blueprint.color);
  titleObserver.Observe(GetTitleData(), Toolkit::Symbol("Value"));
}

ContentNode::ContentNode(std::string typeId, const NodeBlueprint& blueprint)
    : ContentNode(WithoutDocument{}, std::move(typeId), blueprint) {
  ContentNode::InitializeComponent();
}

ContentNode::~ContentNode() = default;

void ContentNode::InitializeComponent() {
  Toolkit::GUI::LoadComponent(*this, "ContentNode.xaml");
  FindParts();
}

void ContentNode::FindParts() {
  nodeContent = FindName<Toolkit::StackPanel>("NodeContent");
  inputPins = FindName<Toolkit::ItemsControl>("InputPins");
  outputPins = FindName<Toolkit::ItemsControl>("OutputPins");
}

void ContentNode::SetComment(std::string_view text) {
  fieldCommentData->SetValue(Toolkit::SharedString(text));
  SetValue(CommentBlockVisibilityProperty, Visibility::Visible);
}

void ContentNode::SetNodeId(std::string id) {
  if (id == nodeId) return;
  if (observer) observer->OnNodeIdChanging(*this);
  nodeId = std::move(id);
  if (observer) observer->OnNodeIdChanged(*this);
}

const std::string& ContentNode::EnsureNodeId() {
  if (nodeId.empty()) SetNodeId(GenerateUuid());
  return nodeId;
}

std::string ContentNode::Identity() const { return NodeIdentity{typeId, nodeId}.Text(); }

NodePinData* ContentNode::AddPin(bool isInput, const NodePinBlueprint& pinBlueprint) {
  auto pin = Toolkit::MakePtr<NodePinData>(this, isInput, pinBlueprint);
  pins.insert_or_assign(pinBlueprint.id, pin.Get());
  (isInput ? input : output)->Add(pin);
  return pin.Get();
}

NodePinData* ContentNode::AddDynamicPin(const NodePinBlueprint& pinBlueprint) {
  auto pin = Toolkit::MakePtr<NodePinData>(this, false, pinBlueprint);
  // The first stands under its plain id. The number has as many digits as keeps byte order and order of creation the
  // same, however many there are.
  std::string key = pinBlueprint.id;
  if (const auto plain = pins.find(key); plain != pins.end()) {
    char number[16];
    std::snprintf(number, sizeof number, "#%08u", ++dynamicPinCount);
    key += number;
  }
  pins.insert_or_assign(std::move(key), pin.Get());
  output->Add(pin);
  return pin.Get();
}

NodePinData* ContentNode::FindPin(std::string_view id) const {
  const auto found = pins.find(id);
  return found == pins.end() ? nullptr : found->second;
}

NodePinData* ContentNode::FindInputPinOfType(std::string_view type) const {
  for (const auto& [id, pin] : pins)
    if (pin->IsInput() && !pin->IsBlank() && pin->blueprint->Type == type) return pin;
  return nullptr;
}

const std::string& ContentNode::KeyOf(const NodePinData& pin) const {
  const std::string& id = pin.blueprint->id;
  if (FindPin(id) != &pin)
    for (const auto& [key, candidate] : pins)
      if (candidate == &pin) return key;
  return id;
}

NodePinData* ContentNode::FirstInputByKey() const {
  for (const auto& [id, pin] : pins)
    if (pin->IsInput() && !pin->IsBlank()) return pin;
  return nullptr;
}

void ContentNode::AddField(const std::string& fieldId, BaseField& field, FieldPlacement placement) {
  field.SetOwnerNode(this);
  switch (placement) {
  case FieldPlacement::InputPin:
    if (input->Count() > 0) input->Get(input->Count() - 1)->AddFieldContent(field);
    inputFields.emplace(fieldId, &field);
    break;
  case FieldPlacement::Body:
    field.SetVisibility(field.IsActive() ? Visibility::Visible : Visibility::Collapsed);
    if (nodeContent) nodeContent->AddChild(&field);
    contentFields.emplace(fieldId, &field);
    break;
  case FieldPlacement::OutputPin:
    if (output->Count() > 0) output->Get(output->Count() - 1)->AddFieldContent(field);
    outputFields.emplace(fieldId, &field);
    break;
  }
}

BaseField* ContentNode::FindField(std::string_view id) const {
  for (const FieldTable* fields : {&inputFields, &contentFields, &outputFields})
    if (const auto found = fields->find(id); found != fields->end()) return found->second.Get();
  return nullptr;
}

BaseField* ContentNode::NamingField() const {
  const auto holdsText = [](BaseField* field) {
    static const Toolkit::Symbol carrier("FieldTextData");
    return field && field->GetType().FindMember(carrier) ? field : nullptr;
  };
  if (!blueprint) return nullptr;
  if (!blueprint->namingField.empty()) return holdsText(FindField(blueprint->namingField));
  for (const char* id : {"Name", "Title", "Id", "Label"})
    if (BaseField* field = holdsText(FindField(id))) return field;
  return nullptr;
}

bool ContentNode::HasTitleOfType() const {
  std::string_view title = Title();
  if (title.starts_with(RootTitlePrefix)) title.remove_prefix(RootTitlePrefix.size());
  return blueprint && title == blueprint->title;
}

std::string ContentNode::DisplayName() const {
  const BaseField* field = HasTitleOfType() ? NamingField() : nullptr;
  std::string name = field ? field->GetValueAsString() : std::string();
  return name.empty() ? std::string(Title()) : name;
}

void ContentNode::RefreshNaming() {
  SetValue(NamingVisibilityProperty, HasTitleOfType() ? Visibility::Visible : Visibility::Collapsed);
}

NodePinControl* ContentNode::FindPinControl(const NodePinData& pin) const {
  const Toolkit::ItemsControl* list = pin.IsInput() ? inputPins : outputPins;
  if (!list) return nullptr;
  return PinControlOf(list->GetItemContainerGenerator().ContainerFromItem(&pin));
}

Toolkit::Point ContentNode::AnchorOf(const NodePinData& pin) const {
  if (areAnchorsDue) ReadAnchors();
  return Offset() + pin.anchor;
}

void ContentNode::OnLayoutChanged(Toolkit::LayoutChange change) {
  areAnchorsDue |= change == Toolkit::LayoutChange::Inside;
  if (observer) observer->OnNodeLayoutChanged(*this);
}

void ContentNode::MakeControls() {
  for (const Toolkit::ItemsControl* list : {inputPins, outputPins})
    for (size_t i = 0, n = list ? list->ItemCount() : 0; i < n; ++i)
      if (NodePinControl* pin = PinControlOf(list->GetItemContainerGenerator().ContainerFromIndex(i)))
        pin->MakeControls();
  for (const FieldTable* fields : {&inputFields, &contentFields, &outputFields})
    for (const auto& [id, field] : *fields)
      if (field->GetVisibility() == Visibility::Visible) field->MakeControls();
}

void ContentNode::PrepareToRender(float detail) {
  if (detail > LargestDetailOfBoxes) MakeControls();
}

Toolkit::UIElement* ContentNode::HitTest(Toolkit::Point point) {
  if (Toolkit::Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point)) {
    MakeControls();
    UpdateLayout();
  }
  return BaseNode::HitTest(point);
}

void ContentNode::RenderChildren(Toolkit::Painter& painter) {
  const auto* frame = Toolkit::DynamicCast<Toolkit::Border>(ContentElement());
  if (!frame || painter.Detail() > LargestDetailOfBoxes) {
    BaseNode::RenderChildren(painter);
    return;
  }
  painter.LeaveOut();
  const Toolkit::Rect box{0, 0, ActualWidth(), ActualHeight()};
  painter.DrawRectangle(box, BoxCorners, Get<Toolkit::Brush*>(TitleColorProperty), nullptr, {});
  // The frame tells that the node is selected, or a link that doesn't fit: as thick on the screen as near by.
  painter.DrawRectangle(box, BoxCorners, nullptr, frame->Get<Toolkit::Brush*>(Toolkit::Border::BorderBrushProperty),
                        Toolkit::Thickness::Uniform(BoxOutline / painter.Detail()));
}

void ContentNode::ReadAnchors() const {
  ReadAnchors(*input, inputPins);
  ReadAnchors(*output, outputPins);
  areAnchorsDue = false;
}

void ContentNode::ReadAnchors(const Pins& pins, const Toolkit::ItemsControl* list) const {
  // Items and their containers stand in the same order.
  for (size_t i = 0; i < pins.Count(); ++i) {
    const NodePinControl* control =
        list ? PinControlOf(list->GetItemContainerGenerator().ContainerFromIndex(i)) : nullptr;
    pins.Get(i)->anchor = control ? control->PinCentre(this) : Toolkit::Point();
  }
}

void ContentNode::ShowInFull(bool isFull) {
  for (const auto& [id, field] : contentFields)
    field->SetVisibility(isFull ? Visibility::Visible : Visibility::Collapsed);
}

bool ContentNode::IsShownInFull() const {
  for (const auto& [id, field] : contentFields)
    if (field->GetVisibility() != Visibility::Visible) return false;
  return true;
}

void ContentNode::SetTitleColor(const Toolkit::Color& color) {
  const TitleBrushes& brushes = TitleBrushes::Of(color);
  SetValue(TitleColorGradientProperty, brushes.gradient);
  SetValue(TitleColorProperty, brushes.solid);
}

void ContentNode::SetArrayIndex(int32_t index) {
  if (index < 0 && arrayIndex < 0) return;
  arrayIndex = index;
  SetValue(ArrayIndexTextProperty, index < 0 ? std::string() : "[" + std::to_string(index) + "]");
  SetValue(ArrayIndexVisibilityProperty, index < 0 ? Visibility::Collapsed : Visibility::Visible);
}

std::string ContentNode::NameForUser() const { return NameOf(*this); }

std::string ContentNode::FindUpstreamName() {
  if (!nodeName.empty()) return nodeName;
  std::vector<const ContentNode*> queue{this};
  NodeSet visited{this};
  for (size_t next = 0; next < queue.size(); ++next) {
    const ContentNode* node = queue[next];
    if (!node->nodeName.empty()) return node->nodeName;
    for (size_t i = 0; i < node->input->Count(); ++i)
      for (const NodePinData* parent : node->input->Get(i)->connections)
        if (parent->owner && visited.insert(parent->owner).second) queue.push_back(parent->owner);
  }
  return {};
}

} // namespace Tesselor
