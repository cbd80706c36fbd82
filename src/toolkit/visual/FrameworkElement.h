#pragma once

#include "toolkit/visual/UIElement.h"

#include <string_view>

namespace Toolkit {

class Behavior;
struct DoubleAnimation;
class ConditionProbe;
class NameScope;
class Style;

enum class HorizontalAlignment : uint8_t { Left, Center, Right, Stretch };
enum class VerticalAlignment : uint8_t { Top, Center, Bottom, Stretch };
const EnumDescription& DescribeEnum(HorizontalAlignment);
const EnumDescription& DescribeEnum(VerticalAlignment);

/// An element as documents know it: sizes and margins, a name, a style, resources, tool tip and behaviours.
class FrameworkElement : public UIElement {
  TOOLKIT_TYPE(FrameworkElement)
public:
  static inline const DependencyProperty* WidthProperty = nullptr;
  static inline const DependencyProperty* HeightProperty = nullptr;
  static inline const DependencyProperty* MinWidthProperty = nullptr;
  static inline const DependencyProperty* MinHeightProperty = nullptr;
  static inline const DependencyProperty* MaxWidthProperty = nullptr;
  static inline const DependencyProperty* MaxHeightProperty = nullptr;
  static inline const DependencyProperty* MarginProperty = nullptr;
  static inline const DependencyProperty* HorizontalAlignmentProperty = nullptr;
  static inline const DependencyProperty* VerticalAlignmentProperty = nullptr;
  static inline const DependencyProperty* StyleProperty = nullptr;
  static inline const DependencyProperty* NameProperty = nullptr;
  static inline const DependencyProperty* TagProperty = nullptr;
  static inline const DependencyProperty* ToolTipProperty = nullptr;
  static inline const DependencyProperty* ContextMenuProperty = nullptr;
  static inline const DependencyProperty* CursorProperty = nullptr;
  static inline const DependencyProperty* DataContextProperty = nullptr;

  /// Direct: the element is below a root and has its size.
  static const RoutedEvent LoadedEvent, UnloadedEvent;

  ~FrameworkElement() override;

  float GetWidth() const { return Get<float>(WidthProperty); }
  void SetWidth(float value) { SetValue(WidthProperty, value); }
  float GetHeight() const { return Get<float>(HeightProperty); }
  void SetHeight(float value) { SetValue(HeightProperty, value); }
  Thickness GetMargin() const { return Get<Thickness>(MarginProperty); }
  void SetMargin(const Thickness& value) { SetValue(MarginProperty, value); }
  Object* GetDataContext() const { return GetValue(DataContextProperty).AsObject(); }
  void SetDataContext(Object* value);
  std::string_view GetName() const { return GetString(NameProperty); }
  void SetName(std::string_view name) { SetValue(NameProperty, name); }

  /// The element of that name in the nearest name scope at or above this element, or null.
  FrameworkElement* FindName(std::string_view name) const;
  template <class T> T* FindName(std::string_view name) const { return DynamicCast<T>(FindNamed(name)); }
  Object* FindNamed(std::string_view name) const;
  /// Makes this element the root of a name scope.
  void SetNameScope(std::unique_ptr<NameScope> scope);
  const NameScope* GetNameScope() const;

  UIElement* UIParent() const override { return VisualParent() ? VisualParent() : logicalParent; }
  /// The element that holds this one as content, header or item. Not owned.
  void SetLogicalParent(UIElement* parent);
  UIElement* LogicalParent() const { return logicalParent; }
  /// The control whose template made this element; null for other elements.
  FrameworkElement* TemplatedParent() const { return templatedParent; }
  void SetTemplatedParent(FrameworkElement* parent) { templatedParent = parent; }

  void AddBehavior(Ptr<Behavior> behavior);

  /// Re-evaluates the style's triggers; called by their conditions.
  void UpdateTriggers();

protected:
  FrameworkElement();

  /// Margin excluded, sizes as constrained by `Width`, `MinWidth` and so on.
  virtual Size MeasureOverride(Size available) { return {}; }
  /// Returns the size that the element takes.
  virtual Size ArrangeOverride(Size finalSize) { return finalSize; }
  /// Before a measure: templates and containers are made here.
  virtual void PrepareForMeasure() {}

  Size MeasureCore(Size available) final;
  void ArrangeCore(const Rect& finalRect) final;
  void OnPropertyChanged(const PropertyChange& change) override;
  void RefreshInheritanceOfChildren(uint16_t changedBits) override;
  void OnAttached() override;
  void OnDetached() override;

public:
  /// The theme's style for this class applies from now on. The first measure does it for elements made by code.
  void ApplyThemeStyle();

private:
  friend class LayoutQueue;
  struct Extras;
  Extras& GetExtras();
  void ApplyStyles();
  void ReleaseProbes();
  void SetRunning(const DoubleAnimation& animation, bool runs);
  void EndAnimations();

  UIElement* logicalParent = nullptr;
  FrameworkElement* templatedParent = nullptr;
  Toolkit::Style* themeStyle = nullptr;
  std::unique_ptr<Extras> extras;
  bool themeApplied = false;
  bool isOwnContext = false;
  /// The style or the theme's style has triggers.
  bool watchesTriggers = false;
};

} // namespace Toolkit
