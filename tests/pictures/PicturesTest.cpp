#include "PictureStage.h"

#include "editor/NodeEditorCanvas.h"
#include "editor/NodePanel.h"
#include "editor/NodesMenu.h"
#include "fields/FieldCheckbox.h"
#include "fields/FieldDictionary.h"
#include "fields/FieldEnum.h"
#include "fields/FieldEnumFilterable.h"
#include "fields/FieldFilePath.h"
#include "fields/FieldFloat.h"
#include "fields/FieldInt.h"
#include "fields/FieldIntSlider.h"
#include "fields/FieldList.h"
#include "fields/FieldObject.h"
#include "fields/FieldRawJson.h"
#include "fields/FieldSmallText.h"
#include "fields/FieldText.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GenericContentNode.h"
#include "nodes/GroupNode.h"
#include "nodes/NodePinControl.h"
#include "nodes/ReferenceNode.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/controls/TextBox.h"

namespace Tesselor {
namespace {

using Toolkit::Key;

class Pictures : public TestSupport::PictureTest {};

TEST_F(Pictures, Fields) {
  Open("quest");
  ContentNode& quest = *view->ContentNodes()[0];
  const auto show = [&](const char* name, const Toolkit::UIElement& field) {
    LookAt(field);
    Expect(name, field);
  };
  show("FieldSmallText", First<FieldSmallText>(quest));
  show("FieldText", First<FieldText>(quest));
  show("FieldEnum", First<FieldEnum>(quest));
  show("FieldEnumFilterable", First<FieldEnumFilterable>(quest));
  show("FieldIntSlider", First<FieldIntSlider>(quest));
  show("FieldCheckbox", First<FieldCheckbox>(quest));
  show("FieldInt", First<FieldInt>(quest));
  show("FieldList", First<FieldList>(quest));
  show("FieldDictionary", First<FieldDictionary>(quest));
  show("FieldObject", First<FieldObject>(quest));
  show("FieldFilePath", First<FieldFilePath>(quest));
  show("FieldFloat", First<FieldFloat>(*view));
  show("FieldRawJson", First<FieldRawJson>(*view));
}

TEST_F(Pictures, Nodes) {
  Open("quest");
  const auto show = [&](const char* name, const Toolkit::UIElement& node) {
    LookAt(node);
    Expect(name, node, 12);
  };
  show("NodeWithPins", Node("Three flasks from Tobin"));
  show("NodeOfLink", Node("To the lamp"));
  show("NodeWithComment", Node("Script"));
  show("NodeGeneric", First<GenericContentNode>(*view));
  show("NodeOfComment", *view->CommentNodes()[0]);
  ContentNode& node = Node("The nest");
  LookAt(node);
  node.SetValue(BaseNode::IsSelectedProperty, true);
  Expect("NodeSelected", node, 12);
  node.SetValue(BaseNode::IsSelectedProperty, false);
  const auto& pin = First<NodePinControl>(node);
  Hover(*pin.PinElement());
  Expect("NodeWithHoveredPin", node, 12);
  show("NodeReference", First<ReferenceNode>(*view));
  GroupNode& group = *view->GroupNodes()[1];
  LookAt(group, 0.4f);
  Expect("NodeOfGroup", group, 8);
}

TEST_F(Pictures, TextBoxes) {
  Open("quest");
  auto& field = First<FieldText>(*view->ContentNodes()[0]);
  auto& box = First<Toolkit::TextBox>(field);
  LookAt(field);
  Click(box);
  box.Select(4, 9);
  Expect("TextBoxSelection", box);
  box.SetText("");
  Expect("TextBoxCaret", box);
}

TEST_F(Pictures, Canvas) {
  Open("quest");
  auto* canvas = view->FindName<NodeEditorCanvas>("NodeEditorCanvas");
  LookAt(Node("The nest"));
  Expect("CanvasAt1", *canvas, 0);
  LookAt(Node("The nest"), 0.25f);
  Expect("CanvasAt025", *canvas, 0);
  LookAt(Node("The nest"), 0.05f);
  Expect("CanvasAt005", *canvas, 0);
}

TEST_F(Pictures, Gestures) {
  Open("quest");
  auto* canvas = view->FindName<NodeEditorCanvas>("NodeEditorCanvas");
  ContentNode& node = Node("The nest");
  LookAt(node);
  auto& pin = First<NodePinControl>(node);
  pin.SetValue(NodePinControl::IsPendingConnectionProperty, true);
  Wait(300);
  Expect("PinPending", *pin.PinElement(), 24);
  pin.SetValue(NodePinControl::IsPendingConnectionProperty, false);

  LookAt(*view->ContentNodes()[0]);
  const auto drag = [&](const char* name) {
    HoverAt({100, 320});
    input->MouseDown(Toolkit::MouseButton::Left, {100, 320}, 1);
    HoverAt({280, 400});
    Expect(name, Toolkit::Rect{80, 300, 220, 120});
    input->MouseUp(Toolkit::MouseButton::Left, {280, 400});
  };
  drag("CanvasSelecting");
  input->KeyDown(Key::LeftShift);
  drag("CanvasCutting");
  input->KeyUp(Key::LeftShift);

  canvas->GetNodesMenu()->Open();
  const Toolkit::Point at = canvas->GetPanel()->PointFromRoot({300, 100});
  Toolkit::Canvas::SetLeft(canvas->GetNodesMenu(), at.x);
  Toolkit::Canvas::SetTop(canvas->GetNodesMenu(), at.y);
  Expect("NodesMenu", *canvas->GetNodesMenu());
}

TEST_F(Pictures, Popups) {
  Open("quest");
  const auto fileMenu = [](Toolkit::MenuItem& item) { return item.GetHeader().AsStringView() == "File"; };
  const auto below = [&](const Toolkit::UIElement& owner, float width, float height) {
    const Toolkit::Point at = owner.TransformToAncestor(nullptr).Map({-10, -10});
    return Toolkit::Rect{at.x, at.y, width, height};
  };
  Click(*Find<Toolkit::MenuItem>(*view, fileMenu));
  Press(Key::Down);
  Press(Key::Down);
  Expect("Menu", Toolkit::Rect{0, 0, 320, 190});
  Press(Key::Escape);

  ContentNode& quest = *view->ContentNodes()[0];
  auto& choice = First<FieldEnum>(quest);
  LookAt(choice);
  Click(First<Toolkit::ComboBox>(choice));
  Press(Key::Down);
  Expect("ComboBoxOpen", below(choice, 320, 160));
  Press(Key::Escape);

  auto& filtered = First<FieldEnumFilterable>(quest);
  LookAt(filtered);
  Click(First<Toolkit::TextBox>(filtered));
  Type("wa");
  Wait(1000);
  Expect("FieldEnumFilterableOpen", below(filtered, 380, 140));
  Press(Key::Escape);

  ContentNode& nest = Node("The nest");
  LookAt(nest);
  const auto& pin = First<NodePinControl>(nest);
  Click(*pin.PinElement(), Toolkit::MouseButton::Right);
  Expect("ContextMenuOfPin", below(*pin.PinElement(), 200, 80));
  Press(Key::Escape);

  const auto& label =
      *Find<Toolkit::TextBlock>(quest, [](Toolkit::TextBlock& text) { return text.GetText() == "Cooldown in hours"; });
  LookAt(label);
  Hover(label);
  Wait(600);
  Expect("ToolTip", below(label, 500, 90));
}

TEST_F(Pictures, Windows) {
  Open("dialogue");
  LookAt(*view->ContentNodes()[0], 0.8f);
  Expect("Window");
  Press(Key::H);
  Expect("Hotkeys");
  Press(Key::H);

  input->KeyDown(Key::LeftCtrl);
  Press(Key::F);
  input->KeyUp(Key::LeftCtrl);
  Type("l");
  Expect("NodeSearchPanel", Toolkit::Rect{0, 50, 400, 400});
  Press(Key::Escape);

  auto* panel = view->FindName<NodePanel>("NodePanel");
  panel->SetVisibility(Toolkit::Visibility::Visible);
  panel->OpenNode(view->ContentNodes()[1].Get());
  Expect("NodePanel", *panel);
  panel->SetVisibility(Toolkit::Visibility::Collapsed);

  view->SetValue(MainView::LoadExternalAssetModalVisibilityProperty, Toolkit::Visibility::Visible);
  Expect("WorkspaceModal", Toolkit::Rect{400, 300, 480, 260});
  view->SetValue(MainView::LoadExternalAssetModalVisibilityProperty, Toolkit::Visibility::Collapsed);

  ShowBoxes();
  using namespace Toolkit;
  MessageBox::Show("The file cannot be written:\n/somewhere/far/away.json", "Error", MessageBoxButton::OK,
                   MessageBoxImage::Error, {});
  Expect("MessageBoxError", Rect{320, 250, 640, 300});
  Press(Key::Return);
  MessageBox::Show("Some nodes will be lost. Go on?", "Warning", MessageBoxButton::OKCancel, MessageBoxImage::Warning,
                   {});
  Press(Key::Tab);
  Expect("MessageBoxWarning", Rect{320, 250, 640, 300});
  Press(Key::Return);
}

} // namespace
} // namespace Tesselor
