#pragma once

#include "Picture.h"

#include <source_location>
#include <string>

namespace Toolkit {
class UIElement;
}

namespace TestSupport {

// Comparisons with what is kept beside a test, in tests/<folder>/expected. What a failure saw is left in the build's
// test-output. With TESSELOR_WRITE_EXPECTED=1 in the environment each comparison writes its file anew instead, texts
// and pictures alike; then `git diff` shows what changed.

void ExpectText(const std::string& name, const std::string& actual,
                const std::source_location& test = std::source_location::current());
/// Channels may differ by a little: another compiler may round the last bit another way.
void ExpectPicture(const std::string& name, const Picture& actual,
                   const std::source_location& test = std::source_location::current());
/// Compares a tree that is laid out: a line per element, indented by its depth, with its class, name, text and box.
void ExpectLayout(const std::string& name, const Toolkit::UIElement& root,
                  const std::source_location& test = std::source_location::current());

} // namespace TestSupport
