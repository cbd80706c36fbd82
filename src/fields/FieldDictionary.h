#pragma once

#include "fields/FieldDictionaryStringData.h"
#include "fields/FieldItemType.h"
#include "fields/FieldRows.h"
#include "toolkit/base/RoutedEvent.h"

#include <utility>
#include <vector>

namespace Tesselor {

/// A JSON object with scalar values as rows of a key and a value.
class FieldDictionary : public FieldRows {
  TOOLKIT_TYPE(FieldDictionary)
public:
  using Rows = Toolkit::ObservableCollection<FieldDictionaryStringData>;
  /// Keys with their values, in the order of the rows, with which they share their bytes.
  using Values = std::vector<std::pair<Toolkit::SharedString, Toolkit::SharedString>>;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldDictionary();

  /// Writes nothing without rows. Rows of the same key are all written.
  void Serialize(cJSON* object, const std::string& key) override;
  /// Adds a row for each member to the rows already there.
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;

  Values GetValues() const;
  /// Rebuilds all rows: for undo and redo.
  void SetValues(const Values& values);

private:
  void InitializeComponent() override;
  Toolkit::ObservableCollectionBase* ReflectedRows() const { return rows.Get(); }
  void AddRow(const Toolkit::SharedString& key, const Toolkit::SharedString& value);
  Toolkit::ObservableCollectionBase& RowCollection() const override { return *rows; }
  void AddEmptyRow() override { AddRow({}, {}); }
  void PushUndoIfChanged() override;
  void OnDictionaryLoaded(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::Ptr<Rows> rows;
  /// The rows at the last undo step.
  Values previousValues;
};

} // namespace Tesselor
