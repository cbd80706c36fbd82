#include "toolkit/controls/TextBlock.h"

#include "toolkit/render/Brush.h"
#include "toolkit/render/Painter.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(TextBlock, FrameworkElement, "TextBlock")
void TextBlock::Describe(TypeBuilder<TextBlock>& type) {
  using P = DependencyProperty;
  TextProperty = type.Property<SharedString>("Text", SharedString(), P::AffectsMeasure | P::AffectsRender);
  TextWrappingProperty = type.Property<TextWrapping>("TextWrapping", TextWrapping::NoWrap, P::AffectsMeasure);
  TextTrimmingProperty = type.Property<TextTrimming>("TextTrimming", TextTrimming::None, P::AffectsMeasure);
  TextAlignmentProperty = type.Property<TextAlignment>("TextAlignment", TextAlignment::Left, P::AffectsRender);
  PaddingProperty = type.Property<Thickness>("Padding", Thickness(), P::AffectsMeasure);
  BackgroundProperty = type.Property<Brush*>("Background", nullptr, P::AffectsRender);
  TextElement::DeclareOn(type);
  type.Content("Text");
}

Size TextBlock::MeasureOverride(Size available) {
  const Thickness padding = Get<Thickness>(PaddingProperty);
  const TextStyle style = TextElement::StyleOf(*this);
  const auto wrapping = Get<TextWrapping>(TextWrappingProperty);
  const auto trimming = Get<TextTrimming>(TextTrimmingProperty);
  TextSize size;
  if (wrapping == TextWrapping::NoWrap && trimming == TextTrimming::None) {
    size = TextCache::Instance().MeasureText(GetText(), style);
  } else {
    TextLayoutOptions options;
    options.maxWidth = std::max(0.0f, available.width - padding.Horizontal());
    options.wrapping = wrapping;
    options.trimming = trimming;
    size = TextCache::Instance().MeasureText(GetText(), style, options);
  }
  return {size.width + padding.Horizontal(), size.height + padding.Vertical()};
}

void TextBlock::OnRender(Painter& painter) {
  painter.DrawRectangle({0, 0, ActualWidth(), ActualHeight()}, Get<Brush*>(BackgroundProperty));
  if (GetText().empty()) return;
  const Thickness padding = Get<Thickness>(PaddingProperty);
  TextLayoutOptions options;
  options.wrapping = Get<TextWrapping>(TextWrappingProperty);
  options.trimming = Get<TextTrimming>(TextTrimmingProperty);
  options.alignment = Get<TextAlignment>(TextAlignmentProperty);
  // A text that is laid out without a width shares its layout with all that are.
  if (options != TextLayoutOptions()) options.maxWidth = std::max(0.0f, ActualWidth() - padding.Horizontal());
  painter.DrawText(TextCache::Instance().Layout(GetText(), TextElement::StyleOf(*this), options),
                   {padding.left, padding.top}, Get<Brush*>(TextElement::ForegroundProperty));
}

} // namespace Toolkit
