#pragma once

#include <vector>

struct cJSON;

namespace Tesselor {

/// A member of one object, and the member of another that has its key; null if there is none left for it.
struct MemberMatch {
  const cJSON* member;
  const cJSON* counterpart;
  /// An earlier member of the same object has the key.
  bool isRepeated = false;
};

/// Finds the counterparts of all members, in their order: those with the very key first, then those that differ in the
/// case of ASCII letters. Of members with one key the first is paired with the first. Takes linear time.
std::vector<MemberMatch> MatchMembers(const cJSON& object, const cJSON& other);

} // namespace Tesselor
