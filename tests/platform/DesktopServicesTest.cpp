#include "platform/Clipboard.h"
#include "platform/ExecutableDirectory.h"
#include "platform/FileDialogs.h"
#include "platform/TextureRoot.h"
#include "platform/Uuid.h"
#include "support/CapturedBoxes.h"
#include "support/CapturedLog.h"
#include "support/MemoryClipboard.h"
#include "support/TemporaryDirectory.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

using Tesselor::Clipboard;
using Tesselor::ExecutableDirectory;
using TestSupport::CapturedLog;

TEST(Clipboard, CarriesTextUpToAZeroByteAndTellsEachFailureInOneLogLine) {
  CapturedLog log;
  Clipboard::SetText("lost");
  EXPECT_EQ(Clipboard::GetText(), "");
  TestSupport::MemoryClipboard desktop;
  Toolkit::Clipboard::SetBackend(&desktop);
  EXPECT_EQ(Clipboard::GetText(), "");
  desktop.isBusy = true;
  Clipboard::SetText("refused");
  EXPECT_EQ(log.lines, (std::vector<std::string>{"Unable to open the clipboard", "Unable to open clipboard",
                                                 "Unable to get clipboard", "Unable to set clipboard data"}));
  desktop.isBusy = false;
  Clipboard::SetText(std::string("ab\0c", 4));
  EXPECT_EQ(desktop.text, "ab");
  desktop.text = std::string("d\0e", 3);
  EXPECT_EQ(Clipboard::GetText(), "d");
  Clipboard::SetText("");
  EXPECT_EQ(desktop.text, "");
  Toolkit::Clipboard::SetBackend(nullptr);
  EXPECT_EQ(log.lines.size(), 4u);
}

TEST(Uuid, HasTheFormOfARandomUuid) {
  // "x" stands for any digit, "v" for one with the variant's bits.
  const std::string form = "xxxxxxxx-xxxx-4xxx-vxxx-xxxxxxxxxxxx";
  const auto fits = [](char c, char wanted) {
    const std::string_view digits = wanted == 'v' ? "89ab" : "0123456789abcdef";
    return wanted == 'x' || wanted == 'v' ? digits.find(c) != std::string_view::npos : c == wanted;
  };
  std::set<std::string> all;
  for (int i = 0; i < 500; ++i) {
    for (const std::string& uuid : {Tesselor::GenerateUuid(), Tesselor::GenerateSystemUuid()}) {
      EXPECT_EQ(uuid.size(), form.size());
      EXPECT_TRUE(std::equal(uuid.begin(), uuid.end(), form.begin(), form.end(), fits)) << uuid;
      EXPECT_TRUE(all.insert(uuid).second) << uuid;
    }
  }
}

TEST(ExecutableDirectory, IsTheProgramsAbsoluteDirectory) {
  TestSupport::TemporaryDirectory directory;
  TestSupport::CurrentDirectoryScope current(directory.Path());
  ExecutableDirectory::SetFromProgram("/opt/editor/bin/tesselor");
  EXPECT_EQ(ExecutableDirectory::Get(), "/opt/editor/bin");
  ExecutableDirectory::SetFromProgram("bin/tesselor");
  EXPECT_EQ(ExecutableDirectory::Get(), std::filesystem::current_path().string() + "/bin");
  ExecutableDirectory::SetFromProgram("found-along-the-search-path");
  EXPECT_EQ(ExecutableDirectory::Get(), std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
  ExecutableDirectory::Set({});
}

TEST(TextureRoot, PrefersTheCurrentDirectoryToTheInstalledData) {
  TestSupport::TemporaryDirectory directory;
  TestSupport::CurrentDirectoryScope current(directory.Path());
  std::filesystem::create_directories(directory / "bin");
  EXPECT_EQ(Tesselor::FindTextureRoot(), "");
  ExecutableDirectory::Set(directory / "bin");
  EXPECT_EQ(Tesselor::FindTextureRoot(), "");
  std::filesystem::create_directories(directory / "Data");
  EXPECT_EQ(Tesselor::FindTextureRoot(), directory.Path().string() + "/bin/../Data");
  directory.Write("Assets", "no directory");
  EXPECT_EQ(Tesselor::FindTextureRoot(), directory.Path().string() + "/bin/../Data");
  std::filesystem::remove("Assets");
  std::filesystem::create_directories("Assets");
  EXPECT_EQ(Tesselor::FindTextureRoot(), "");
  ExecutableDirectory::Set({});
}

TEST(FileDialogs, CountAMissingModuleAsCancelledAndTellTheUser) {
  ExecutableDirectory::Set({});
  TestSupport::CapturedLog log;
  TestSupport::CapturedBoxes boxes;
  EXPECT_EQ(Tesselor::FileDialogs::Open("json"), std::nullopt);
  EXPECT_EQ(Tesselor::FileDialogs::Save("json"), std::nullopt);
  const std::string line = "No file dialog can be shown: libtesselor_filedialogs.so is missing or can't be loaded";
  EXPECT_EQ(log.lines, (std::vector<std::string>{line, line}));
  const std::string box = "No File Dialog: Files can't be chosen here: the module with the desktop's file dialogs, "
                          "libtesselor_filedialogs.so, is missing or can't be loaded.";
  EXPECT_EQ(boxes.Texts(), (std::vector<std::string>{box, box}));
}

} // namespace
