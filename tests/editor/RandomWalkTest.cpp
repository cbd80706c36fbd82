// Edits by chance through raw input, all taken back and all done again: whatever the user did in whatever order, the
// document is what it was.
#include "WindowStage.h"
#include "editor/CreateNodeButton.h"
#include "editor/NodesMenu.h"
#include "fields/FieldSmallText.h"
#include "nodes/NodePinControl.h"
#include "toolkit/controls/CheckBox.h"
#include "toolkit/controls/ComboBox.h"
#include "toolkit/controls/MenuItem.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/Slider.h"
#include "toolkit/controls/TextBox.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <random>

namespace Tesselor {
namespace {

using TestSupport::All;
using TestSupport::WindowStage;
using Toolkit::Key;
using Toolkit::Point;
using Toolkit::Rect;

class Walk {
public:
  Walk(const char* sample, uint32_t seed) : window(sample), graph(window.View().GetGraph()), random(seed) {}

  /// Edits for a while, takes everything back and does it again.
  void Round(int edits) {
    ActionHistory& history = window.History();
    history.Clear();
    states.clear();
    states[0] = {State(), "the start"};
    for (int i = 0; i < edits && history.Size() < ActionHistory::capacity - 20; ++i) {
      const std::string edit = Step();
      const size_t done = history.Size() - history.UndoneCount();
      states.erase(states.upper_bound(done), states.end());
      // What is being edited is no step yet.
      const Toolkit::UIElement* focused = window.Input().Focused();
      if (!focused || focused == window.Canvas().GetPanel()) states[done] = {State(), edit};
    }
    window.Focus(nullptr);
    while (history.UndoneCount() > 0) window.Redo();
    const size_t size = history.Size();
    states[size] = {State(), "the end"};
    for (size_t i = size; i-- > 0;) {
      window.Undo();
      ASSERT_EQ(history.UndoneCount(), size - i);
      ASSERT_NO_FATAL_FAILURE(ExpectState(i, "undone to"));
    }
    window.Undo();
    for (size_t i = 1; i <= size; ++i) {
      window.Redo();
      ASSERT_NO_FATAL_FAILURE(ExpectState(i, "done again to"));
    }
    window.Redo();
    ASSERT_EQ(history.UndoneCount(), 0u);
    ASSERT_EQ(history.Size(), size);
  }
  size_t NodeCount() const { return graph.ContentNodes().size(); }
  size_t StepCount() const { return window.History().Size(); }

private:
  /// The identities that a save gives to nodes, as it comes to them, are no part of what is undone.
  std::string State() {
    for (const auto& node : graph.ContentNodes()) {
      node->EnsureNodeId();
      if (node->IsPassthrough() && node->linkId.empty()) node->linkId = node->NodeId();
    }
    return window.Exported();
  }
  void ExpectState(size_t done, const char* how) {
    const auto expected = states.find(done);
    if (expected == states.end()) return;
    ASSERT_EQ(State(), expected->second.first)
        << how << " step " << done << ", made by: " << expected->second.second << "; the next known is "
        << (std::next(expected) == states.end() ? "none" : std::next(expected)->second.second);
  }

  size_t Below(size_t limit) { return std::uniform_int_distribution<size_t>(0, limit - 1)(random); }
  bool Chance(int percent) { return Below(100) < static_cast<size_t>(percent); }
  float Between(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random); }
  template <class List> auto& Any(const List& list) { return *list[Below(list.size())]; }

  /// The name of what was done.
  std::string Step() {
    struct Edit {
      const char* name;
      int weight;
      void (Walk::*run)();
    };
    static const Edit edits[] = {
        {"type", 8, &Walk::TypeText},
        {"check", 3, &Walk::Check},
        {"slide", 2, &Walk::Slide},
        {"rows", 5, &Walk::ChangeRows},
        {"drag", 10, &Walk::Drag},
        {"group", 3, &Walk::DragFrame},
        {"resize", 3, &Walk::ResizeFrame},
        {"connect", 8, &Walk::Connect},
        {"by menu", 5, &Walk::ConnectByMenu},
        {"cut", 4, &Walk::Cut},
        {"select", 6, &Walk::Select},
        {"delete", 4, &Walk::Delete},
        {"copy", 3, &Walk::Copy},
        {"paste", 3, &Walk::Paste},
        {"duplicate", 2, &Walk::Duplicate},
        {"nudge", 4, &Walk::Nudge},
        {"create", 4, &Walk::Create},
        {"drop", 4, &Walk::DropConnection},
        {"root", 1, &Walk::SetRoot},
        {"layout", 1, &Walk::LayOut},
        {"undo", 4, &Walk::Wander},
        {"comment", 2, &Walk::ToggleComment},
        {"choose", 3, &Walk::ChooseOption},
        {"press", 2, &Walk::PressButton},
        {"note", 2, &Walk::EditNote},
        {"title", 2, &Walk::EditTitle},
    };
    std::string name;
    int sum = 0;
    for (const Edit& edit : edits) sum += edit.weight;
    int at = static_cast<int>(Below(static_cast<size_t>(sum)));
    for (const Edit& edit : edits) {
      if ((at -= edit.weight) >= 0) continue;
      name = edit.name;
      if (!graph.ContentNodes().empty()) (this->*edit.run)();
      break;
    }
    // Whatever was opened is closed, as far as Escape does it.
    window.Press(Key::Escape);
    window.Press(Key::Escape);
    return name;
  }

  /// A point in the window where a press reaches the element itself, or nothing.
  std::optional<Point> Reach(Toolkit::UIElement& element) {
    if (!element.IsVisible() || element.RenderSize().width <= 0) return {};
    window.LookAt(element, Chance(70) ? 1.0f : 0.5f);
    const Point middle = WindowStage::MiddleOf(element);
    const Toolkit::UIElement* hit = window.Input().ElementAt(middle);
    if (!hit || !element.IsAncestorOf(hit)) return {};
    return middle;
  }
  template <class T> T* AnyIn(Toolkit::UIElement& root) {
    std::vector<T*> found;
    for (T* each : All<T>(root))
      if (each->IsVisible() && each->ActualWidth() > 0) found.push_back(each);
    return found.empty() ? nullptr : found[Below(found.size())];
  }
  ContentNode& AnyNode() { return Any(graph.ContentNodes()); }
  /// On the frame of a node's body.
  std::optional<Point> BodyOf(BaseNode& node) {
    window.LookAt(node, Chance(50) ? 1.0f : 0.4f);
    const Rect box = WindowStage::BoxOf(node);
    const Point body{box.x + box.width / 2, box.Bottom() - 4 * window.Canvas().GetZoom()};
    const Toolkit::UIElement* hit = window.Input().ElementAt(body);
    if (!hit || !node.IsAncestorOf(hit)) return {};
    return body;
  }
  /// A graph that was laid out by chance may leave nothing free; then a corner has to do.
  Point Empty() {
    try {
      return window.EmptySpot();
    } catch (const std::runtime_error&) {
      return {5, 790};
    }
  }
  Point Near(Point at) { return {at.x + Between(-200, 200), at.y + Between(-200, 200)}; }
  std::string Word() {
    static const char* const words[] = {"",   "a", "lamp", "12", "-3.5", "{\"a\": 1}", "true", "\xc3\xa4\xe2\x82\xac",
                                        "x y"};
    return words[Below(std::size(words))];
  }

  void TypeText() {
    auto* box = AnyIn<Toolkit::TextBox>(AnyNode());
    if (!box || box->Get<bool>(Toolkit::TextBox::IsReadOnlyProperty) || !Reach(*box)) return;
    window.TypeInto(*box, Word());
    if (Chance(60)) window.Focus(nullptr);
  }
  void Check() {
    auto* box = AnyIn<Toolkit::CheckBox>(AnyNode());
    if (const auto at = box ? Reach(*box) : std::nullopt) window.Click(*at);
  }
  void Slide() {
    auto* slider = AnyIn<Toolkit::Slider>(AnyNode());
    if (!slider || !Reach(*slider)) return;
    window.Focus(slider);
    for (size_t i = Below(4) + 1; i > 0; --i) window.Press(Chance(50) ? Key::Left : Key::Right);
    if (Chance(60)) window.Focus(nullptr);
  }
  void ChangeRows() {
    std::vector<Toolkit::Button*> buttons;
    for (Toolkit::Button* button : All<Toolkit::Button>(AnyNode())) {
      const auto content = button->GetContent();
      if (button->IsVisible() && (content.AsStringView() == "Add New" || content.AsStringView() == "X"))
        buttons.push_back(button);
    }
    if (buttons.empty()) return;
    if (const auto at = Reach(*buttons[Below(buttons.size())])) window.Click(*at);
  }
  void Drag() {
    if (const auto body = BodyOf(AnyNode())) {
      if (Chance(15)) {
        window.Press(*body);
        window.MoveTo(Near(*body));
        window.Press(Key::Escape);
        window.Release(*body);
        return;
      }
      window.Drag(*body, Near(*body));
    }
  }
  FrameNode* AnyFrame() {
    std::vector<FrameNode*> frames;
    for (const auto& group : graph.GroupNodes()) frames.push_back(group.Get());
    for (const auto& comment : graph.CommentNodes()) frames.push_back(comment.Get());
    return frames.empty() ? nullptr : frames[Below(frames.size())];
  }
  /// A point of the frame's header or edge, in the window.
  std::optional<Point> OnFrame(FrameNode& frame, float x, float y) {
    window.LookAt(frame, 0.3f);
    const Rect box = frame.Bounds();
    const Point at = window.ToWindow({box.x + box.width * x, box.y + (y < 0 ? -y : box.height * y)});
    const Toolkit::UIElement* hit = window.Input().ElementAt(at);
    if (!hit || !frame.IsAncestorOf(hit)) return {};
    return at;
  }
  void DragFrame() {
    FrameNode* frame = AnyFrame();
    if (const auto at = frame ? OnFrame(*frame, 0.8f, -25) : std::nullopt) window.Drag(*at, Near(*at));
  }
  void ResizeFrame() {
    FrameNode* frame = AnyFrame();
    const float edges[][2] = {{0.001f, 0.5f}, {0.999f, 0.5f}, {0.5f, 0.999f}, {0.999f, 0.999f}, {0.001f, 0.001f}};
    const auto& edge = edges[Below(std::size(edges))];
    if (const auto at = frame ? OnFrame(*frame, edge[0], edge[1]) : std::nullopt) window.Drag(*at, Near(*at));
  }

  std::vector<NodePinData*> PinsOf(ContentNode& node) {
    std::vector<NodePinData*> pins;
    for (const ContentNode::Pins* list : {&node.Input(), &node.Output()})
      for (size_t i = 0; i < list->Count(); ++i)
        if (!list->Get(i)->IsBlank() && list->Get(i)->IsVisible()) pins.push_back(list->Get(i));
    return pins;
  }
  Toolkit::FrameworkElement* ShapeOf(const NodePinData& pin) {
    NodePinControl* control = pin.owner->FindPinControl(pin);
    if (!control) return nullptr;
    control->MakeControls();
    window.Settle();
    return control->PinElement();
  }
  /// Two pins that may be joined.
  std::pair<NodePinData*, NodePinData*> FreePair() {
    for (int i = 0; i < 20; ++i) {
      const std::vector<NodePinData*> from = PinsOf(AnyNode()), to = PinsOf(AnyNode());
      if (from.empty() || to.empty()) continue;
      NodePinData *a = from[Below(from.size())], *b = to[Below(to.size())];
      if (NodePinData::CanConnect(*a, *b) && a->owner->FindPinControl(*a) && b->owner->FindPinControl(*b))
        return {a, b};
    }
    return {};
  }
  void Connect() {
    const auto [a, b] = FreePair();
    if (!a) return;
    const Point from = a->owner->AnchorOf(*a), to = b->owner->AnchorOf(*b);
    window.LookAt(*a->owner, 1);
    const float distance = std::max(std::abs(from.x - to.x) / 1000, std::abs(from.y - to.y) / 600);
    window.LookAt(*a->owner, std::clamp(0.45f / std::max(distance, 0.01f), 0.1f, 1.0f));
    window.Drag(window.ToWindow(from), window.ToWindow(to));
  }
  void ConnectByMenu() {
    const auto [a, b] = FreePair();
    if (!a) return;
    for (NodePinData* pin : {a, b}) {
      const auto at = Reach(*ShapeOf(*pin));
      if (!at) return;
      window.RightClick(*at);
      for (Toolkit::MenuItem* item : All<Toolkit::MenuItem>(*Toolkit::PopupLayer::Of(window.Root())))
        if (item->GetHeader().AsStringView() == (pin == a ? "Start Connection" : "Complete Connection")) {
          window.Click(*item);
          break;
        }
    }
  }
  void DropConnection() {
    const std::vector<NodePinData*> pins = PinsOf(AnyNode());
    if (pins.empty()) return;
    Toolkit::FrameworkElement* shape = ShapeOf(*pins[Below(pins.size())]);
    const auto at = shape ? Reach(*shape) : std::nullopt;
    if (!at) return;
    window.Drag(*at, Empty());
    Choose();
  }
  /// Takes any entry of the open menu.
  void Choose() {
    NodesMenu& menu = *window.Canvas().GetNodesMenu();
    if (!menu.IsOpen() || Chance(20)) return;
    static const char* const texts[] = {"a", "e", "st", "line", "generic"};
    window.Type(texts[Below(std::size(texts))]);
    std::vector<Toolkit::Button*> buttons;
    for (Toolkit::Button* button : All<Toolkit::Button>(menu))
      if (button->IsVisible() && WindowStage::BoxOf(*button).Bottom() < 780) buttons.push_back(button);
    if (!buttons.empty()) window.Click(*buttons[Below(buttons.size())]);
    window.Focus(nullptr);
  }
  void Create() {
    window.LookAt(AnyNode(), 0.5f);
    window.RightClick(Empty());
    Choose();
  }
  void Cut() {
    window.LookAt(AnyNode(), 0.4f);
    const Point from = Empty();
    window.Drag(
        from, {Between(50, 1200), Between(100, 750)},
        {.held = Chance(60) ? std::vector<Key>{Key::LeftCtrl, Key::LeftShift} : std::vector<Key>{Key::LeftShift}});
    if (Chance(30)) window.Press(Key::Delete);
  }
  void Select() {
    if (Chance(40)) {
      window.LookAt(AnyNode(), 0.4f);
      window.Drag(Empty(), {Between(50, 1200), Between(100, 750)});
      return;
    }
    if (Chance(10)) {
      window.Focus(nullptr);
      window.Chord({Key::LeftCtrl, Key::A});
      return;
    }
    for (size_t i = Below(3); i < 3; ++i)
      if (const auto body = BodyOf(AnyNode())) window.Click(*body, {.held = {Key::LeftCtrl}});
    if (FrameNode* frame = Chance(30) ? AnyFrame() : nullptr)
      if (const auto at = OnFrame(*frame, 0.8f, -25)) window.Click(*at);
  }
  void Delete() {
    if (graph.Selected().GetNodes().size() * 2 > NodeCount()) return;
    window.Focus(nullptr);
    window.Press(Key::Delete);
  }
  void Copy() {
    window.Focus(nullptr);
    window.Chord({Key::LeftCtrl, Chance(80) ? Key::C : Key::X});
  }
  void Paste() {
    if (NodeCount() > 150) return;
    window.Focus(nullptr);
    window.MoveTo({Between(50, 1200), Between(100, 750)});
    window.Chord({Key::LeftCtrl, Key::V});
  }
  void Duplicate() {
    if (NodeCount() > 150) return;
    window.Focus(nullptr);
    window.Chord({Key::LeftCtrl, Key::D});
  }
  void Nudge() {
    window.Focus(nullptr);
    static constexpr Key keys[] = {Key::Left, Key::Right, Key::Up, Key::Down};
    for (size_t i = Below(4) + 1; i > 0; --i) window.Press(keys[Below(4)]);
  }
  void ChooseItem(const char* header) {
    for (Toolkit::MenuItem* item : All<Toolkit::MenuItem>(window.Root()))
      if (item->GetHeader().AsStringView() == header) {
        window.Click(*item);
        return;
      }
  }
  void SetRoot() {
    window.Focus(nullptr);
    if (const auto body = BodyOf(AnyNode())) window.Click(*body);
    ChooseItem("Set Selected Node As Root");
  }
  void LayOut() { ChooseItem(Chance(50) ? "Auto Position Nodes" : "Mirror Nodes Position"); }
  void Wander() {
    for (size_t i = Below(3) + 1; i > 0; --i) window.Undo();
    for (size_t i = Below(4); i > 0; --i) window.Redo();
  }
  void ChooseOption() {
    auto* combo = AnyIn<Toolkit::ComboBox>(AnyNode());
    const auto at = combo ? Reach(*combo) : std::nullopt;
    if (!at) return;
    window.Click(*at);
    for (size_t i = Below(3) + 1; i > 0; --i) window.Press(Chance(50) ? Key::Down : Key::Up);
    window.Press(Key::Return);
    window.Focus(nullptr);
  }
  /// Any button in a field but those that ask for a file.
  void PressButton() {
    for (const auto& [id, field] : AnyNode().contentFields)
      if (Toolkit::DynamicCast<FieldSmallText>(field.Get()))
        for (Toolkit::Button* button : All<Toolkit::Button>(*field))
          if (const auto at = Reach(*button)) {
            window.Click(*at);
            return;
          }
  }
  void EditNote() {
    if (graph.CommentNodes().empty()) return;
    CommentNode& comment = Any(graph.CommentNodes());
    auto* box = comment.FindName<Toolkit::TextBox>("CommentTextBox");
    if (!box || !Reach(*box)) return;
    window.TypeInto(*box, Word());
    if (auto* bigger = comment.FindName<Toolkit::Button>(Chance(50) ? "IncreaseFontBtn" : "DecreaseFontBtn"))
      if (bigger->IsVisible()) window.Click(*bigger);
    window.Focus(nullptr);
  }
  void EditTitle() {
    window.Focus(nullptr);
    if (const auto body = BodyOf(AnyNode())) window.Click(*body);
    window.Press(Key::F2);
    window.Type(Word());
    window.Press(Chance(70) ? Key::Return : Key::Escape);
    window.Focus(nullptr);
  }
  void ToggleComment() {
    ContentNode& node = AnyNode();
    auto* button = node.FindName<Toolkit::FrameworkElement>("CommentToggleButton");
    if (const auto at = button ? Reach(*button) : std::nullopt) window.Click(*at);
  }

  WindowStage window;
  Graph& graph;
  std::mt19937 random;
  /// What was exported when so many steps were done, and by what edit it came.
  std::map<size_t, std::pair<std::string, std::string>> states;
};

TEST(RandomWalk, IsTakenBackToTheStartAndDoneAgain) {
  // The whole test takes some seconds; the number of edits in the environment is for a night.
  const char* wanted = std::getenv("TESSELOR_RANDOM_EDITS");
  int left = wanted ? std::atoi(wanted) : 1200;
  const char* firstSeed = std::getenv("TESSELOR_RANDOM_SEED");
  uint32_t seed = firstSeed ? static_cast<uint32_t>(std::atoi(firstSeed)) : 1;
  static const char* const samples[] = {"quest", "dialogue", "sound_bank", "quest_chain"};
  size_t steps = 0;
  for (; left > 0 && !testing::Test::HasFatalFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Walk walk(samples[seed % std::size(samples)], seed);
    for (int round = 0; round < 3 && left > 0 && walk.NodeCount() > 0 && !testing::Test::HasFatalFailure(); ++round) {
      walk.Round(100);
      left -= 100;
      steps += walk.StepCount();
    }
  }
  // A walk that finds nothing to do would prove nothing.
  EXPECT_GT(steps, 300u);
}

} // namespace
} // namespace Tesselor
