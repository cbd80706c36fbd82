#include "platform/Uuid.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <uuid.h>

namespace Tesselor {

std::string GenerateUuid() {
  static std::mt19937_64 generator{std::random_device{}()};
  std::uniform_int_distribution<uint64_t> numbers(0, std::numeric_limits<uint64_t>::max());
  const uint64_t a = numbers(generator);
  const uint64_t b = numbers(generator);

  char text[37];
  std::snprintf(text, sizeof text, "%08" PRIx64 "-%04" PRIx64 "-%04" PRIx64 "-%04" PRIx64 "-%012" PRIx64, a >> 32,
                (a >> 16) & 0xffff, (a & 0x0fff) | 0x4000, ((b >> 48) & 0x3fff) | 0x8000, b & 0xffffffffffff);
  return text;
}

std::string GenerateSystemUuid() {
  uuid_t bytes;
  uuid_generate_random(bytes);
  char text[37];
  uuid_unparse_lower(bytes, text);
  return text;
}

} // namespace Tesselor
