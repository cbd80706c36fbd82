#include "FieldEnvironment.h"

#include "ToolkitEnvironment.h"
#include "fields/FieldRegistration.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/visual/LayoutQueue.h"
#include "toolkit/visual/ResourceDictionary.h"
#include "workspace/NodeFieldBlueprint.h"

namespace TestSupport {

using Toolkit::InputState;
using Toolkit::MouseButton;
using Toolkit::Point;

namespace {

void FailOnWarning(const char* file, uint32_t line, Toolkit::LogLevel level, const char* channel, const char* message) {
  if (level >= Toolkit::LogLevel::Warning) ADD_FAILURE() << file << ":" << line << " " << channel << ": " << message;
}

} // namespace

std::string Print(const cJSON* json) {
  const std::unique_ptr<char, decltype(&cJSON_free)> text(cJSON_PrintUnformatted(json), &cJSON_free);
  return text ? text.get() : "";
}

Toolkit::Ptr<Tesselor::BaseField> MakeField(const std::string& type, const std::string& options, bool applyDefaults) {
  Tesselor::NodeFieldBlueprint blueprint;
  blueprint.Id = "K";
  blueprint.Type = type;
  blueprint.Options.reset(options.empty() ? nullptr : cJSON_Parse(options.c_str()));
  EXPECT_TRUE(options.empty() || blueprint.Options) << options;
  return Tesselor::sCreateField(&blueprint, applyDefaults);
}

void Load(Tesselor::BaseField& field, const std::string& object) {
  const Json json = Parse(object);
  ASSERT_TRUE(json) << object;
  field.Deserialize(json.get(), "K");
}

std::string Saved(Tesselor::BaseField& field) {
  const Json object(cJSON_CreateObject());
  field.Serialize(object.get(), "K");
  return Print(object.get());
}

FieldStage::FieldStage(Tesselor::BaseField& field)
    : field(field), root(Toolkit::MakePtr<Toolkit::StackPanel>()), elsewhere(Toolkit::MakePtr<Toolkit::TextBox>()) {
  Tesselor::ActionHistory::Instance().Clear();
  Toolkit::Dispatcher::Current().Clear();
  Toolkit::Dispatcher::Current().SetClock([this] { return now; });
  root->AddChild(&field);
  root->AddChild(elsewhere.Get());
  root->AttachAsRoot();
  input = std::make_unique<InputState>(*root);
  Settle();
}

FieldStage::~FieldStage() {
  input->SetFocus(nullptr);
  root->DetachAsRoot();
  root->ClearChildren();
  Tesselor::ActionHistory::Instance().Clear();
  Toolkit::Dispatcher::Current().Clear();
  Toolkit::Dispatcher::Current().SetClock({});
}

void FieldStage::Settle() {
  root->Measure({1000, 4000});
  root->Arrange({0, 0, 1000, 4000});
  Toolkit::LayoutQueue::Current().RaiseLoaded();
  Toolkit::LayoutQueue::Current().Run();
}

void FieldStage::Click(Toolkit::UIElement* element) {
  Settle();
  const Point centre =
      element->TransformToAncestor(nullptr).Map({element->ActualWidth() / 2, element->ActualHeight() / 2});
  input->MouseMove(centre);
  input->MouseDown(MouseButton::Left, centre, 1);
  input->MouseUp(MouseButton::Left, centre);
  Settle();
}

void FieldStage::Type(Toolkit::TextBox* box, const std::string& text) {
  Click(box);
  ASSERT_TRUE(box->IsFocused());
  box->SelectAll();
  if (text.empty())
    input->KeyDown(Toolkit::Key::Delete);
  else
    input->TextInput(text);
  Settle();
}

void FieldStage::FocusElsewhere() {
  input->SetFocus(elsewhere.Get());
  Settle();
}

void FieldStage::Wait(double milliseconds) {
  now += milliseconds;
  while (Toolkit::Dispatcher::Current().RunDue()) {
  }
  Settle();
}

FieldTest::FieldTest() {
  Toolkit::SetLogHandler(&FailOnWarning);
  ToolkitEnvironment::Start(&Tesselor::RegisterFieldTypes);
}

FieldTest::~FieldTest() { Toolkit::SetLogHandler(nullptr); }

} // namespace TestSupport
