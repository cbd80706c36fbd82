#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Toolkit {

/// The undo of one editing session of a text box: each step tells what was replaced by what. Indices are byte offsets.
class TextEditHistory {
public:
  struct Selection {
    size_t anchor = 0, caret = 0;
    friend bool operator==(const Selection&, const Selection&) = default;
  };
  /// A text to set, and what to select in it.
  struct State {
    std::string text;
    Selection selection;
  };

  /// One edit. Letters typed one behind the other make one step until a word ends.
  void Add(std::string_view before, const Selection& selectionBefore, std::string_view after,
           const Selection& selectionAfter, bool isTyped);
  /// The next typed letter begins a step: the caret was moved.
  void EndTyping() { canExtend = false; }
  /// What the text becomes. Nothing if there is no step, or if `text` is not what the step led to.
  std::optional<State> Undo(std::string_view text);
  std::optional<State> Redo(std::string_view text);
  /// What the text becomes when all that was undone is done again. Nothing if nothing was undone, or if `text` is not
  /// what the steps led to.
  std::optional<std::string> Redone(std::string_view text) const;
  bool CanUndo() const { return next > 0; }
  bool CanRedo() const { return next < steps.size(); }
  void Clear();

private:
  struct Step {
    size_t start;
    std::string removed, inserted;
    Selection before, after;
  };
  std::vector<Step> steps;
  /// Steps before this one are undone next, those from it on are redone.
  size_t next = 0;
  bool canExtend = false;
};

} // namespace Toolkit
