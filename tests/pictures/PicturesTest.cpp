#include "PictureStage.h"

#include "editor/NodeEditorCanvas.h"
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
#include "toolkit/controls/ButtonBase.h"
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

TEST_F(Pictures, Windows) {
  Open("dialogue");
  LookAt(*view->ContentNodes()[0], 0.8f);
  Expect("Window");
  Press(Key::H);
  Expect("Hotkeys");
}

} // namespace
} // namespace Tesselor
