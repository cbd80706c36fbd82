#pragma once

#include "fields/FieldItemType.h"
#include "fields/FieldListStringData.h"
#include "fields/FieldRows.h"
#include "toolkit/base/RoutedEvent.h"

#include <vector>

namespace Tesselor {

/// A JSON array of scalars as rows of text. Undo compares snapshots of all rows, not single edits.
class FieldList : public FieldRows {
  TOOLKIT_TYPE(FieldList)
public:
  using Rows = Toolkit::ObservableCollection<FieldListStringData>;
  /// The texts of all rows, in order. They share their bytes with the rows.
  using Values = std::vector<Toolkit::SharedString>;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldList();
  Rows* GetList() const { return rows.Get(); }

  /// Writes nothing without rows, unless the value came from a file.
  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  /// Adds a row for each element of an array to the rows already there.
  void DeserializeValue(const cJSON* item) override;
  std::string GetValueAsString() const override;

  Values GetValues() const;
  /// Rebuilds all rows: for undo and redo.
  void SetValues(const Values& values);

private:
  void InitializeComponent() override;
  Toolkit::ObservableCollectionBase* ReflectedRows() const { return rows.Get(); }
  void AddRow(const Toolkit::SharedString& value);
  Toolkit::ObservableCollectionBase& RowCollection() const override { return *rows; }
  void AddEmptyRow() override { AddRow({}); }
  void PushUndoIfChanged() override;
  void OnListLoaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::Ptr<Rows> rows;
  /// The rows at the last undo step.
  Values previousValues;
};

} // namespace Tesselor
