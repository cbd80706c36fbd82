#pragma once

#include "values/FieldTextData.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A text that was edited during one stay of the focus in its box.
class TextBoxValueActionCommand final : public IActionCommand {
public:
  /// `name` tells the user what holds the text.
  TextBoxValueActionCommand(Toolkit::Ptr<FieldTextData> target, Toolkit::SharedString oldText,
                            Toolkit::SharedString newText, std::string name)
      : target(std::move(target)), oldText(std::move(oldText)), newText(std::move(newText)), name(std::move(name)) {}
  void Do() override { target->SetValue(newText); }
  void Undo() override { target->SetValue(oldText); }
  StepDescription Description() const override {
    return {"Changed", "change of", name + " to " + QuotedForUser(newText.View())};
  }
  /// The new text is the next step's, or the field's.
  size_t HeldBytes() const override { return oldText.Length(); }

private:
  Toolkit::Ptr<FieldTextData> target;
  Toolkit::SharedString oldText, newText;
  std::string name;
};

} // namespace Tesselor
