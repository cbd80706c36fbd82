#include "Expected.h"
#include "WindowStage.h"

#include "editor/NodePanel.h"
#include "editor/NodesMenu.h"
#include "nodes/NodePinControl.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/TextBlock.h"

namespace Tesselor {
namespace {

using Toolkit::Key;

/// What a user sees of the window with a sample in it.
class Pictures : public testing::Test, protected TestSupport::WindowStage {
protected:
  explicit Pictures(const char* sample = "quest") : WindowStage({.document = sample, .frames = Frames::Drawn}) {}

  void Expect(const std::string& name) { Expect(name, Toolkit::Rect{0, 0, 1280, 800}); }
  /// What is around an element with a margin.
  void Expect(const std::string& name, const Toolkit::UIElement& element, float margin = 4) {
    Settle();
    const Toolkit::Rect box = element.TransformToAncestor(nullptr).MapBounds(element.DrawnBounds());
    Expect(name, {box.x - margin, box.y - margin, box.width + 2 * margin, box.height + 2 * margin});
  }
  void Expect(const std::string& name, const Toolkit::Rect& part) {
    Settle();
    TestSupport::ExpectPicture(name, Shown().Part(part));
  }
  /// The first one of a class of the editor that can be seen.
  Toolkit::UIElement& OfClass(const std::string& name) const {
    const auto fits = [&](const Toolkit::UIElement& element) {
      return element.IsVisible() && element.ActualWidth() > 0 && element.GetType().Name() == "Tesselor." + name;
    };
    return *TestSupport::Find<Toolkit::UIElement>(View(), fits);
  }
};
using TestSupport::First;

class DialoguePictures : public Pictures {
protected:
  DialoguePictures() : Pictures("dialogue") {}
};

TEST_F(Pictures, Fields) {
  for (const char* name :
       {"FieldSmallText", "FieldText", "FieldEnum", "FieldEnumFilterable", "FieldIntSlider", "FieldCheckbox",
        "FieldInt", "FieldList", "FieldDictionary", "FieldObject", "FieldFilePath", "FieldFloat", "FieldRawJson"}) {
    LookAt(OfClass(name));
    Expect(name, OfClass(name));
  }
}

TEST_F(Pictures, Nodes) {
  for (const auto& [name, node] : std::initializer_list<std::pair<const char*, const Toolkit::UIElement&>>{
           {"NodeWithPins", Node("Three flasks from Tobin")},
           {"NodeOfLink", Node("To the lamp")},
           {"NodeWithComment", Node("Script")},
           {"NodeGeneric", OfClass("GenericContentNode")},
           {"NodeReference", OfClass("ReferenceNode")},
           {"NodeOfComment", *View().CommentNodes()[0]}}) {
    LookAt(node);
    Expect(name, node, 12);
    TestSupport::ExpectLayout(name, node);
  }
  ContentNode& node = Node("The nest");
  LookAt(node);
  node.SetValue(BaseNode::IsSelectedProperty, true);
  Expect("NodeSelected", node, 12);
  node.SetValue(BaseNode::IsSelectedProperty, false);
  const auto& pin = First<NodePinControl>(node);
  MoveTo(*pin.PinElement());
  Expect("NodeWithHoveredPin", node, 12);
  GroupNode& group = *View().GroupNodes()[1];
  LookAt(group, 0.4f);
  Expect("NodeOfGroup", group, 8);
}

TEST_F(Pictures, TextBoxes) {
  auto& field = OfClass("FieldText");
  auto& box = First<Toolkit::TextBox>(field);
  LookAt(field);
  Click(box);
  box.Select(4, 9);
  Expect("TextBoxSelection", box);
  box.SetText("");
  Expect("TextBoxCaret", box);
}

TEST_F(Pictures, Canvas) {
  LookAt(Node("The nest"));
  Expect("CanvasAt1", Canvas(), 0);
  LookAt(Node("The nest"), 0.25f);
  Expect("CanvasAt025", Canvas(), 0);
  LookAt(Node("The nest"), 0.05f);
  Expect("CanvasAt005", Canvas(), 0);
}

TEST_F(Pictures, Gestures) {
  ContentNode& node = Node("The nest");
  LookAt(node);
  auto& pin = First<NodePinControl>(node);
  pin.SetValue(NodePinControl::IsPendingConnectionProperty, true);
  Wait(305);
  Expect("PinPending", *pin.PinElement(), 24);
  pin.SetValue(NodePinControl::IsPendingConnectionProperty, false);

  LookAt(*View().ContentNodes()[0]);
  const auto drag = [&](const char* name) {
    Press({100, 320});
    MoveTo({280, 400});
    Expect(name, Toolkit::Rect{80, 300, 220, 120});
    Release({280, 400});
  };
  drag("CanvasSelecting");
  KeyDown(Key::LeftShift);
  drag("CanvasCutting");
  KeyUp(Key::LeftShift);

  Canvas().GetNodesMenu()->Open();
  const Toolkit::Point at = Canvas().GetPanel()->PointFromRoot({300, 100});
  Toolkit::Canvas::SetLeft(Canvas().GetNodesMenu(), at.x);
  Toolkit::Canvas::SetTop(Canvas().GetNodesMenu(), at.y);
  Expect("NodesMenu", *Canvas().GetNodesMenu());
  Type("li");
  Press(Toolkit::Key::Down);
  Expect("NodesMenuMarked", *Canvas().GetNodesMenu());
}

TEST_F(Pictures, Popups) {
  const auto fileMenu = [](const Toolkit::MenuItem& item) { return item.GetHeader().AsStringView() == "File"; };
  const auto below = [&](const Toolkit::UIElement& owner, float width, float height) {
    const Toolkit::Point at = owner.TransformToAncestor(nullptr).Map({-10, -10});
    return Toolkit::Rect{at.x, at.y, width, height};
  };
  Click(TestSupport::Find<Toolkit::MenuItem>(View(), fileMenu));
  Press(Key::Down);
  Press(Key::Down);
  Expect("Menu", Toolkit::Rect{0, 0, 320, 190});
  Press(Key::Escape);

  ContentNode& quest = *View().ContentNodes()[0];
  auto& choice = OfClass("FieldEnum");
  LookAt(choice);
  Click(First<Toolkit::ComboBox>(choice));
  Press(Key::Down);
  Expect("ComboBoxOpen", below(choice, 320, 160));
  Press(Key::Escape);

  auto& filtered = OfClass("FieldEnumFilterable");
  LookAt(filtered);
  Click(First<Toolkit::TextBox>(filtered));
  Type("wa");
  Wait(1000);
  Expect("FieldEnumFilterableOpen", below(filtered, 380, 140));
  Press(Key::Escape);

  ContentNode& nest = Node("The nest");
  LookAt(nest);
  const auto& pin = First<NodePinControl>(nest);
  RightClick(*pin.PinElement());
  Expect("ContextMenuOfPin", below(*pin.PinElement(), 200, 80));
  Press(Key::Escape);

  const auto& label = *TestSupport::Find<Toolkit::TextBlock>(
      quest, [](const Toolkit::TextBlock& text) { return text.GetText() == "Cooldown in hours"; });
  LookAt(label);
  MoveTo(label);
  Wait(600);
  Expect("ToolTip", below(label, 500, 90));
}

TEST_F(DialoguePictures, Windows) {
  LookAt(*View().ContentNodes()[0], 0.8f);
  Expect("Window");
  Press(Key::H);
  Expect("Hotkeys");
  Press(Key::H);

  Chord({Key::LeftCtrl, Key::F});
  Type("l");
  Expect("NodeSearchPanel", Toolkit::Rect{0, 50, 400, 400});
  Press(Key::Escape);

  auto* panel = View().FindName<NodePanel>("NodePanel");
  panel->SetVisibility(Toolkit::Visibility::Visible);
  panel->OpenNode(View().ContentNodes()[1].Get());
  Expect("NodePanel", *panel);
  panel->SetVisibility(Toolkit::Visibility::Collapsed);

  View().SetValue(MainView::LoadExternalAssetModalVisibilityProperty, Toolkit::Visibility::Visible);
  Expect("WorkspaceModal", Toolkit::Rect{400, 300, 480, 260});
  View().SetValue(MainView::LoadExternalAssetModalVisibilityProperty, Toolkit::Visibility::Collapsed);

  View().PresentMessageBoxes();
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
