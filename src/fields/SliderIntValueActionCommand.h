#pragma once

#include "values/FieldIntData.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A number that was moved during one stay of the focus on its slider.
class SliderIntValueActionCommand final : public IActionCommand {
public:
  /// `name` tells the user what holds the number.
  SliderIntValueActionCommand(Toolkit::Ptr<FieldIntData> target, int32_t oldValue, int32_t newValue, std::string name)
      : target(std::move(target)), oldValue(oldValue), newValue(newValue), name(std::move(name)) {}
  void Do() override { target->SetValue(newValue); }
  void Undo() override { target->SetValue(oldValue); }
  StepDescription Description() const override {
    return {"Changed", "change of", name + " to " + std::to_string(newValue)};
  }

private:
  Toolkit::Ptr<FieldIntData> target;
  int32_t oldValue, newValue;
  std::string name;
};

} // namespace Tesselor
