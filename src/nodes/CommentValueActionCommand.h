#pragma once

#include "nodes/CommentNode.h"
#include "nodes/NodeNames.h"
#include "toolkit/base/SharedString.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A comment's text that was edited during one stay of the focus in its box.
class CommentTextActionCommand final : public IActionCommand {
public:
  CommentTextActionCommand(CommentNode& comment, Toolkit::SharedString oldText, Toolkit::SharedString newText)
      : comment(&comment), oldText(std::move(oldText)), newText(std::move(newText)) {}
  void Do() override { comment->SetCommentText(newText); }
  void Undo() override { comment->SetCommentText(oldText); }
  StepDescription Description() const override {
    return {"Changed", "change of", "text of " + NameOf(*comment) + " to " + QuotedForUser(newText.View())};
  }
  size_t HeldBytes() const override { return oldText.Length(); }

private:
  Toolkit::Ptr<CommentNode> comment;
  Toolkit::SharedString oldText, newText;
};

/// One click on a button of a comment's font.
class CommentFontActionCommand final : public IActionCommand {
public:
  CommentFontActionCommand(CommentNode& comment, float oldSize, float newSize)
      : comment(&comment), oldSize(oldSize), newSize(newSize) {}
  void Do() override { comment->SetCommentFontSize(newSize); }
  void Undo() override { comment->SetCommentFontSize(oldSize); }
  StepDescription Description() const override {
    return {"Changed", "change of",
            "font size of " + NameOf(*comment) + " to " + std::to_string(static_cast<int>(newSize))};
  }

private:
  Toolkit::Ptr<CommentNode> comment;
  float oldSize, newSize;
};

} // namespace Tesselor
