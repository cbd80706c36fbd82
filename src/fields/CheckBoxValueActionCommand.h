#pragma once

#include "values/FieldCheckboxData.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// One click on a check box. A click always flips the value, so the old one need not be held.
class CheckBoxValueActionCommand final : public IActionCommand {
public:
  /// `name` tells the user what is checked.
  CheckBoxValueActionCommand(Toolkit::Ptr<FieldCheckboxData> target, bool newValue, std::string name)
      : target(std::move(target)), newValue(newValue), name(std::move(name)) {}
  void Do() override { target->SetValue(newValue); }
  void Undo() override { target->SetValue(!newValue); }
  StepDescription Description() const override {
    return {newValue ? "Checked" : "Unchecked", newValue ? "check of" : "uncheck of", name};
  }

private:
  Toolkit::Ptr<FieldCheckboxData> target;
  bool newValue;
  std::string name;
};

} // namespace Tesselor
