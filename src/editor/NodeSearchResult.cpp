#include "editor/NodeSearchResult.h"

#include "nodes/ContentNode.h"
#include "toolkit/controls/Canvas.h"

#include <algorithm>
#include <string>

namespace Tesselor {

using Toolkit::DynamicCast;
using Toolkit::SharedString;

namespace {

/// Characters.
constexpr size_t LongestContext = 50;
constexpr size_t KeptOfLongContext = 47;
constexpr size_t KeptBeforeMatch = 15;
/// Of a path: more titles than these are left out in its middle.
constexpr size_t TitlesAtEachEnd = 3;

bool BeginsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }

/// The byte at which character number `index` of a UTF-8 text begins; the text's size if it is shorter.
size_t CharacterOffset(std::string_view text, size_t index) {
  size_t offset = 0;
  for (; offset < text.size(); ++offset)
    if (BeginsCharacter(text[offset]) && index-- == 0) break;
  return offset;
}

/// The byte at which the character begins that stands `count` characters before the byte `from`.
size_t CharactersBefore(std::string_view text, size_t from, size_t count) {
  while (from > 0 && count > 0)
    if (BeginsCharacter(text[--from])) --count;
  return from;
}

/// A piece of a text, with the place of the found part in it.
struct Excerpt {
  std::string text;
  size_t start, length;
};

/// A long text is cut behind its beginning, or around the found part if that would not show.
Excerpt Cut(const std::string& text, size_t start, size_t length) {
  if (CharacterOffset(text, LongestContext) == text.size()) return {text, start, length};
  const size_t end = CharacterOffset(text, KeptOfLongContext);
  if (start + length <= end) return {text.substr(0, end) + "...", start, length};
  const size_t from = CharactersBefore(text, start, KeptBeforeMatch);
  const size_t shown = CharacterOffset(std::string_view(text).substr(from), KeptOfLongContext);
  const size_t kept = std::max(shown, start - from + length);
  return {"..." + text.substr(from, kept) + (from + kept < text.size() ? "..." : ""), start - from + 3, length};
}

const ContentNode* ParentOf(const ContentNode& node) {
  for (size_t i = 0; i < node.Input().Count(); ++i)
    for (const NodePinData* parent : node.Input().Get(i)->connections)
      if (!parent->IsInput()) return parent->owner;
  return nullptr;
}

} // namespace

TOOLKIT_TYPE_IMPL(NodeSearchResult, Toolkit::ListLine, "Tesselor.NodeSearchResult")
void NodeSearchResult::Describe(Toolkit::TypeBuilder<NodeSearchResult>& type) {
  type.Member<&NodeSearchResult::GetTitle>("Title");
  type.Member<&NodeSearchResult::GetNodeType>("NodeType");
  type.Member<&NodeSearchResult::GetMatchContext>("MatchContext");
  type.Member<&NodeSearchResult::HasMatchContext>("HasMatchContext");
  type.Member<&NodeSearchResult::GetPositionX>("PositionX");
  type.Member<&NodeSearchResult::GetPositionY>("PositionY");
  type.Member<&NodeSearchResult::TitleBefore>("TitleBefore");
  type.Member<&NodeSearchResult::TitleMatch>("TitleMatch");
  type.Member<&NodeSearchResult::TitleAfter>("TitleAfter");
  type.Member<&NodeSearchResult::ContextHolder>("ContextHolder");
  type.Member<&NodeSearchResult::ContextBefore>("ContextBefore");
  type.Member<&NodeSearchResult::ContextMatch>("ContextMatch");
  type.Member<&NodeSearchResult::ContextAfter>("ContextAfter");
  type.Member<&NodeSearchResult::Naming>("Naming");
  type.Member<&NodeSearchResult::TypeTitle>("TypeTitle");
  type.Member<&NodeSearchResult::Path>("Path");
}

NodeSearchResult::NodeSearchResult(BaseNode& node, const char* nodeType, SearchMatch match)
    : node(&node), title(node.Title()), nodeType(nodeType), match(std::move(match)),
      positionX(Toolkit::Canvas::GetLeft(&node)), positionY(Toolkit::Canvas::GetTop(&node)) {}

SharedString NodeSearchResult::GetMatchContext() const { return Cut(match.text, match.start, match.length).text; }

SharedString NodeSearchResult::ContextHolder() const { return match.holder.empty() ? "" : match.holder + ": "; }

SharedString NodeSearchResult::PartOf(Where where, Part part) const {
  const bool isTitle = where == Where::Title;
  if (!isTitle && !HasMatchContext()) return {};
  Excerpt shown =
      isTitle ? Excerpt{title.ToString(), match.start, match.length} : Cut(match.text, match.start, match.length);
  // The title of a node that holds the text elsewhere has nothing to mark.
  if (isTitle && HasMatchContext()) shown.start = shown.text.size(), shown.length = 0;
  // Line ends would make a line of the list higher.
  std::replace(shown.text.begin(), shown.text.end(), '\n', ' ');
  const std::string_view text = shown.text;
  switch (part) {
  case Part::Before: return text.substr(0, shown.start);
  case Part::Match: return text.substr(shown.start, shown.length);
  case Part::After: break;
  }
  return text.substr(shown.start + shown.length);
}

SharedString NodeSearchResult::Naming() const {
  const auto* content = DynamicCast<ContentNode>(node.Get());
  const std::string name = content ? content->DisplayName() : std::string();
  return name.empty() || title == SharedString(name) ? SharedString() : SharedString("  " + name);
}

SharedString NodeSearchResult::TypeTitle() const {
  const auto* content = DynamicCast<ContentNode>(node.Get());
  const std::string_view type = content ? std::string_view(content->Blueprint().title) : nodeType;
  std::string_view shown = title;
  if (shown.starts_with(RootTitlePrefix)) shown.remove_prefix(RootTitlePrefix.size());
  return shown == type ? SharedString() : SharedString(type);
}

SharedString NodeSearchResult::Path() const {
  std::vector<const ContentNode*> parents;
  NodeSet passed;
  const auto* content = DynamicCast<ContentNode>(node.Get());
  for (const ContentNode* at = content ? ParentOf(*content) : nullptr; at && passed.insert(at).second;
       at = ParentOf(*at))
    if (!at->IsPassthrough()) parents.push_back(at);
  std::reverse(parents.begin(), parents.end());
  std::string path;
  for (size_t i = 0; i < parents.size(); ++i) {
    const bool isLeftOut = i >= TitlesAtEachEnd && i + TitlesAtEachEnd < parents.size();
    if (isLeftOut && i > TitlesAtEachEnd) continue;
    if (!path.empty()) path += " \xE2\x80\xBA ";
    path += isLeftOut ? "..." : parents[i]->DisplayName();
  }
  return path;
}

} // namespace Tesselor
