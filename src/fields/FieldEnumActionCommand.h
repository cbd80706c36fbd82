#pragma once

#include "fields/FieldEnum.h"
#include "fields/FieldName.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// An option that was chosen. Without one before, undo leaves nothing chosen.
class FieldEnumActionCommand final : public IActionCommand {
public:
  FieldEnumActionCommand(Toolkit::Ptr<FieldEnum> field, Toolkit::Ptr<EnumItemData> oldOption,
                         Toolkit::Ptr<EnumItemData> newOption)
      : field(std::move(field)), oldOption(std::move(oldOption)), newOption(std::move(newOption)) {}
  void Do() override { field->Select(newOption.Get()); }
  void Undo() override { field->Select(oldOption.Get()); }
  StepDescription Description() const override {
    return {"Chose", "choice of",
            QuotedForUser(newOption ? newOption->GetValue().View() : std::string_view("nothing")) + " in " +
                NameOf(*field)};
  }

private:
  Toolkit::Ptr<FieldEnum> field;
  Toolkit::Ptr<EnumItemData> oldOption, newOption;
};

} // namespace Tesselor
