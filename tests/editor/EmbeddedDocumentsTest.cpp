#include "EditorTest.h"
#include "app/EmbeddedData.h"

namespace Tesselor {
namespace {

class EmbeddedDocumentsTest : public TestSupport::EditorTest {};

TEST_F(EmbeddedDocumentsTest, LoadWithoutADiagnostic) {
  Toolkit::SetErrorHandler([](const char*, uint32_t, const char* message, bool) { ADD_FAILURE() << message; });
  EXPECT_GT(EmbeddedDocuments().size(), 20u);
  for (const EmbeddedDocument& document : EmbeddedDocuments()) {
    const Toolkit::Type* type = Toolkit::GUI::ClassOf(document.name);
    ASSERT_TRUE(type) << document.name;
    // Each document belongs to the class of its name; a pin's class is that of its control.
    EXPECT_EQ(type->Name() + ".xaml", "Tesselor." + std::string(document.name));
    // The two with constructor arguments are made by the nodes menu only; their document compiles above.
    if (!type->CanCreate() || type->IsA(*Toolkit::TypeRegistry::Find(Toolkit::Symbol("Tesselor.App")))) continue;
    EXPECT_TRUE(Toolkit::Ptr<Toolkit::Object>::Adopt(type->Create())) << document.name;
  }
  Toolkit::SetErrorHandler(nullptr);
}

} // namespace
} // namespace Tesselor
