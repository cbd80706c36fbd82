#pragma once

#include <cjson/cJSON.h>

#include <random>
#include <span>
#include <string>
#include <vector>

namespace TestSupport {

/// Changes JSON trees at random, so that most of what a fuzzer tries is still JSON. The words are what it makes keys
/// and texts of, beside those that the trees hold.
class TreeMutator {
public:
  TreeMutator(unsigned seed, std::span<const char* const> words) : random(seed), words(words) {}

  /// Changes something below the root, by what `donor` holds or by itself. False if a tree is too large or too small.
  bool Change(cJSON* root, const cJSON* donor) {
    std::vector<cJSON*> items, donors;
    CollectItems(root, items);
    CollectItems(const_cast<cJSON*>(donor), donors);
    if (items.size() < 2 || items.size() > largestTree || donors.size() > largestTree) return false;
    // The root itself stays.
    cJSON* item = items[1 + Below(items.size() - 1)];
    cJSON* parent = items[0];
    for (cJSON* candidate : items)
      for (cJSON* child = candidate->child; child; child = child->next)
        if (child == item) parent = candidate;
    const cJSON* other = donors[Below(donors.size())];
    switch (Below(5)) {
    case 0: Replace(parent, item, Scalar()); break;
    case 1: Replace(parent, item, cJSON_Duplicate(other, true)); break;
    case 2: cJSON_Delete(cJSON_DetachItemViaPointer(parent, item)); break;
    case 3: Add(parent, cJSON_Duplicate(other, true), other->string ? other->string : "added"); break;
    default: Rename(parent, item, other->string ? other->string : Word()); break;
    }
    return true;
  }

private:
  size_t Below(size_t limit) { return random() % limit; }

  const char* Word() { return words[Below(words.size())]; }

  cJSON* Scalar() {
    static const double numbers[] = {0, -1, 1, 2.5, 1e-9, 1e15, -1e300, 2147483647, -2147483648.0, 1e5};
    switch (Below(5)) {
    case 0: return cJSON_CreateNull();
    case 1: return cJSON_CreateBool(Below(2) == 0);
    case 2: return cJSON_CreateNumber(numbers[Below(std::size(numbers))]);
    default: return cJSON_CreateString(Word());
    }
  }

  static void Add(cJSON* parent, cJSON* item, const char* key) {
    if (cJSON_IsObject(parent))
      cJSON_AddItemToObject(parent, key, item);
    else
      cJSON_AddItemToArray(parent, item);
  }

  static void Replace(cJSON* parent, cJSON* item, cJSON* replacement) {
    if (!replacement) return;
    if (item->string) {
      cJSON_free(replacement->string);
      replacement->string = item->string;
      item->string = nullptr;
    }
    cJSON_ReplaceItemViaPointer(parent, item, replacement);
  }

  static void Rename(cJSON* parent, cJSON* item, const char* key) {
    if (!cJSON_IsObject(parent)) return;
    const std::string name = key;
    cJSON_AddItemToObject(parent, name.c_str(), cJSON_DetachItemViaPointer(parent, item));
  }

  static void CollectItems(cJSON* item, std::vector<cJSON*>& items) {
    items.push_back(item);
    for (cJSON* child = item->child; child; child = child->next) CollectItems(child, items);
  }

  /// Trees as deep as the parser allows are left to inputs that are changed as bytes.
  static constexpr size_t largestTree = 5000;
  std::minstd_rand random;
  std::span<const char* const> words;
};

} // namespace TestSupport
