#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "Stage.h"
#include "ToolkitWarnings.h"
#include "fields/FieldFactory.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/StackPanel.h"
#include "values/ActionHistory.h"

#include <gtest/gtest.h>

#include <string>

namespace TestSupport {

using Json = Tesselor::JsonPtr;
inline Json Parse(const std::string& text) { return Json(cJSON_Parse(text.c_str())); }
std::string Print(const cJSON* json);

/// A field of that type with options as JSON text; an empty text stands for none.
Toolkit::Ptr<Tesselor::BaseField> MakeField(const std::string& type, const std::string& options = {},
                                            bool applyDefaults = true);
template <class T>
Toolkit::Ptr<T> Make(const std::string& type, const std::string& options = {}, bool applyDefaults = true) {
  return Toolkit::Ptr<T>(static_cast<T*>(MakeField(type, options, applyDefaults).Get()));
}
/// Lets the field read the member "K" of an object.
void Load(Tesselor::BaseField& field, const std::string& object);
/// What the field writes under the key "K", as an object.
std::string Saved(Tesselor::BaseField& field);

/// Shows one field beside another box that the focus can go to. Begins and ends with an empty history.
class FieldStage : public Stage {
public:
  explicit FieldStage(Tesselor::BaseField& field);
  ~FieldStage();

  /// Types into the first box, or into that of this index.
  void Type(std::string_view text, size_t index = 0) { TypeInto(*All<Toolkit::TextBox>(field).at(index), text); }
  void FocusElsewhere() { Focus(elsewhere.Get()); }
  Tesselor::ActionHistory& History() const { return Tesselor::ActionHistory::Instance(); }
  /// Both settle.
  void Undo();
  void Redo();
  template <class T> T* First() { return All<T>(field).at(0); }

  Tesselor::BaseField& field;
  Toolkit::Ptr<Toolkit::StackPanel> column = Toolkit::MakePtr<Toolkit::StackPanel>();
  Toolkit::Ptr<Toolkit::TextBox> elsewhere = Toolkit::MakePtr<Toolkit::TextBox>();
};

/// Base of the tests: boxes and log lines are kept, and toolkit warnings fail the test.
class FieldTest : public testing::Test {
protected:
  FieldTest();

  ToolkitWarnings warnings;
  CapturedBoxes boxes;
  CapturedLog log;
};

} // namespace TestSupport
