#pragma once

#include "fields/FieldFilePath.h"
#include "fields/FieldName.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A file that was chosen. Only its name goes back and forth; a UUID that was read from the file stays.
class FieldFilePathActionCommand final : public IActionCommand {
public:
  FieldFilePathActionCommand(Toolkit::Ptr<FieldFilePath> field, Toolkit::SharedString oldName,
                             Toolkit::SharedString newName)
      : field(std::move(field)), oldName(std::move(oldName)), newName(std::move(newName)) {}
  void Do() override { field->SetFileName(newName); }
  void Undo() override { field->SetFileName(oldName); }
  StepDescription Description() const override {
    return {"Chose", "choice of", "file " + QuotedForUser(newName.View()) + " in " + NameOf(*field)};
  }

private:
  Toolkit::Ptr<FieldFilePath> field;
  Toolkit::SharedString oldName, newName;
};

} // namespace Tesselor
