#include "ToolkitEnvironment.h"
#include "app/ComponentRegistration.h"
#include "app/EmbeddedData.h"
#include "toolkit/application/Application.h"
#include "toolkit/application/ToolkitRegistration.h"
#include "toolkit/base/Diagnostics.h"
#include "toolkit/base/Type.h"
#include "toolkit/markup/GUI.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tesselor {
namespace {

std::vector<std::string>& Reports() {
  static std::vector<std::string> reports;
  return reports;
}

TEST(EmbeddedDocuments, AllLoadWithoutADiagnostic) {
  Toolkit::SetLogHandler([](const char* file, uint32_t line, Toolkit::LogLevel, const char*, const char* message) {
    Reports().push_back(std::string(file) + ":" + std::to_string(line) + ": " + message);
  });
  Toolkit::SetErrorHandler([](const char*, uint32_t, const char* message, bool) { Reports().push_back(message); });
  TestSupport::ToolkitEnvironment::Start(&RegisterComponents);
  const std::vector<std::string> expected{"App.xaml",
                                          "MainView.xaml",
                                          "FieldCheckbox.xaml",
                                          "FieldDictionary.xaml",
                                          "FieldSmallText.xaml",
                                          "FieldText.xaml",
                                          "FieldInt.xaml",
                                          "FieldList.xaml",
                                          "FieldMixed.xaml",
                                          "FieldEnum.xaml",
                                          "FieldEnumFilterable.xaml",
                                          "FieldIntSlider.xaml",
                                          "FieldFloat.xaml",
                                          "FieldRawJson.xaml",
                                          "FieldLabel.xaml",
                                          "PanelBaseField.xaml",
                                          "FieldFilePath.xaml",
                                          "FieldObject.xaml",
                                          "NodePin.xaml",
                                          "ContentNode.xaml",
                                          "ReferenceNode.xaml",
                                          "GroupNode.xaml",
                                          "CommentNode.xaml",
                                          "NodesMenu.xaml",
                                          "NodeSearchPanel.xaml",
                                          "NodeEditorCanvas.xaml",
                                          "NodePanel.xaml",
                                          "CreateNodeButton.xaml",
                                          "NodeCategoryHeader.xaml"};
  std::vector<std::string> names;
  for (const EmbeddedDocument& document : EmbeddedDocuments()) {
    names.push_back(document.name);
    const Toolkit::Type* type = Toolkit::GUI::ClassOf(document.name);
    ASSERT_TRUE(type) << document.name;
    // Each document belongs to the class of its name; a pin's class is that of its control.
    EXPECT_EQ(type->Name() + ".xaml", "Tesselor." + std::string(document.name));
    // The two with constructor arguments are made by the nodes menu only; their document compiles above.
    if (!type->CanCreate() || type->IsA(*Toolkit::TypeRegistry::Find(Toolkit::Symbol("Tesselor.App")))) continue;
    Toolkit::Ptr<Toolkit::Object> object = Toolkit::Ptr<Toolkit::Object>::Adopt(type->Create());
    EXPECT_TRUE(object) << document.name;
  }
  EXPECT_EQ(names, expected);
  Toolkit::SetLogHandler(nullptr);
  Toolkit::SetErrorHandler(nullptr);
  for (const std::string& report : Reports())
    // The window looks for workspaces, which stand in no test's directory.
    if (report.find("Workspaces directory not found") == std::string::npos) ADD_FAILURE() << report;
}

} // namespace
} // namespace Tesselor
