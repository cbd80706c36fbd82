#include "toolkit/controls/ComboBox.h"

#include "toolkit/controls/TextElement.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/visual/Input.h"

#include <algorithm>

namespace Toolkit {

namespace {
constexpr float ArrowWidth = 24;
}

TOOLKIT_TYPE_IMPL(ComboBox, Selector, "ComboBox")
void ComboBox::Describe(TypeBuilder<ComboBox>& type) {
  using P = DependencyProperty;
  IsDropDownOpenProperty = type.Property<bool>("IsDropDownOpen", false, P::BindsTwoWay | P::AffectsRender);
  MaxDropDownHeightProperty = type.Property<float>("MaxDropDownHeight", 320);
}

SharedString ComboBox::SelectedText() const {
  Object* item = GetSelectedItem();
  if (!item) return {};
  const std::string_view path = GetString(DisplayMemberPathProperty);
  if (const ReflectedMember* member = item->GetType().FindMember(Symbol(path)))
    return ValueConversion::ToText(member->get(*item));
  return {};
}

void ComboBox::OnPropertyChanged(const PropertyChange& change) {
  Selector::OnPropertyChanged(change);
  if (&change.property == SelectedItemProperty) InvalidateMeasure();
}

Size ComboBox::MeasureOverride(Size) {
  const Thickness chrome = Chrome();
  const TextStyle style = TextElement::StyleOf(*this);
  const SharedString text = SelectedText();
  const TextSize size = TextCache::Instance().MeasureText(text.IsEmpty() ? std::string_view(" ") : text.View(), style);
  return {size.width + chrome.Horizontal() + ArrowWidth, size.height + chrome.Vertical()};
}

Size ComboBox::ArrangeOverride(Size finalSize) { return finalSize; }

void ComboBox::OnRoutedEvent(const RoutedEventArgs& args) {
  Selector::OnRoutedEvent(args);
  if (!IsEnabled()) return;
  if (args.event == &MouseLeftButtonDownEvent) {
    Focus();
    SetIsDropDownOpen(!IsDropDownOpen());
    args.handled = true;
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    const int32_t count = static_cast<int32_t>(ItemCount());
    switch (static_cast<const KeyEventArgs&>(args).key) {
    case Key::Down: SetSelectedIndex(std::min(GetSelectedIndex() + 1, count - 1)); break;
    case Key::Up:
      if (GetSelectedIndex() > 0) SetSelectedIndex(GetSelectedIndex() - 1);
      break;
    case Key::Home:
      if (count > 0) SetSelectedIndex(0);
      break;
    case Key::End: SetSelectedIndex(count - 1); break;
    case Key::Escape: SetIsDropDownOpen(false); break;
    case Key::Return:
    case Key::Space: SetIsDropDownOpen(!IsDropDownOpen()); break;
    default: return;
    }
    args.handled = true;
  }
}

} // namespace Toolkit
