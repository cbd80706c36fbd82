#pragma once

#include "fields/FieldDictionaryStringData.h"
#include "fields/FieldItemType.h"
#include "fields/FieldRows.h"
#include "toolkit/base/RoutedEvent.h"

#include <utility>
#include <vector>

namespace Tesselor {

/// A JSON object with scalar values as rows of a key and a value. Undo compares snapshots that are sorted by key: a
/// moved row is no undo step, and an undo sorts the rows.
class FieldDictionary : public FieldRows {
  TOOLKIT_TYPE(FieldDictionary)
public:
  using Rows = Toolkit::ObservableCollection<FieldDictionaryStringData>;
  /// Keys with their values, sorted by key bytewise, each key once. They share their bytes with the rows.
  using Values = std::vector<std::pair<Toolkit::SharedString, Toolkit::SharedString>>;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldDictionary();

  /// Writes nothing without rows. Rows of the same key are all written.
  void Serialize(cJSON* object, const std::string& key) override;
  /// Adds a row for each member to the rows already there.
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;
  bool ConnectEvent(Toolkit::Object* source, const char* eventName, const char* handlerName) override;

  /// Of rows with the same key the first counts.
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
