#include "toolkit/markup/MarkupExtension.h"

namespace Toolkit {

namespace {
std::string_view Trim(std::string_view text) {
  const size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(" \t\r\n") - start + 1);
}
} // namespace

bool MarkupExtension::Parse(std::string_view text, std::string& error) {
  text = Trim(text);
  if (text.size() < 2 || text.front() != '{' || text.back() != '}') {
    error = "'" + std::string(text) + "' is no markup extension";
    return false;
  }
  std::string_view inner = Trim(text.substr(1, text.size() - 2));
  const size_t nameEnd = std::min(inner.find_first_of(" \t\r\n"), inner.size());
  name = std::string(inner.substr(0, nameEnd));
  std::string_view rest = Trim(inner.substr(nameEnd));
  while (!rest.empty()) {
    // The argument ends at the next comma outside braces and quotes.
    int depth = 0;
    bool quoted = false;
    size_t end = 0, equals = std::string_view::npos;
    for (; end < rest.size(); ++end) {
      const char c = rest[end];
      if (c == '\'') quoted = !quoted;
      if (quoted) continue;
      if (c == '{') ++depth;
      if (c == '}') --depth;
      if (c == '=' && depth == 0 && equals == std::string_view::npos) equals = end;
      if (c == ',' && depth == 0) break;
    }
    if (depth != 0 || quoted) {
      error = "braces or quotes do not match in '" + std::string(text) + "'";
      return false;
    }
    const std::string_view whole = rest.substr(0, end);
    Argument argument;
    std::string_view value = whole;
    if (equals != std::string_view::npos) {
      argument.name = std::string(Trim(whole.substr(0, equals)));
      value = whole.substr(equals + 1);
    }
    value = Trim(value);
    if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'') value = value.substr(1, value.size() - 2);
    argument.value = std::string(value);
    arguments.push_back(std::move(argument));
    rest = end < rest.size() ? Trim(rest.substr(end + 1)) : std::string_view();
  }
  return true;
}

} // namespace Toolkit
