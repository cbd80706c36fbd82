#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Toolkit {

/// The parts of an attribute value in braces: "{Name positional, key=value, key={Nested ...}}".
struct MarkupExtension {
  struct Argument {
    /// Empty for a positional argument.
    std::string name;
    /// As written, nested braces included, quotes removed.
    std::string value;
  };
  std::string name;
  std::vector<Argument> arguments;

  /// True if an attribute value is an extension and no plain text; "{}" in front escapes a text.
  static bool IsExtension(std::string_view text) { return text.size() > 2 && text[0] == '{' && text[1] != '}'; }
  /// Reads `text`, outer braces included. False, with `error` set, if braces do not match.
  bool Parse(std::string_view text, std::string& error);
};

} // namespace Toolkit
