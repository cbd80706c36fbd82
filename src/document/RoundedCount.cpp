#include "document/RoundedCount.h"

#include <cstdio>

namespace Tesselor {

std::string RoundedCount(double count) {
  char text[40];
  std::snprintf(text, sizeof text, count < 1e9 ? "%.0f" : "%.1e", count);
  return text;
}

} // namespace Tesselor
