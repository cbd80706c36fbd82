#pragma once

#include "toolkit/controls/TextElement.h"
#include "toolkit/visual/FrameworkElement.h"

namespace Toolkit {

/// Shows a text. One element without children, however long the text.
class TextBlock : public FrameworkElement {
  TOOLKIT_TYPE(TextBlock)
public:
  static inline const DependencyProperty* TextProperty = nullptr;
  static inline const DependencyProperty* TextWrappingProperty = nullptr;
  static inline const DependencyProperty* TextTrimmingProperty = nullptr;
  static inline const DependencyProperty* TextAlignmentProperty = nullptr;
  static inline const DependencyProperty* PaddingProperty = nullptr;
  static inline const DependencyProperty* BackgroundProperty = nullptr;

  TextBlock() = default;
  std::string_view GetText() const { return GetString(TextProperty); }
  void SetText(std::string_view text) { SetValue(TextProperty, text); }

protected:
  void OnRender(Painter& painter) override;
  Size MeasureOverride(Size available) override;
  bool HitTestSelf(Point point) const override { return Rect{0, 0, ActualWidth(), ActualHeight()}.Contains(point); }
};

} // namespace Toolkit
