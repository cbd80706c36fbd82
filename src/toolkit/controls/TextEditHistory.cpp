#include "toolkit/controls/TextEditHistory.h"

#include <algorithm>
#include <cctype>

namespace Toolkit {

namespace {

bool EndsWord(std::string_view text) { return !text.empty() && std::isspace(static_cast<unsigned char>(text.back())); }

/// The text with `removed`, which must stand at `start`, replaced; nothing if it does not stand there.
std::optional<std::string> Replaced(std::string_view text, size_t start, std::string_view removed,
                                    std::string_view inserted) {
  if (start > text.size() || text.substr(start, removed.size()) != removed) return std::nullopt;
  std::string result(text);
  result.replace(start, removed.size(), inserted);
  return result;
}

} // namespace

void TextEditHistory::Add(std::string_view before, const Selection& selectionBefore, std::string_view after,
                          const Selection& selectionAfter, bool isTyped) {
  if (before == after) return;
  const size_t shorter = std::min(before.size(), after.size());
  const size_t start = static_cast<size_t>(
      std::mismatch(before.begin(), before.begin() + static_cast<ptrdiff_t>(shorter), after.begin()).first -
      before.begin());
  const size_t tailLimit = shorter - start;
  const size_t tail = static_cast<size_t>(
      std::mismatch(before.rbegin(), before.rbegin() + static_cast<ptrdiff_t>(tailLimit), after.rbegin()).first -
      before.rbegin());
  Step step{start, std::string(before.substr(start, before.size() - tail - start)),
            std::string(after.substr(start, after.size() - tail - start)), selectionBefore, selectionAfter};
  steps.resize(next);
  if (isTyped && canExtend && !steps.empty()) {
    Step& last = steps.back();
    const bool follows = step.removed.empty() && step.start == last.start + last.inserted.size();
    if (follows && !(EndsWord(last.inserted) && !EndsWord(step.inserted))) {
      last.inserted += step.inserted;
      last.after = step.after;
      return;
    }
  }
  steps.push_back(std::move(step));
  next = steps.size();
  canExtend = isTyped;
}

std::optional<TextEditHistory::State> TextEditHistory::Undo(std::string_view text) {
  canExtend = false;
  if (!CanUndo()) return std::nullopt;
  const Step& step = steps[next - 1];
  std::optional<std::string> result = Replaced(text, step.start, step.inserted, step.removed);
  if (!result) {
    Clear();
    return std::nullopt;
  }
  --next;
  return State{std::move(*result), step.before};
}

std::optional<TextEditHistory::State> TextEditHistory::Redo(std::string_view text) {
  canExtend = false;
  if (!CanRedo()) return std::nullopt;
  const Step& step = steps[next];
  std::optional<std::string> result = Replaced(text, step.start, step.removed, step.inserted);
  if (!result) {
    Clear();
    return std::nullopt;
  }
  ++next;
  return State{std::move(*result), step.after};
}

std::optional<std::string> TextEditHistory::Redone(std::string_view text) const {
  if (!CanRedo()) return std::nullopt;
  std::optional<std::string> result(text);
  for (size_t i = next; i < steps.size() && result; ++i)
    result = Replaced(*result, steps[i].start, steps[i].removed, steps[i].inserted);
  return result;
}

void TextEditHistory::Clear() {
  steps.clear();
  next = 0;
  canExtend = false;
}

} // namespace Toolkit
