#include "app/AppLauncher.h"

#include "app/ComponentRegistration.h"
#include "app/EmbeddedData.h"
#include "platform/FileDialogs.h"
#include "platform/TextureRoot.h"
#include "toolkit/application/ImageFiles.h"
#include "toolkit/markup/GUI.h"
#include "toolkit/text/FontCollection.h"

#include <string_view>

namespace Tesselor {

namespace {
std::string_view FindDocument(std::string_view name) {
  for (const EmbeddedDocument& document : EmbeddedDocuments())
    if (name == document.name) return {document.text, document.size};
  for (const EmbeddedDocument& document : EmbeddedThemeDocuments())
    if (name == document.name) return {document.text, document.size};
  return {};
}
} // namespace

void AppLauncher::RegisterComponents() { Tesselor::RegisterComponents(); }

void AppLauncher::InstallProviders() {
  Toolkit::GUI::SetDocumentProvider(&FindDocument);
  Toolkit::FontCollection& fonts = Toolkit::FontCollection::Instance();
  const char* family = EmbeddedFontFamily();
  fonts.Register(family, Toolkit::FontWeight::Normal, Toolkit::FontStyle::Normal, EmbeddedFontRegular());
  fonts.Register(family, Toolkit::FontWeight::Bold, Toolkit::FontStyle::Normal, EmbeddedFontBold());
  fonts.Register(family, Toolkit::FontWeight::Normal, Toolkit::FontStyle::Italic, EmbeddedFontItalic());
  Toolkit::ImageFiles::SetRoot(FindTextureRoot());
  FileDialogs::SetWhileOpen(&Toolkit::Launcher::TurnWhileWaiting);
}

} // namespace Tesselor
