#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Tesselor {

/// A hash table with text keys that is walked in the order in which its keys were first put in, so that whatever
/// depends on that order is the same in every run. Entries keep their address as long as the table lives, also when
/// it is moved. Keys are compared exactly.
template <class V> class OrderedTable {
public:
  using Entry = std::pair<const std::string, V>;

  OrderedTable() = default;
  OrderedTable(OrderedTable&&) noexcept = default;
  OrderedTable& operator=(OrderedTable&&) noexcept = default;
  // The index refers to the entries' own keys, which a copy would not have.
  OrderedTable(const OrderedTable&) = delete;
  OrderedTable& operator=(const OrderedTable&) = delete;

  size_t size() const { return entries.size(); }
  bool empty() const { return entries.empty(); }
  auto begin() { return entries.begin(); }
  auto end() { return entries.end(); }
  auto begin() const { return entries.begin(); }
  auto end() const { return entries.end(); }

  bool Contains(std::string_view key) const { return index.contains(key); }

  /// Null if there is no such key.
  V* Find(std::string_view key) {
    const auto found = index.find(key);
    return found == index.end() ? nullptr : &found->second->second;
  }
  const V* Find(std::string_view key) const {
    const auto found = index.find(key);
    return found == index.end() ? nullptr : &found->second->second;
  }

  /// Replaces the value of a key that is there, which keeps its place.
  V& Assign(std::string_view key, V value) {
    if (V* present = Find(key)) return *present = std::move(value);
    return Append(key, std::move(value));
  }

  /// Leaves the value of a key that is there as it is. The flag tells whether the key is new.
  std::pair<V&, bool> Insert(std::string_view key, V value) {
    if (V* present = Find(key)) return {*present, false};
    return {Append(key, std::move(value)), true};
  }

  /// The value of the key, made anew if it isn't there.
  V& operator[](std::string_view key) {
    if (V* present = Find(key)) return *present;
    return Append(key, V());
  }

  void Clear() {
    index.clear();
    entries.clear();
  }

private:
  V& Append(std::string_view key, V value) {
    Entry& entry = entries.emplace_back(std::string(key), std::move(value));
    index.emplace(entry.first, &entry);
    return entry.second;
  }

  std::deque<Entry> entries;
  std::unordered_map<std::string_view, Entry*> index;
};

} // namespace Tesselor
