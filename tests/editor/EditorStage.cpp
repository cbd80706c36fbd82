#include "EditorStage.h"

#include "ToolkitEnvironment.h"
#include "app/ComponentRegistration.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/Dispatcher.h"

namespace TestSupport {

using Toolkit::MouseButton;
using Toolkit::Point;

namespace {

void FailOnWarning(const char* file, uint32_t line, Toolkit::LogLevel level, const char* channel, const char* message) {
  if (level >= Toolkit::LogLevel::Warning) ADD_FAILURE() << file << ":" << line << " " << channel << ": " << message;
}

} // namespace

std::shared_ptr<Tesselor::Workspace> MakeWorkspace(const std::vector<std::string>& schemas) {
  auto workspace = std::make_shared<Tesselor::Workspace>();
  workspace->nodeDictionary = std::make_unique<Tesselor::NodeDictionary>();
  for (const std::string& schema : schemas) {
    const auto parsed = Tesselor::ParseJson(schema);
    EXPECT_TRUE(parsed) << schema;
    if (parsed) workspace->nodeDictionary->AddSchema(parsed.json.get());
  }
  return workspace;
}

EditorStage::EditorStage(Toolkit::UIElement& element) : root(Toolkit::MakePtr<Toolkit::Grid>()) {
  Toolkit::Dispatcher::Current().Clear();
  Toolkit::Dispatcher::Current().SetClock([this] { return now; });
  root->AddChild(&element);
  root->AttachAsRoot();
  input = std::make_unique<Toolkit::InputState>(*root);
  Settle();
}

EditorStage::~EditorStage() {
  input->SetFocus(nullptr);
  root->DetachAsRoot();
  root->ClearChildren();
  Toolkit::Dispatcher::Current().Clear();
  Toolkit::Dispatcher::Current().SetClock({});
}

void EditorStage::Settle() {
  root->Measure({Width, Height});
  root->Arrange({0, 0, Width, Height});
  Toolkit::LayoutQueue::Current().RaiseLoaded();
  Toolkit::LayoutQueue::Current().Run();
}

Point EditorStage::MiddleOf(const Toolkit::UIElement& element) const {
  return element.TransformToAncestor(nullptr).Map({element.ActualWidth() / 2, element.ActualHeight() / 2});
}

void EditorStage::Click(const Toolkit::UIElement& element) {
  Settle();
  const Point middle = MiddleOf(element);
  input->MouseMove(middle);
  input->MouseDown(MouseButton::Left, middle, 1);
  input->MouseUp(MouseButton::Left, middle);
  Settle();
}

void EditorStage::Drag(MouseButton button, Point from, Point to) {
  input->MouseMove(from);
  input->MouseDown(button, from, 1);
  input->MouseMove(to);
  input->MouseUp(button, to);
}

void EditorStage::Wait(double milliseconds) {
  now += milliseconds;
  while (Toolkit::Dispatcher::Current().RunDue()) {
  }
  Settle();
}

EditorTest::EditorTest() {
  ToolkitEnvironment::Start(&Tesselor::RegisterComponents);
  Toolkit::SetLogHandler(&FailOnWarning);
}

EditorTest::~EditorTest() { Toolkit::SetLogHandler(nullptr); }

} // namespace TestSupport
