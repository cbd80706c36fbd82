#pragma once

#include <string>
#include <string_view>

namespace Tesselor {

/// What the user is told about a step: "Moved 3 nodes" when it was made, "move of 3 nodes" when it is undone or redone.
struct StepDescription {
  std::string verb;
  std::string noun;
  std::string object;

  std::string Done() const { return verb + " " + object; }
  std::string Name() const { return noun + " " + object; }
};

/// A text of the user's in quotation marks, as one line and cut where it is long.
std::string QuotedForUser(std::string_view text);

} // namespace Tesselor
