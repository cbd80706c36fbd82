#pragma once

#include "toolkit/visual/FrameworkElement.h"

#include <functional>

namespace Toolkit {

class Control;
class DataTemplate;

/// The place of a content control's content in its template, or the container of an item.
class ContentPresenter : public FrameworkElement {
  TOOLKIT_TYPE(ContentPresenter)
public:
  static inline const DependencyProperty* ContentProperty = nullptr;
  static inline const DependencyProperty* ContentTemplateProperty = nullptr;
  /// Which member of the templated control is shown: "Content" unless set, or "Header".
  static inline const DependencyProperty* ContentSourceProperty = nullptr;

  ContentPresenter() = default;
  ~ContentPresenter() override;
  UIElement* ContentElement() const { return element.Get(); }
  size_t VisualChildCount() const override { return element ? 1 : 0; }
  UIElement* VisualChild(size_t) const override { return element.Get(); }

  /// Hands `join` the element that shows `content`, if there is one: itself if it is an element that stands nowhere
  /// yet, what the template makes of it, or a text. What a template makes is still empty then.
  static void MakeElement(const Value& content, Object* dataTemplate, FrameworkElement* owner,
                          const std::function<void(UIElement&)>& join);

protected:
  void PrepareForMeasure() override;
  void OnPropertyChanged(const PropertyChange& change) override;
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;

private:
  Ptr<UIElement> element;
  bool due = true;
};

/// Where content of a wanted size stands in a slot, by the control's content alignment.
Rect AlignedContent(const Control& control, const Rect& slot, Size wanted);

} // namespace Toolkit
