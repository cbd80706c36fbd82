// Loads any JSON as an asset of one of the sample roots, and saves it; what was saved must load again.

#include "app/ComponentRegistration.h"
#include "document/AssetFile.h"
#include "document/ImportTarget.h"
#include "document/NodeImporterExporter.h"
#include "editor/MainView.h"
#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/GroupNode.h"
#include "platform/JsonFile.h"
#include "platform/LogFile.h"
#include "support/ToolkitEnvironment.h"
#include "toolkit/application/MessageBox.h"
#include "toolkit/base/Diagnostics.h"
#include "workspace/RootType.h"
#include "workspace/Workspace.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

using namespace Tesselor;

namespace {
MainView* view = nullptr;
std::string output;

void Start() {
  if (chdir(TESSELOR_DATA_DIR) != 0) std::abort();
  LogFile::SetSink([](std::string_view) {});
  Toolkit::SetLogHandler([](const char*, uint32_t, Toolkit::LogLevel, const char*, const char*) {});
  Toolkit::MessageBox::SetPresenter([](Toolkit::MessageBox::Request) {});
  TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
  view = Toolkit::MakePtr<MainView>().Detach();
  view->SetClientSize({1280, 720});
  output = "/tmp/tesselor-fuzz-" + std::to_string(getpid()) + ".json";
}

bool Save() {
  const RootType& root = *view->CurrentRoot();
  return NodeImporterExporter::ExportNodeTree(output, view->RootNode(), view->ContentNodes(), view->GroupNodes(),
                                              view->CommentNodes(), root.MenuName, root.workspace->ExportDefaults);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (!view) Start();
  if (size < 1) return 0;
  static const char* const roots[] = {"Quest", "Dialogue", "Character", "Sound bank", "Mixer"};
  // Seeds are plain files, so the root comes from the size and not from a byte of theirs.
  view->ChangeRootType(roots[size % 5]);
  const std::string text(reinterpret_cast<const char*>(data), size);
  JsonParseResult parsed = ParseJson(text);
  if (!parsed) return 0;
  ImportTarget target = view->MakeImportTarget();
  const bool loaded = NodeImporterExporter::ImportNodeTree(parsed.json.get(), view->CurrentRoot()->workspace, &target);
  if (loaded && Save()) {
    view->ClearDocument();
    const AssetFile saved = AssetFile::Read(output);
    const bool again = NodeImporterExporter::ImportNodeTree(saved.json.get(), view->CurrentRoot()->workspace, &target);
    if (!again) {
      std::fprintf(stderr, "what was saved does not load\n");
      std::abort();
    }
  }
  view->ClearDocument();
  return 0;
}
