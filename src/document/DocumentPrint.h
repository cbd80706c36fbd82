#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

struct cJSON;

namespace Tesselor {

/// The formatted text of one whole document, printed once, from which the text of each object in it is cut out: a
/// load logs every node with its subtree. The document outlives it.
///
/// Nodes stand in each other, so that all these texts together would grow with the depth as well. Beyond
/// `MostCopies` times the document they are cut to their beginnings.
class DocumentPrint {
public:
  static constexpr size_t MostCopies = 32;
  explicit DocumentPrint(const cJSON* document);
  DocumentPrint(const DocumentPrint&) = delete;
  DocumentPrint& operator=(const DocumentPrint&) = delete;

  /// Appends the formatted print of `json` to `text`: from the document if it is an object or array of that, else by
  /// printing it now.
  void Append(std::string& text, const cJSON* json);

private:
  struct Range {
    size_t start = 0;
    size_t end = 0;
    /// How many tabs stand in front of each of its lines.
    size_t depth = 0;
  };
  void Record(const cJSON* value, size_t& position, size_t depth);

  std::string printed;
  /// How many bytes may still be appended in full.
  size_t left = 0;
  std::unordered_map<const cJSON*, Range> ranges;
};

} // namespace Tesselor
