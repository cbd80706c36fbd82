#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

struct cJSON;

namespace Tesselor {

/// An element of an array of nodes, or one behind a pass-through node that stands in the array.
struct ArrayElement {
  const cJSON* value;
  size_t index;
  /// The path from the element of that index on, if the value stands behind it.
  std::string below;
  /// The pass-through node itself, which is written elsewhere.
  bool isLink = false;
  /// A member of a pass-through node for which that has no place: it is written as an element without its key.
  bool losesKey = false;
};

/// Whether an entry of a tree is a pass-through node, which leaves no trace when it is written.
bool IsLinkElement(const cJSON* value);
/// Such a node, and behind it what stands there, through others of its kind.
std::vector<ArrayElement> ElementsBehind(const cJSON* link);
/// The elements of an array, with what stands behind links among them.
std::vector<ArrayElement> ElementsOf(const cJSON* array);
/// The elements of an array in which no link is one.
std::vector<ArrayElement> PlainElementsOf(const cJSON* array);

/// Whether two objects may be one node: of their plain values with equal keys, as many are equal as not.
bool Resembles(const cJSON* value, const cJSON* written);

/// Finds out which elements of a written array are those of a file's: by their UUIDs, then by where the written ones
/// are known to come from, and the others by their order. Takes linear time.
class ArrayMatch {
public:
  using Test = std::function<bool(const cJSON*)>;
  struct Options {
    /// An element for which this holds has its counterpart elsewhere if none in the array has its UUID.
    Test isElsewhere;
    /// Elements of the written array for which this holds are nobody's counterpart.
    Test isTaken;
    /// For each written element the path of the one that it was read from, such as `[1].Children[0]`; empty if nothing
    /// is known.
    std::vector<std::string> origins;
  };
  ArrayMatch(std::vector<ArrayElement> elements, const cJSON* written, const Options& options);

  struct Pair {
    ArrayElement element;
    /// Null if there is none, as of a link.
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
  struct Written {
    const cJSON* value;
    bool isFree;
  };
  void Take(size_t pair, size_t place);
  /// Returns the pairs that have none.
  std::vector<size_t> MatchKnown(const Options& options);
  void MatchByOrder(const std::vector<size_t>& others, bool areOriginsKnown);

  std::vector<Written> targets;
  /// For each pair the place of its counterpart, if that is known and not only likely.
  std::vector<size_t> places;
};

} // namespace Tesselor
