#pragma once

#include "nodes/BaseNode.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Tesselor {

class ContentNode;
struct NodeBlueprint;

/// Where a node holds the text that is looked for.
struct SearchMatch {
  /// What holds it, for the reader: a field's label, "Comment", "Key", "Type" and the like; empty for the title.
  std::string holder;
  /// Empty for the title.
  std::string text;
  /// Of the found part, in bytes of `text` or of the title.
  size_t start = 0, length = 0;
};

/// The texts of many nodes side by side, so that a search runs through memory once instead of from node to field to
/// text: of a large document that is the difference between a tenth of a second and none. It holds the texts as they
/// were when they were read.
class NodeSearchIndex {
public:
  using Nodes = std::vector<Toolkit::Ptr<BaseNode>>;

  NodeSearchIndex() = default;
  /// Of nodes that are read as they are asked for, or ahead of that by `ReadSome`.
  explicit NodeSearchIndex(Nodes nodes) : nodes(std::move(nodes)) {}

  const Nodes& GetNodes() const { return nodes; }
  /// Reads some more; false once all are read.
  bool ReadSome(size_t count);
  /// Where the node of that index holds the text: the first of its title, the values of the body's fields in key order,
  /// those on pins, the comment, its key in a map, its type; and of the keys of fields and the UUID, which count as a
  /// whole only. Without regard to the case of ASCII letters. An empty text is found in every title.
  std::optional<SearchMatch> Find(size_t index, std::string_view upperText);

private:
  struct Text {
    Toolkit::SharedString holder;
    /// In `texts`.
    size_t start, length;
  };
  struct Entry {
    /// In `entries`.
    size_t firstText;
    /// In `texts`: all texts of the node.
    size_t start, end;
  };
  void Read(const BaseNode& node);
  void Add(const Toolkit::SharedString& holder, std::string_view text);
  /// The id of a field as the node has it, if the whole of it is the text.
  std::optional<std::string> FindFieldId(const ContentNode& node, std::string_view upperText);
  SearchMatch MatchAt(const Entry& entry, size_t at, size_t length) const;

  Nodes nodes;
  std::vector<Entry> read;
  std::vector<Text> entries;
  /// As they are, and in upper case, with a zero byte behind each.
  std::string texts, upperTexts;
  /// Most nodes of a type have the same fields: which types have one of this id.
  std::string askedId;
  std::unordered_map<const NodeBlueprint*, std::optional<std::string>> typesWithId;
};

} // namespace Tesselor
