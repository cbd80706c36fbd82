#include "toolkit/controls/ComboBox.h"

#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/ComboBoxList.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/controls/TextElement.h"
#include "toolkit/markup/ValueConversion.h"
#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"
#include "toolkit/visual/Input.h"

#include <algorithm>
#include <cmath>

namespace Toolkit {

namespace {
constexpr float ArrowWidth = 24;
/// Items that PageUp and PageDown pass in a closed box.
constexpr int32_t ClosedPage = 10;
/// Milliseconds after which a typed letter begins a new search.
constexpr double TypingPause = 1000;

bool IsChordDown() {
  for (const Key key : {Key::LeftCtrl, Key::RightCtrl, Key::LeftAlt, Key::RightAlt, Key::LeftWin, Key::RightWin})
    if (Keyboard::IsKeyDown(key)) return true;
  return false;
}

/// Compares the letters of ASCII without their case and all others as they are.
bool StartsWith(std::string_view text, std::string_view start) {
  auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(), [&](char a, char b) { return lower(a) == lower(b); });
}
} // namespace

TOOLKIT_TYPE_IMPL(ComboBox, Selector, "ComboBox")
void ComboBox::Describe(TypeBuilder<ComboBox>& type) {
  using P = DependencyProperty;
  IsDropDownOpenProperty = type.Property<bool>("IsDropDownOpen", false, P::BindsTwoWay | P::AffectsRender);
  MaxDropDownHeightProperty = type.Property<float>("MaxDropDownHeight", 320);
  ArrowBrushProperty = type.Property<Brush*>("ArrowBrush", nullptr, P::AffectsRender);
}

ComboBox::ComboBox() = default;
ComboBox::~ComboBox() {
  if (list) list->ReleaseOwner();
}

SharedString ComboBox::TextOf(Object* item) const {
  if (!item) return {};
  const std::string_view path = GetString(DisplayMemberPathProperty);
  const ReflectedMember* member = path.empty() ? nullptr : item->GetType().FindMember(Symbol(path));
  return member ? ValueConversion::ToText(member->get(*item)) : SharedString();
}

ComboBoxList* ComboBox::List() const { return popup ? list.Get() : nullptr; }

Rect ComboBox::CaretRectangle() const { return {0, 0, 1, ActualHeight()}; }

void ComboBox::Choose(int32_t index) {
  Ptr<ComboBox> alive(this);
  SetIsDropDownOpen(false);
  if (index >= 0 && static_cast<size_t>(index) < ItemCount()) SetSelectedIndex(index);
}

void ComboBox::OpenList() {
  PopupLayer* layer = IsAttached() && IsEnabled() ? PopupLayer::Of(*this) : nullptr;
  if (!layer || popup) return;
  if (!list) list = MakePtr<ComboBoxList>(*this);
  list->Begin();
  popup = MakePtr<Popup>(*this, *list, PopupKind::Light, PopupPlacement::Below);
  popup->minWidth = ActualWidth();
  popup->keyPressed = [this](const KeyEventArgs& args) { return OnListKey(args); };
  popup->closed = [this] {
    Ptr<ComboBox> alive(this);
    popup.Reset();
    SetIsDropDownOpen(false);
  };
  layer->Open(*popup);
}

void ComboBox::OnPropertyChanged(const PropertyChange& change) {
  Selector::OnPropertyChanged(change);
  if (&change.property == SelectedItemProperty) InvalidateMeasure();
  if (&change.property == DisplayMemberPathProperty && list) list->InvalidateMeasure();
  if (&change.property != IsDropDownOpenProperty) return;
  if (IsDropDownOpen()) {
    OpenList();
  } else if (const Ptr<Popup> open = popup) {
    open->Close();
  }
}

void ComboBox::OnItemsChanged(const CollectionChange& change) {
  Selector::OnItemsChanged(change);
  if (popup) list->OnItemsChanged();
}

Size ComboBox::MeasureOverride(Size) {
  const Thickness chrome = Chrome();
  const TextStyle style = TextElement::StyleOf(*this);
  const SharedString text = TextOf(GetSelectedItem());
  const TextSize size = TextCache::Instance().MeasureText(text.IsEmpty() ? std::string_view(" ") : text.View(), style);
  return {size.width + chrome.Horizontal() + ArrowWidth, size.height + chrome.Vertical()};
}

Size ComboBox::ArrangeOverride(Size finalSize) { return finalSize; }

void ComboBox::OnRender(Painter& painter) {
  DrawChrome(painter, {0, 0, ActualWidth(), ActualHeight()});
  const Thickness chrome = Chrome();
  const float middle = std::round(ActualHeight() * 0.5f), right = ActualWidth() - chrome.right;
  if (const SharedString text = TextOf(GetSelectedItem()); !text.IsEmpty()) {
    TextLayoutOptions options;
    options.maxWidth = std::max(0.0f, right - ArrowWidth + 6 - chrome.left);
    options.trimming = TextTrimming::CharacterEllipsis;
    const auto layout = TextCache::Instance().Layout(text.View(), TextElement::StyleOf(*this), options);
    painter.DrawText(layout, {chrome.left, std::round((ActualHeight() - layout->Size().height) * 0.5f)},
                     Get<Brush*>(TextElement::ForegroundProperty));
  }
  PathOutline arrow;
  arrow.MoveTo({right - 10, middle - 2});
  arrow.LineTo({right - 6, middle + 2});
  arrow.LineTo({right - 2, middle - 2});
  painter.DrawPath(std::move(arrow), nullptr, Get<Brush*>(ArrowBrushProperty), 1.5f);
}

bool ComboBox::IsTyping() const { return !typed.empty() && Dispatcher::Current().Now() - typedAt < TypingPause; }

void ComboBox::FindTyped(std::string_view text) {
  if (!IsTyping()) typed.clear();
  if (typed.empty() && text == " ") return;
  // The same letter again goes to the next item with it.
  const bool again = typed == text;
  if (!again) typed += text;
  typedAt = Dispatcher::Current().Now();
  const auto count = static_cast<int32_t>(ItemCount());
  const int32_t at = popup ? list->Current() : GetSelectedIndex();
  const int32_t first = typed.size() == text.size() ? at + 1 : std::max(0, at);
  for (int32_t i = 0; i < count; ++i) {
    const int32_t index = (first + i) % count;
    if (!StartsWith(TextOf(ItemAt(static_cast<size_t>(index))).View(), typed)) continue;
    if (popup)
      list->SetCurrent(index);
    else
      SetSelectedIndex(index);
    return;
  }
}

bool ComboBox::OnListKey(const KeyEventArgs& args) {
  const auto count = static_cast<int32_t>(ItemCount());
  const int32_t at = list->Current();
  switch (args.key) {
  case Key::Down: list->SetCurrent(std::min(at + 1, count - 1)); return true;
  case Key::Up: list->SetCurrent(std::max(at - 1, 0)); return true;
  case Key::PageDown: list->SetCurrent(std::min(std::max(at, 0) + list->RowsOfPage(), count - 1)); return true;
  case Key::PageUp: list->SetCurrent(std::max(at - list->RowsOfPage(), 0)); return true;
  case Key::Return: Choose(at); return true;
  case Key::Escape: Choose(-1); return true;
  case Key::Tab: Choose(-1); return false;
  default: break;
  }
  // The list of another element's typing leaves these to that element.
  if (!IsFocused()) return false;
  switch (args.key) {
  case Key::Home: list->SetCurrent(0); return true;
  case Key::End: list->SetCurrent(count - 1); return true;
  case Key::Space:
    if (!IsTyping()) Choose(at);
    return true;
  default: return false;
  }
}

void ComboBox::OnClosedKey(const KeyEventArgs& args) {
  const auto count = static_cast<int32_t>(ItemCount());
  const int32_t at = GetSelectedIndex();
  int32_t wanted = at;
  switch (args.key) {
  case Key::Down: wanted = at + 1; break;
  case Key::Up: wanted = std::max(at - 1, std::min(at, 0)); break;
  case Key::PageDown: wanted = at + ClosedPage; break;
  case Key::PageUp: wanted = std::max(at - ClosedPage, std::min(at, 0)); break;
  case Key::Home: wanted = 0; break;
  case Key::End: wanted = count - 1; break;
  case Key::Return: SetIsDropDownOpen(!IsDropDownOpen()); break;
  case Key::Space:
    if (!IsTyping()) SetIsDropDownOpen(!IsDropDownOpen());
    break;
  case Key::Escape:
    // Nothing to close, so the key goes on; a list without a window has none either.
    if (!IsDropDownOpen()) return;
    SetIsDropDownOpen(false);
    break;
  default:
    // Letters come as text afterwards, and are no commands of the window here.
    if (args.key >= Key::D0 && args.key <= Key::Z && !IsChordDown()) args.handled = true;
    return;
  }
  args.handled = true;
  if (count > 0) SetSelectedIndex(std::min(wanted, count - 1));
}

void ComboBox::OnRoutedEvent(const RoutedEventArgs& args) {
  Selector::OnRoutedEvent(args);
  if (!IsEnabled()) return;
  if (args.event == &MouseLeftButtonDownEvent) {
    Ptr<ComboBox> alive(this);
    Focus();
    SetIsDropDownOpen(!IsDropDownOpen());
    args.handled = true;
  } else if (args.event == &KeyDownEvent && IsFocused()) {
    OnClosedKey(static_cast<const KeyEventArgs&>(args));
  } else if (args.event == &TextInputEvent && IsFocused()) {
    FindTyped(static_cast<const TextCompositionEventArgs&>(args).text);
    args.handled = true;
  }
}

} // namespace Toolkit
