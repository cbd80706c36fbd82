#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "TemporaryDirectory.h"
#include "ToolkitEnvironment.h"
#include "app/ComponentRegistration.h"
#include "document/ImportTarget.h"
#include "document/NodeImporterExporter.h"
#include "editor/MainView.h"
#include "editor/NodeEditorCanvas.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/RootType.h"

#include <gtest/gtest.h>

namespace Tesselor {
namespace {

TEST(DocumentLifetime, LeavesNoObjectBehindWhenTheNextDocumentComes) {
  TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
  const TestSupport::CurrentDirectoryScope scope(TESSELOR_DATA_DIR);
  TestSupport::CapturedLog log;
  TestSupport::CapturedBoxes boxes;
  Toolkit::Ptr<MainView> view = Toolkit::MakePtr<MainView>();
  view->SetClientSize({1280, 720});
  view->ChangeRootType("Quest");
  auto load = [&](const char* file) {
    ImportTarget target = view->MakeImportTarget();
    const bool loaded = NodeImporterExporter::ImportNodeTree(file, view->CurrentRoot()->workspace, &target);
    EXPECT_TRUE(loaded) << file;
    EXPECT_GT(view->ContentNodes().size(), 30u);
    view->ClearDocument();
    return Toolkit::Object::LiveCount();
  };
  // The first load fills what is made once, such as compiled documents.
  load("samples/quest_chain.json");
  const size_t after = load("samples/quest.json");
  load("samples/quest_chain.json");
  EXPECT_EQ(load("samples/quest.json"), after);
  EXPECT_TRUE(view->GetGraph().Connections().GetConnections().empty());
  EXPECT_EQ(view->GetGraph().FindNodeById("5790f82e-c1d3-4cff-aa3a-f4d46b0a18e8"), nullptr);
  view->DetachAsRoot();
}

} // namespace
} // namespace Tesselor
