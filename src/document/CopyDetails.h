#pragma once

#include "nodes/ContentNode.h"
#include "platform/JsonFile.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace Tesselor {

/// What a copy holds beside the clipboard's form of its nodes, so that a paste gives back all that was copied. It
/// stands in one further member of the objects that need it, "$Copied"; a reader that doesn't know it passes over it.
///
///   "$x", "$y"      the exact place, if the object tells none or only a truncated one
///   "$Title"        of a node whose form has no title
///   "mapKey"        the key that the node has in a map, where its fields don't tell it
///   "label"         of a node that stands in several objects, which are all the same node, or that others name
///   "connections"   of output pins whose connections don't follow from what stands in what, those of each in order:
///                   { "<pin>": ["<label>:<input pin>", ...] }
///   "hiddenPins"    the output pins that are not shown, an array
///   "links"         pass-through nodes, which leave no trace in the form: an array of objects like this one, with a
///                   "$Comment" if there is one
///
/// One object of this class serves one copy: it is told of each object as it is written, and adds the members at last.
class CopyDetails {
public:
  /// `nodes` is how many are selected; all that are written outlive the copy.
  explicit CopyDetails(size_t nodes) : repeats(nodes + SpareRepeats) {}

  /// An object for the node is being written; it stays where it is. False if it is one of too many for the same node:
  /// then it shall hold nothing of what is below, or nodes with several parents, below each other, would double the
  /// copy each time.
  bool Begin(ContentNode& node, cJSON& object);
  bool HasObject(const ContentNode& node) const { return indices.contains(&node); }
  /// Whether an object has been written in which pass-through nodes may stand.
  bool HasRoomForLinks() const;

  /// Adds the members. `links` are the pass-through nodes that have no object; then there is room for them. `others` is
  /// how many things the copy holds besides the nodes.
  void AddMembers(const std::vector<ContentNode*>& links, size_t others);

  /// How many objects, and how many ways through pass-through nodes, may come again.
  size_t repeats;

private:
  static constexpr size_t SpareRepeats = 1000;
  struct Entry {
    ContentNode* node;
    /// Empty for a link that has none.
    std::vector<cJSON*> objects;
    /// The member, null as long as it isn't needed.
    cJSON* copied = nullptr;
    std::string label;
  };

  Entry* Find(const ContentNode& node);
  cJSON* MemberOf(Entry& entry);
  const std::string& LabelOf(Entry& entry);
  void AddLinks(const std::vector<ContentNode*>& links);
  void AddPlace(Entry& entry);
  void AddMapKey(Entry& entry);
  void AddHiddenPins(Entry& entry);
  void AddConnections(Entry& entry);
  void AddList(Entry& entry, const NodePinData& pin, const std::vector<NodePinData*>& targets);
  void AddLabels(Entry& entry);
  bool FollowFromText(const std::vector<NodePinData*>& targets, const NodePinData& pin) const;

  /// In the order of their first objects.
  std::vector<Entry> entries;
  std::unordered_map<const ContentNode*, size_t> indices;
  size_t labels = 0;
};

} // namespace Tesselor
