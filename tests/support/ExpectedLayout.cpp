#include "Expected.h"

#include "toolkit/controls/TextBlock.h"
#include "toolkit/text/DecodedText.h"

#include <cmath>

namespace TestSupport {

namespace {

/// To a tenth, so that it does not hang on the last bit.
std::string Number(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.7g", std::round(static_cast<double>(value) * 10) / 10 + 0.0);
  return text;
}

void Dump(const Toolkit::UIElement& element, const std::string& indent, std::string& text) {
  const std::string& type = element.GetType().Name();
  text += indent + type.substr(type.rfind('.') + 1);
  const auto* framework = dynamic_cast<const Toolkit::FrameworkElement*>(&element);
  if (framework && !framework->GetName().empty()) text += " " + std::string(framework->GetName());
  if (element.GetVisibility() != Toolkit::Visibility::Visible) {
    text += element.GetVisibility() == Toolkit::Visibility::Hidden ? " hidden\n" : " collapsed\n";
    return;
  }
  if (const auto* block = dynamic_cast<const Toolkit::TextBlock*>(&element)) {
    const std::string_view shown = block->GetText();
    const bool isLong = shown.size() > 40;
    text += " \"" + std::string(isLong ? shown.substr(0, Toolkit::CharacterStart(shown, 40)) : shown) +
            (isLong ? "...\"" : "\"");
  }
  const Toolkit::Rect box =
      element.TransformToAncestor(nullptr).MapBounds({0, 0, element.ActualWidth(), element.ActualHeight()});
  text += " " + Number(box.x) + "," + Number(box.y) + " " + Number(box.width) + "x" + Number(box.height) + "\n";
  for (size_t i = 0; i < element.VisualChildCount(); ++i)
    if (const Toolkit::UIElement* child = element.VisualChild(i)) Dump(*child, indent + "  ", text);
}

} // namespace

void ExpectLayout(const std::string& name, const Toolkit::UIElement& root, const std::source_location& test) {
  std::string text;
  Dump(root, "", text);
  ExpectText(name, text, test);
}

} // namespace TestSupport
