#include "WindowStage.h"

#include "ToolkitEnvironment.h"
#include "app/ComponentRegistration.h"
#include "document/DocumentExport.h"
#include "editor/NoticeBar.h"
#include "nodes/NodePinControl.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/TextBlock.h"
#include "workspace/AssetFileIndex.h"
#include "workspace/RootType.h"

#include <stdexcept>

namespace TestSupport {

using Tesselor::ContentNode;
using Toolkit::Point;

TestWorkspace::TestWorkspace(const std::vector<std::string>& schemas) {
  for (size_t i = 0; i < schemas.size(); ++i) {
    const auto schema = Tesselor::ParseJson(schemas[i]);
    EXPECT_TRUE(schema) << schemas[i];
    const std::string id = Tesselor::JsonText(cJSON_GetObjectItem(schema.json.get(), "id")).value();
    Write("Workspaces/Test/" + id + ".json", schemas[i]);
    if (i > 0) continue;
    Write("Workspaces/Test/_Workspace.json", R"({"WorkspaceName": "Test", "Roots": {")" + id +
                                                 R"(": {"RootNodeType": ")" + id + R"(", "MenuName": ")" + id +
                                                 R"("}}})");
  }
}

WindowStage::WindowStage(const WindowSetup& setup) : Stage(setup.frames), directory(setup.directory) {
  ToolkitEnvironment::Start(&Tesselor::RegisterComponents);
  Toolkit::Clipboard::SetBackend(&clipboard);
  const bool isPath = setup.document.find('/') != std::string::npos;
  std::string& asset = Tesselor::AssetFileIndex::Instance().assetToLoad;
  asset = setup.document.empty() || isPath ? setup.document : (copies.Path() / (setup.document + ".json")).string();
  if (!setup.document.empty() && !isPath)
    std::filesystem::copy_file(TESSELOR_DATA_DIR "/samples/" + setup.document + ".json", asset);
  view = Toolkit::MakePtr<Tesselor::MainView>();
  Put(*view, setup.size);
  asset.clear();
  // The file is compared with what a save would write once it has been seen, before a test changes anything.
  Wait(100);
  EXPECT_EQ(boxes.Texts(), setup.complaints);
  boxes.boxes.clear();
}

WindowStage::~WindowStage() {
  const Toolkit::WeakPtr<Tesselor::MainView> observed(view);
  TakeDown();
  // The callbacks of boxes may hold the window.
  boxes.boxes.clear();
  view.Reset();
  EXPECT_FALSE(observed) << "something still holds the window";
  Toolkit::Clipboard::SetBackend(nullptr);
}

ContentNode& WindowStage::Node(const std::string& title) const {
  for (const auto& node : view->ContentNodes())
    if (node->Title() == title) return *node;
  throw std::runtime_error("there is no node " + title);
}

Toolkit::FrameworkElement& WindowStage::Pin(const ContentNode& node, const std::string& id) const {
  const Tesselor::NodePinData* pin = node.FindPin(id);
  const Tesselor::NodePinControl* control = pin ? node.FindPinControl(*pin) : nullptr;
  Toolkit::FrameworkElement* shape = control ? control->PinElement() : nullptr;
  if (!shape) throw std::runtime_error("there is no pin " + id);
  return *shape;
}

Tesselor::BaseField& WindowStage::Field(const ContentNode& node, const std::string& id) const {
  Tesselor::BaseField* field = node.FindField(id);
  if (!field) throw std::runtime_error("there is no field " + id);
  return *field;
}

std::string WindowStage::Exported() const {
  ContentNode* root = view->RootNode();
  const auto type = view->CurrentRoot();
  if (!root || !type || root->VisualParent() != Canvas().GetPanel()) return {};
  const bool saveAllFields = type->workspace && type->workspace->ExportDefaults;
  Tesselor::DocumentExport document(*root, view->ContentNodes(),
                                    saveAllFields ? Tesselor::FieldsToWrite::All : Tesselor::FieldsToWrite::Changed);
  return Tesselor::PrintJson(document.Build(view->GroupNodes(), view->CommentNodes(), type->MenuName).get());
}

void WindowStage::LookAt(const Toolkit::UIElement& element, float zoom) {
  Settle();
  Canvas().ResetViewTo(element.TransformToAncestor(Canvas().GetPanel())
                           .Map({element.ActualWidth() * 0.5f, element.ActualHeight() * 0.5f}));
  while (Canvas().GetZoom() > zoom * 1.001f) {
    const float before = Canvas().GetZoom();
    Wheel(Canvas(), -1);
    if (Canvas().GetZoom() == before) break;
  }
  Leave();
}

Point WindowStage::EmptySpot() const {
  const Toolkit::Rect box = BoxOf(Canvas());
  constexpr float Step = 20;
  for (float y = box.Bottom() - Step; y > box.y; y -= Step)
    for (float x = box.Right() - Step; x > box.x; x -= Step) {
      const Toolkit::UIElement* hit = view->HitTest({x, y});
      if (hit == Canvas().GetPanel() || hit == &Canvas()) return {x, y};
    }
  throw std::runtime_error("the canvas is covered");
}

Point WindowStage::ToWindow(Point onPanel) const {
  return Canvas().GetPanel()->TransformToAncestor(nullptr).Map(onPanel);
}

std::vector<std::string> WindowStage::NoticesShown() {
  Settle();
  std::vector<std::string> texts;
  for (const auto* text : All<Toolkit::TextBlock>(view->Notices()))
    if (text->GetName() == "Text") texts.emplace_back(text->GetText());
  return texts;
}

void WindowStage::Open(const std::string& path) {
  dialogs.path = path;
  Chord({Toolkit::Key::LeftCtrl, Toolkit::Key::O});
  dialogs.path.reset();
}

} // namespace TestSupport
