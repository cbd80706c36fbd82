#pragma once

#include "toolkit/controls/Control.h"
#include "toolkit/controls/TextElement.h"

#include <memory>
#include <optional>
#include <string>

namespace Toolkit {

class InputState;
class TextEditor;
struct ScrollThumb;

enum class Key : uint8_t;
enum class ScrollBarVisibility : uint8_t { Disabled, Auto, Hidden, Visible };
const EnumDescription& DescribeEnum(ScrollBarVisibility);

/// A box in which text is edited. It draws its own frame, text and scroll bar; what only an editing session needs
/// (caret, selection, undo) is made when the session begins. A right click opens a menu of its own, unless the box has
/// a `ContextMenu`.
class TextBox : public Control {
  TOOLKIT_TYPE(TextBox)
public:
  /// Two-way bindings carry it to their source when the focus leaves, unless they say otherwise.
  static inline const DependencyProperty* TextProperty = nullptr;
  static inline const DependencyProperty* TextWrappingProperty = nullptr;
  static inline const DependencyProperty* TextAlignmentProperty = nullptr;
  static inline const DependencyProperty* AcceptsReturnProperty = nullptr;
  static inline const DependencyProperty* IsReadOnlyProperty = nullptr;
  static inline const DependencyProperty* MaxLengthProperty = nullptr;
  static inline const DependencyProperty* PlaceholderProperty = nullptr;
  static inline const DependencyProperty* CaretBrushProperty = nullptr;
  static inline const DependencyProperty* SelectionBrushProperty = nullptr;
  static inline const DependencyProperty* ScrollBarBrushProperty = nullptr;
  static inline const DependencyProperty* VerticalScrollBarVisibilityProperty = nullptr;
  static inline const DependencyProperty* HorizontalScrollBarVisibilityProperty = nullptr;
  /// Bubbling, raised on every change of the text, whoever made it.
  static const RoutedEvent TextChangedEvent, SelectionChangedEvent;

  TextBox();
  ~TextBox() override;
  std::string_view GetText() const { return GetString(TextProperty); }
  void SetText(std::string_view text) { SetValue(TextProperty, text); }
  /// Byte offsets into the text.
  size_t CaretIndex() const;
  void Select(size_t start, size_t length);
  void SelectAll();
  size_t SelectionStart() const;
  size_t SelectionLength() const;
  /// Bytes of the given visual line, its line end included; 0 if there is no such line.
  size_t LineLength(size_t line) const;

  /// When the focus has left: what the text would be if all were done again that was undone while it was there. Nothing
  /// if nothing was.
  std::optional<std::string> UndoneText() const;

  Rect CaretRectangle() const override;
  void SetComposition(std::string_view text, size_t caret) override;

protected:
  void OnPropertyChanged(const PropertyChange& change) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnRender(Painter& painter) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }

private:
  friend class TextEditor;
  friend class TextBoxMenu;
  TextEditor& Editor() const;
  bool HasScrollBar() const;
  /// Inside of frame, padding and the room for a scroll bar.
  Rect ContentBox() const;
  /// Frame, padding and the room for a scroll bar.
  Thickness Surround() const;
  std::shared_ptr<const TextLayout> LayoutOf(std::string_view text) const;
  /// The layout's upper left corner, scrolled.
  Point TextOrigin(const TextLayout& layout) const;
  /// Fits the bar to the box and to a text that is laid out like that.
  void PlaceBar(ScrollThumb& bar, const TextLayout& layout) const;
  bool OnKey(Key key);
  void OnMouse(const RoutedEventArgs& args, InputState& input);
  void OnRightButton(const RoutedEventArgs& args);
  /// What the mouse does on the scroll bar; true if it took the event.
  bool OnBar(const RoutedEventArgs& args, InputState& input);
  mutable std::unique_ptr<TextEditor> editor;
  bool isRightPressed = false;
};

} // namespace Toolkit
