#pragma once

#include "toolkit/controls/Control.h"
#include "toolkit/controls/TextElement.h"

#include <memory>
#include <string>

namespace Toolkit {

class InputState;
class TextEditor;

enum class ScrollBarVisibility : uint8_t { Disabled, Auto, Hidden, Visible };
const EnumDescription& DescribeEnum(ScrollBarVisibility);

/// A box in which text is edited. It draws its own frame and text; what only an editing session needs (caret,
/// selection, undo) is made when the session begins, and a scroll bar when the mouse or the focus comes to a box whose
/// text does not fit.
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
  TextEditor& Editor() const;
  bool HasScrollBar() const;
  /// Inside of frame, padding and the room for a scroll bar.
  Rect ContentBox() const;
  /// Frame, padding and the room for a scroll bar.
  Thickness Surround() const;
  std::shared_ptr<const TextLayout> LayoutOf(std::string_view text) const;
  /// The layout's upper left corner, scrolled.
  Point TextOrigin(const TextLayout& layout) const;
  void OnMouse(const RoutedEventArgs& args, InputState& input);
  mutable std::unique_ptr<TextEditor> editor;
};

} // namespace Toolkit
