#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "fields/FieldFactory.h"
#include "toolkit/base/Dispatcher.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"
#include "values/ActionHistory.h"

#include <cjson/cJSON.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace TestSupport {

struct JsonDelete {
  void operator()(cJSON* json) const { cJSON_Delete(json); }
};
using Json = std::unique_ptr<cJSON, JsonDelete>;
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

/// All elements of a class at and below `root`, in tree order.
template <class T> void Collect(Toolkit::UIElement* root, std::vector<T*>& found) {
  if (T* element = Toolkit::DynamicCast<T>(root)) found.push_back(element);
  for (size_t i = 0; i < root->VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = root->VisualChild(i)) Collect(child, found);
}
template <class T> std::vector<T*> All(Toolkit::UIElement* root) {
  std::vector<T*> found;
  Collect(root, found);
  return found;
}

/// Shows one field below a root that is laid out and takes input, beside another box that the focus can go to. Begins
/// with an empty history and a clock that stands still.
class FieldStage {
public:
  explicit FieldStage(Tesselor::BaseField& field);
  ~FieldStage();

  /// Runs layout and what it leads to.
  void Settle();
  void Click(Toolkit::UIElement* element);
  /// Clicks into the box and replaces its text.
  void Type(Toolkit::TextBox* box, const std::string& text);
  void FocusElsewhere();
  /// Lets time pass.
  void Wait(double milliseconds);
  Tesselor::ActionHistory& History() { return Tesselor::ActionHistory::Instance(); }
  template <class T> T* First() { return All<T>(&field).at(0); }

  Tesselor::BaseField& field;
  Toolkit::Ptr<Toolkit::StackPanel> root;
  Toolkit::Ptr<Toolkit::TextBox> elsewhere;
  std::unique_ptr<Toolkit::InputState> input;

private:
  double now = 1000;
};

/// Base of the tests: boxes and log lines are kept, and toolkit warnings fail the test.
class FieldTest : public testing::Test {
protected:
  FieldTest();
  ~FieldTest() override;

  CapturedBoxes boxes;
  CapturedLog log;
};

} // namespace TestSupport
