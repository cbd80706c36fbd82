#pragma once

#include "toolkit/controls/Control.h"

namespace Toolkit {

class DataTemplate;

/// A control that holds one thing: an element, a text, or an object that a data template shows.
class ContentControl : public Control {
  TOOLKIT_TYPE(ContentControl)
public:
  static inline const DependencyProperty* ContentProperty = nullptr;
  static inline const DependencyProperty* ContentTemplateProperty = nullptr;

  ContentControl() = default;
  ~ContentControl() override;
  const Value& GetContent() const { return GetValue(ContentProperty); }
  void SetContent(Value content) { SetValue(ContentProperty, std::move(content)); }
  /// The element that shows the content: the content itself, or what was made for it. Null before layout.
  UIElement* ContentElement() const { return contentElement.Get(); }

  size_t VisualChildCount() const override;
  UIElement* VisualChild(size_t index) const override;

protected:
  void PrepareForMeasure() override;
  void OnPropertyChanged(const PropertyChange& change) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;

private:
  void ReleaseContent();
  Ptr<UIElement> contentElement;
  bool contentDue = true;
};

} // namespace Toolkit
