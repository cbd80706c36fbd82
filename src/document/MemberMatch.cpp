#include "document/MemberMatch.h"

#include "platform/AsciiCase.h"

#include <cjson/cJSON.h>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace Tesselor {

namespace {

std::string_view KeyOf(const cJSON* member) { return member->string ? member->string : ""; }

/// Members by key, each of which is handed out once.
class Members {
public:
  void Add(std::string key, const cJSON* member) { byKey[std::move(key)].members.push_back(member); }
  const cJSON* Take(const std::string& key, std::unordered_set<const cJSON*>& taken) {
    const auto found = byKey.find(key);
    if (found == byKey.end()) return nullptr;
    for (Entry& entry = found->second; entry.next < entry.members.size();)
      if (const cJSON* member = entry.members[entry.next++]; taken.insert(member).second) return member;
    return nullptr;
  }

private:
  struct Entry {
    std::vector<const cJSON*> members;
    size_t next = 0;
  };
  std::unordered_map<std::string, Entry> byKey;
};

} // namespace

std::vector<MemberMatch> MatchMembers(const cJSON& object, const cJSON& other) {
  std::vector<MemberMatch> matches;
  std::unordered_set<std::string_view> seen;
  const cJSON* member = nullptr;
  cJSON_ArrayForEach(member, &object) matches.push_back({member, nullptr, !seen.insert(KeyOf(member)).second});

  Members exact, anyCase;
  cJSON_ArrayForEach(member, &other) {
    exact.Add(std::string(KeyOf(member)), member);
    anyCase.Add(LowerCase(KeyOf(member)), member);
  }
  std::unordered_set<const cJSON*> taken;
  for (MemberMatch& match : matches) match.counterpart = exact.Take(std::string(KeyOf(match.member)), taken);
  for (MemberMatch& match : matches)
    if (!match.counterpart) match.counterpart = anyCase.Take(LowerCase(KeyOf(match.member)), taken);
  return matches;
}

} // namespace Tesselor
