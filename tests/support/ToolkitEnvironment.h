#pragma once

#include "app/EmbeddedData.h"
#include "toolkit/application/Application.h"
#include "toolkit/application/ToolkitRegistration.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/text/FontCollection.h"
#include "toolkit/visual/LayoutQueue.h"

#include <string_view>

namespace TestSupport {

/// Stands for the application's class in documents.
class TestApplication : public Toolkit::Application {
public:
  static const Toolkit::Type& StaticType() {
    static const Toolkit::Type& type = Toolkit::Reflection::MakeType<TestApplication, Toolkit::Application>(
        "Tesselor.App", &TestApplication::Describe);
    return type;
  }
  const Toolkit::Type& GetType() const override { return StaticType(); }

private:
  static void Describe(Toolkit::TypeBuilder<TestApplication>&) {}
};

/// The toolkit as the program sets it up: its classes, the embedded documents and fonts, and the resources of the
/// application document. Made once per test program, before the first toolkit object; `registerClasses` adds the
/// classes of the editor's rooms that the test links.
class ToolkitEnvironment {
public:
  static void Start(void (*registerClasses)() = nullptr) {
    static bool started = false;
    if (started) return;
    started = true;
    Toolkit::RegisterToolkitTypes();
    Toolkit::FontCollection& fonts = Toolkit::FontCollection::Instance();
    const char* family = Tesselor::EmbeddedFontFamily();
    fonts.Register(family, Toolkit::FontWeight::Normal, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontRegular());
    fonts.Register(family, Toolkit::FontWeight::Bold, Toolkit::FontStyle::Normal, Tesselor::EmbeddedFontBold());
    fonts.Register(family, Toolkit::FontWeight::Normal, Toolkit::FontStyle::Italic, Tesselor::EmbeddedFontItalic());
    Toolkit::GUI::SetDocumentProvider(&FindDocument);
    if (registerClasses) registerClasses();
    // The document's own class belongs to the program's top, which most tests do not link.
    if (!Toolkit::TypeRegistry::Find(Toolkit::Symbol("Tesselor.App"))) TestApplication::StaticType();
    // It stays alive as long as the test program.
    Toolkit::GUI::Load("App.xaml").Detach();
  }

private:
  static std::string_view FindDocument(std::string_view name) {
    for (const Tesselor::EmbeddedDocument& document : Tesselor::EmbeddedDocuments())
      if (name == document.name) return {document.text, document.size};
    for (const Tesselor::EmbeddedDocument& document : Tesselor::EmbeddedThemeDocuments())
      if (name == document.name) return {document.text, document.size};
    return {};
  }
};

} // namespace TestSupport
