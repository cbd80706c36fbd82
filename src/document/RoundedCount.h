#pragma once

#include <string>

namespace Tesselor {

/// A count that may be too large for any integer: "12345", or "1.2e+30".
std::string RoundedCount(double count);

} // namespace Tesselor
