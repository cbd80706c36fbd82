#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/base/SharedString.h"

#include <string_view>

namespace Tesselor {

/// Carries one text for all that show or change it: the bound box, undo steps, the side panel. They share the text's
/// bytes as well.
class FieldTextData : public Toolkit::NotifyPropertyChangedBase {
  TOOLKIT_TYPE(FieldTextData)
public:
  FieldTextData() = default;
  explicit FieldTextData(Toolkit::SharedString text) : text(std::move(text)) {}

  std::string_view GetValue() const { return text; }
  const Toolkit::SharedString& GetText() const { return text; }
  /// Texts are compared up to their first zero byte. Returns whether the text changed.
  bool SetValue(const Toolkit::SharedString& newText);

private:
  void AssignValue(const Toolkit::SharedString& newText) { SetValue(newText); }

  Toolkit::SharedString text;
};

} // namespace Tesselor
