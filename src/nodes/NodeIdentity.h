#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// Which node of a file is meant, as "$NodeId" and the keys of the metadata have it: "<type>-<UUID>", or the type
/// alone. A type that holds a hyphen itself is cut there. The parts are views of texts that others own.
struct NodeIdentity {
  /// Splits at the first hyphen; without one, all of the text is the type.
  static NodeIdentity Of(std::string_view text);
  std::string Text() const;

  std::string_view type;
  /// Empty if there is none.
  std::string_view uuid;
};

} // namespace Tesselor
