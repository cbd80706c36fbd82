#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

struct cJSON;

namespace Tesselor {

/// An element of an array, or one behind a pass-through node that stands in the array.
struct ArrayElement {
  const cJSON* value;
  size_t index;
  /// The path from the element of that index on, if the value stands behind it.
  std::string below;
};

/// Whether an entry of a tree is a pass-through node, which leaves no trace when it is written.
bool IsLinkElement(const cJSON* value);
/// What stands behind such a node, through others of its kind.
std::vector<ArrayElement> ElementsBehind(const cJSON* link);

/// Whether two objects may be one node: of their plain values with equal keys, as many are equal as not.
bool Resembles(const cJSON* value, const cJSON* written);

/// Finds out which elements of a written array are those of a file's array: by their UUIDs, and the others by their
/// order. Takes linear time.
class ArrayMatch {
public:
  using Test = std::function<bool(const cJSON*)>;
  /// An element for which `isElsewhere` holds has its counterpart outside of `written` if none there has its UUID;
  /// elements of `written` for which `isTaken` holds are nobody's counterpart.
  ArrayMatch(const cJSON* array, const cJSON* written, const Test& isElsewhere, const Test& isTaken = {});

  struct Pair {
    ArrayElement element;
    /// Null if there is none.
    const cJSON* counterpart = nullptr;
    /// An earlier element of the array is the same node.
    bool isRepeated = false;
  };
  /// In the order of the file.
  std::vector<Pair> pairs;
  /// The written array is one of plain values, and longer.
  bool hasMoreScalars = false;

  /// The file's indices in the order in which they are written; empty if they are in their own.
  std::string OrderOfWritten() const;

private:
  /// For each pair the place of its counterpart, if a UUID told it.
  std::vector<size_t> places;
};

} // namespace Tesselor
