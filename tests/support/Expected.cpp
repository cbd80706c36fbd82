#include "Expected.h"

#include "TemporaryDirectory.h"
#include "toolkit/controls/TextBlock.h"
#include "toolkit/text/DecodedText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace TestSupport {

namespace {

namespace fs = std::filesystem;

/// What a channel may differ by.
constexpr int Tolerance = 3;

bool WritesExpected() { return std::getenv("TESSELOR_WRITE_EXPECTED") != nullptr; }

/// In the folder of the test's source.
fs::path ExpectedFile(const std::string& name, const std::source_location& test) {
  const fs::path directory =
      fs::path(TESSELOR_SOURCE_DIR) / "tests" / fs::path(test.file_name()).parent_path().filename() / "expected";
  if (WritesExpected()) fs::create_directories(directory);
  return directory / name;
}

bool AreAlike(Toolkit::Pixel a, Toolkit::Pixel b) {
  for (int shift = 0; shift < 32; shift += 8)
    if (std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)) > Tolerance) return false;
  return true;
}

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

void ExpectText(const std::string& name, const std::string& actual, const std::source_location& test) {
  const fs::path file = ExpectedFile(name + ".txt", test);
  if (WritesExpected()) {
    std::ofstream(file, std::ios::binary) << actual;
    return;
  }
  const std::string expected = TemporaryDirectory::Read(file);
  if (actual == expected) return;
  const std::string output = std::string(TESSELOR_TEST_OUTPUT_DIR) + "/" + name + ".actual.txt";
  std::ofstream(output, std::ios::binary) << actual;
  EXPECT_EQ(actual, expected) << output << " differs from " << file.string();
}

void ExpectPicture(const std::string& name, const Picture& actual, const std::source_location& test) {
  const fs::path file = ExpectedFile(name + ".png", test);
  if (WritesExpected()) {
    actual.WritePng(file.string());
    return;
  }
  Picture expected = Picture::ReadPng(file.string());
  if (expected.pixels.size() == actual.pixels.size())
    for (size_t i = 0; i < actual.pixels.size(); ++i)
      if (AreAlike(actual.pixels[i], expected.pixels[i])) expected.pixels[i] = actual.pixels[i];
  ExpectEqual(actual, expected, name);
}

void ExpectLayout(const std::string& name, const Toolkit::UIElement& root, const std::source_location& test) {
  std::string text;
  Dump(root, "", text);
  ExpectText(name, text, test);
}

} // namespace TestSupport
