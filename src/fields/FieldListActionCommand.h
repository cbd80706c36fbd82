#pragma once

#include "fields/FieldList.h"
#include "fields/FieldName.h"
#include "values/IActionCommand.h"

namespace Tesselor {

/// A change of a list's rows: added, removed, moved or edited ones.
class FieldListActionCommand final : public IActionCommand {
public:
  FieldListActionCommand(Toolkit::Ptr<FieldList> field, FieldList::Values oldValues, FieldList::Values newValues)
      : field(std::move(field)), oldValues(std::move(oldValues)), newValues(std::move(newValues)) {}
  void Do() override { field->SetValues(newValues); }
  void Undo() override { field->SetValues(oldValues); }
  StepDescription Description() const override { return {"Changed", "change of", "rows of " + NameOf(*field)}; }
  /// The texts are shared with the rows, for the most part.
  size_t HeldBytes() const override {
    return (oldValues.size() + newValues.size()) * sizeof(FieldList::Values::value_type);
  }

private:
  Toolkit::Ptr<FieldList> field;
  FieldList::Values oldValues, newValues;
};

} // namespace Tesselor
