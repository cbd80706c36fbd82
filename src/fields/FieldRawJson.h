#pragma once

#include "fields/BaseField.h"
#include "values/FieldTextData.h"

#include <utility>
#include <vector>

namespace Tesselor {

/// JSON source as text, written as it stands. A text that is no JSON would make the whole file unreadable, so the
/// field remembers the last text that was, and writes that instead, with a box.
class FieldRawJson : public BaseField {
  TOOLKIT_TYPE(FieldRawJson)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldRawJson();
  FieldTextData* GetFieldTextData() const { return fieldTextData.Get(); }

  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  std::string GetValueAsString() const override;

  /// The text, or the last one that was JSON if the text is none, after a box that tells the user. For those who put
  /// the value into a file in a form of their own.
  const Toolkit::SharedString& TextToSave();

protected:
  void OnRoutedEvent(const Toolkit::RoutedEventArgs& args) override;

private:
  void InitializeComponent() override;
  void NoteLeftText();
  /// Returns whether the text is JSON; then it is the last valid one from now on.
  bool RememberIfValid();

  Toolkit::Ptr<FieldTextData> fieldTextData;
  Toolkit::SharedString lastValidText;
  /// Texts that were left though they are no JSON, each with the valid one of then: undo brings back the very same
  /// text, and then what is written in its place has to be the same again.
  std::vector<std::pair<Toolkit::SharedString, Toolkit::SharedString>> leftTexts;
};

} // namespace Tesselor
