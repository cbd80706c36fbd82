#include "nodes/NodeIdentity.h"

namespace Tesselor {

NodeIdentity NodeIdentity::Of(std::string_view text) {
  const size_t hyphen = text.find('-');
  if (hyphen == std::string_view::npos) return {text, {}};
  return {text.substr(0, hyphen), text.substr(hyphen + 1)};
}

std::string NodeIdentity::Text() const {
  std::string text(type);
  if (!uuid.empty()) text.append("-").append(uuid);
  return text;
}

} // namespace Tesselor
