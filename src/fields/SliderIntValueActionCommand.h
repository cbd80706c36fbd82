#pragma once

#include "values/FieldIntData.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A number that was moved during one stay of the focus on its slider.
class SliderIntValueActionCommand final : public IActionCommand {
public:
  SliderIntValueActionCommand(Toolkit::Ptr<FieldIntData> target, int32_t oldValue, int32_t newValue)
      : target(std::move(target)), oldValue(oldValue), newValue(newValue) {}
  void Do() override { target->SetValue(newValue); }
  void Undo() override { target->SetValue(oldValue); }
  StepDescription Description() const override {
    return {"Changed", "change of", "number to " + std::to_string(newValue)};
  }

private:
  Toolkit::Ptr<FieldIntData> target;
  int32_t oldValue, newValue;
};

} // namespace Tesselor
