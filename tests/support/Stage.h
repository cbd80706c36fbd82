#pragma once

#include "Elements.h"
#include "Picture.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/render/FrameRecorder.h"
#include "toolkit/visual/Input.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TestSupport {

/// Where the mouse goes: a point in the root's coordinates, or the middle of an element as it is laid out by then.
class Spot {
public:
  Spot(Toolkit::Point point) : point(point) {}
  Spot(float x, float y) : point{x, y} {}
  Spot(const Toolkit::UIElement& element) : element(&element) {}
  Spot(const Toolkit::UIElement* element) : element(element) {}
  Toolkit::Point Resolve() const;

private:
  Toolkit::Point point;
  const Toolkit::UIElement* element = nullptr;
};

/// How the mouse is used: `{}` is a click with the left button, `{.held = {Key::LeftCtrl}}` one with Ctrl held.
struct MouseUse {
  Toolkit::MouseButton button = Toolkit::MouseButton::Left;
  /// 2 for a double click.
  uint32_t count = 1;
  std::vector<Toolkit::Key> held = {};
};

/// A tree on a display in memory. Raw mouse and key events go in where a display feeds them; after each the stage turns
/// the launcher's loop until nothing is due: tasks and timers, `Loaded`, layout, hover, a frame. Its clock is the
/// dispatcher's, and only `Wait` moves it.
class Stage {
public:
  static constexpr Toolkit::Size DefaultSize{1000, 800};
  static constexpr Toolkit::Pixel Background = 0xff24242a;

  /// Whether frames are drawn into `Shown`, with the images of the files, or recorded only, without images.
  enum class Frames { Recorded, Drawn };

  explicit Stage(Frames frames = Frames::Recorded);
  explicit Stage(Toolkit::UIElement& root, Toolkit::Size size = DefaultSize) : Stage() { Put(root, size); }
  /// Takes the tree down as the launcher does, and drops the dispatcher's work.
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  /// Puts a tree on the stage in place of the one that is there.
  void Put(Toolkit::UIElement& root, Toolkit::Size size = DefaultSize);
  void TakeDown();
  void Resize(Toolkit::Size size);
  void Settle();
  /// Lets time pass from timer to timer.
  void Wait(double milliseconds);

  Toolkit::UIElement& Root() const { return *root; }
  /// For what is no event of its own: focus, capture, `ReleaseAll`, compositions. It does not settle.
  Toolkit::InputState& Input() { return *input; }

  // Places, in the root's coordinates.
  static Toolkit::Point MiddleOf(const Toolkit::UIElement& element);
  static Toolkit::Rect BoxOf(const Toolkit::UIElement& element);

  // The mouse. Those that return a value tell whether a handler took the event.
  void MoveTo(Spot at);
  /// Moves there and holds the button until `Release`.
  bool Press(Spot at, Toolkit::MouseButton button = Toolkit::MouseButton::Left, uint32_t count = 1);
  bool Release(Spot at, Toolkit::MouseButton button = Toolkit::MouseButton::Left);
  void Click(Spot at, const MouseUse& use = {});
  void RightClick(Spot at) { Click(at, {.button = Toolkit::MouseButton::Right}); }
  void DoubleClick(Spot at) { Click(at, {.count = 2}); }
  /// Moves in several steps, as a hand does.
  void Drag(Spot from, Spot to, const MouseUse& use = {});
  /// Positive notches are away from the user.
  bool Wheel(Spot at, float notches);
  /// The mouse goes out of the window.
  void Leave();

  // The keyboard.
  bool KeyDown(Toolkit::Key key);
  bool KeyUp(Toolkit::Key key);
  bool Press(Toolkit::Key key);
  /// Presses keys on top of each other, as {LeftCtrl, Z}. True if the last one was taken.
  bool Chord(const std::vector<Toolkit::Key>& keys);
  /// What a keyboard or an input method sends as one text.
  bool Type(std::string_view text);
  /// Clicks into the box and replaces its text.
  void TypeInto(Toolkit::TextBox& box, std::string_view text);
  /// Null takes the focus away.
  void Focus(Toolkit::UIElement* element);

  // The last frame.
  const Toolkit::DisplayList& Frame() const { return *frame; }
  /// The texts in it, in drawing order.
  std::vector<std::string> TextsShown() const;
  bool Shows(std::string_view text) const;
  /// What a user sees, made of the damaged parts of all frames so far.
  const Picture& Shown() const { return *picture; }

private:
  /// One turn of the loop; false if nothing was due.
  bool Turn();
  bool ComesToRest();

  double now = 1000;
  Toolkit::Ptr<Toolkit::UIElement> root;
  Toolkit::Size size;
  std::optional<Toolkit::InputState> input;
  std::optional<Toolkit::FrameRecorder> recorder;
  std::shared_ptr<const Toolkit::DisplayList> frame;
  std::optional<Picture> picture;
  std::unique_ptr<Toolkit::TileRasterizer> rasterizer;
};

} // namespace TestSupport
