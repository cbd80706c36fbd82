#include "editor/NodeSearchIndex.h"

#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/NodeKeys.h"
#include "platform/AsciiCase.h"

#include <algorithm>

namespace Tesselor {

using Toolkit::DynamicCast;
using Toolkit::SharedString;

bool NodeSearchIndex::ReadSome(size_t count) {
  for (const size_t end = std::min(nodes.size(), read.size() + count); read.size() < end;) Read(*nodes[read.size()]);
  return read.size() < nodes.size();
}

void NodeSearchIndex::Add(const SharedString& holder, std::string_view text) {
  entries.push_back({holder, texts.size(), text.size()});
  texts.append(text).push_back('\0');
}

void NodeSearchIndex::Read(const BaseNode& node) {
  static const SharedString title, text("Text"), comment("Comment"), key("Key"), type("Type");
  Entry entry{entries.size(), texts.size(), 0};
  Add(title, node.Title());
  if (const auto* frame = DynamicCast<CommentNode>(&node)) Add(text, frame->CommentText());
  if (const auto* content = DynamicCast<ContentNode>(&node)) {
    for (const auto* fields : {&content->contentFields, &content->inputFields, &content->outputFields})
      for (const auto& [id, field] : *fields)
        if (const std::string value = field->GetValueAsString(); !value.empty()) {
          const SharedString label = field->GetValue(BaseField::LabelProperty).AsString();
          Add(label.IsEmpty() ? SharedString(id) : label, value);
        }
    const std::string_view note = content->GetFieldCommentData()->GetValue();
    if (note != NoComment) Add(comment, note);
    if (!content->mapKey.empty()) Add(key, content->mapKey);
    Add(type, content->Blueprint().title);
    Add(type, content->TypeId());
  }
  entry.end = texts.size();
  upperTexts.reserve(texts.capacity());
  for (size_t i = entry.start; i < entry.end; ++i) upperTexts.push_back(UpperCase(texts[i]));
  read.push_back(entry);
}

std::optional<SearchMatch> NodeSearchIndex::Find(size_t index, std::string_view upperText) {
  if (index >= read.size()) ReadSome(index + 1 - read.size());
  const Entry& entry = read[index];
  const std::string_view own = std::string_view(upperTexts).substr(entry.start, entry.end - entry.start);
  if (const size_t at = own.find(upperText); at != std::string_view::npos)
    return MatchAt(entry, entry.start + at, upperText.size());
  const auto* content = DynamicCast<ContentNode>(nodes[index].Get());
  if (!content) return std::nullopt;
  if (auto id = FindFieldId(*content, upperText)) return SearchMatch{"Field", *std::move(id), 0, upperText.size()};
  if (EqualsIgnoringCase(content->NodeId(), upperText))
    return SearchMatch{"Id", content->NodeId(), 0, upperText.size()};
  return std::nullopt;
}

std::optional<std::string> NodeSearchIndex::FindFieldId(const ContentNode& node, std::string_view upperText) {
  const auto find = [&]() -> std::optional<std::string> {
    for (const auto* fields : {&node.contentFields, &node.inputFields, &node.outputFields})
      for (const auto& [id, field] : *fields)
        if (EqualsIgnoringCase(id, upperText)) return id;
    return std::nullopt;
  };
  // The fields of a reference come from the file that it names.
  if (node.Blueprint().isReference) return find();
  if (askedId != upperText) typesWithId.clear();
  askedId = upperText;
  const auto known = typesWithId.find(&node.Blueprint());
  return known != typesWithId.end() ? known->second : typesWithId.emplace(&node.Blueprint(), find()).first->second;
}

SearchMatch NodeSearchIndex::MatchAt(const Entry& entry, size_t at, size_t length) const {
  size_t i = entry.firstText;
  while (i + 1 < entries.size() && entries[i + 1].start <= at) ++i;
  const Text& text = entries[i];
  SearchMatch match{text.holder.ToString(), {}, at - text.start, length};
  if (!text.holder.IsEmpty()) match.text = texts.substr(text.start, text.length);
  return match;
}

} // namespace Tesselor
