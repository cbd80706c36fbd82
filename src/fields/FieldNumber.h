#pragma once

#include "fields/BaseField.h"
#include "fields/NumberFilter.h"
#include "toolkit/base/RoutedEvent.h"
#include "values/FieldTextData.h"

#include <optional>
#include <string>
#include <string_view>

namespace Toolkit {
class TextBox;
}

namespace Tesselor {

class FieldOptions;

/// A number that is edited as text. The text may be half a number while it is typed; only writing makes a number of it.
/// What kind of number it is, the classes below say.
class FieldNumber : public BaseField {
  TOOLKIT_TYPE(FieldNumber)
public:
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;

  FieldTextData* GetFieldTextData() const { return fieldTextData.Get(); }

  /// A text that is no number is written as 0, with a box.
  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;
  void DeserializeValue(const cJSON* item) override;
  bool IsDefault() const override;
  std::string GetValueAsString() const override;

protected:
  /// Bounds of the text that is typed; neither files nor the default are held to them.
  struct Bounds {
    double min;
    double max;
  };
  FieldNumber(const Toolkit::SharedString& initialText, Bounds widest);
  ~FieldNumber() override;
  /// Loads the class's document, whose box is named "InputText".
  void LoadNumberDocument(std::string_view name);

private:
  virtual std::optional<double> ReadDefault(const FieldOptions& options) const = 0;
  /// The number of a JSON item that is one.
  virtual double NumberOf(const cJSON& item) const = 0;
  virtual std::string TextOf(double number) const = 0;
  /// The number that is written for a text; the user is told if the text has none.
  virtual double WrittenNumber(std::string_view text) const = 0;
  virtual bool IsSame(double number, std::string_view text) const = 0;
  /// One step toward a text that may be typed; nothing if it may stand.
  virtual std::optional<std::string> Filter(std::string_view text, Bounds bounds, NumberEntry entry) const = 0;
  /// The text that is left when the editing ends; nothing if it may stay as it is.
  virtual std::optional<std::string> Finish(std::string_view text, Bounds bounds) const = 0;
  /// The value from an option or a file.
  void TakeText(const std::string& text);
  void ReplaceText(const std::string& text);
  void OnTextChanged(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  /// The box shows from now on what a save writes.
  void OnInputLostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  Toolkit::Ptr<FieldTextData> fieldTextData;
  Toolkit::Ptr<Toolkit::TextBox> inputText;
  Bounds bounds;
  double defaultValue = 0;
};

} // namespace Tesselor
