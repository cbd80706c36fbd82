#include "document/RescueStore.h"

#include "platform/ProcessIdentity.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tesselor {
namespace {

namespace fs = std::filesystem;

class RescueStores : public testing::Test {
protected:
  /// What another process does that has ended by then.
  template <class Run> void InAnotherProcess(const Run& run) {
    const pid_t child = fork();
    if (child == 0) {
      run();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(status, 0);
  }
  size_t FileCount() const {
    return static_cast<size_t>(std::distance(fs::directory_iterator(place), fs::directory_iterator()));
  }

  TestSupport::TemporaryDirectory directory;
  const fs::path place = directory.Path() / "state/rescue";
  /// A path may hold anything but a zero byte, and so may a text.
  const RescuedDocument document{"/a \"b\"\n\xff/quest.json", "Quest", "state 1"};
  const std::string text = "{\n\t\"a\": \"line\nend\"\n}\n";
};

TEST_F(RescueStores, GiveBackWhatAProcessLeftThatIsGone) {
  RescueStore here(place);
  ASSERT_TRUE(here.Write(document, "of this process"));
  EXPECT_TRUE(here.Abandoned().empty()) << "this process lives";
  InAnotherProcess([&] {
    RescueStore store(place);
    store.Write({}, "replaced");
    store.Write(document, text);
    store.SetAside({"", "Dialogue", ""}, "aside");
  });
  directory.Write("state/rescue/" + ProcessIdentity::Own() + "0.rescue", "{}");
  directory.Write("state/rescue/nonsense.rescue", "no header");
  directory.Write("state/rescue/other.txt", "{}");
  std::vector<RescueCopy> copies = here.Abandoned();
  ASSERT_EQ(copies.size(), 3u) << "one of them has the number of this process, and another start";
  std::erase_if(copies, [](const RescueCopy& copy) { return copy.document.root.empty(); });
  ASSERT_EQ(copies.size(), 2u);
  RescueCopy& copy = copies[copies[0].document.root == "Quest" ? 0 : 1];
  EXPECT_EQ(copy.document.path, document.path);
  EXPECT_EQ(copy.document.fileState, document.fileState);
  EXPECT_NEAR(static_cast<double>(copy.time), static_cast<double>(std::time(nullptr)), 60);
  RescueCopy twin = copy;
  EXPECT_TRUE(here.SetAside({"", "Quest", ""}, "first"));
  EXPECT_EQ(here.Claim(copy), text);
  EXPECT_TRUE(here.SetAside({"", "Quest", ""}, "second"));
  RescueStore other(place);
  EXPECT_EQ(other.Claim(twin), std::nullopt) << "one of two takes it";
  EXPECT_EQ(here.Abandoned().size(), 2u) << "what is claimed is offered by nobody else";
  RescueStore::Delete(copy);
  here.Remove();
  EXPECT_EQ(FileCount(), 6u) << "what one process sets aside stays apart";
}

TEST_F(RescueStores, OfferTheNewestFirst) {
  // Two of one second stand by their names.
  const char* headers[] = {R"({"root":"b","time":20})", R"({"root":"d","time":10})", R"({"root":"a","time":30})",
                           R"({"root":"c","time":20})"};
  for (size_t i = 0; i < std::size(headers); ++i)
    directory.Write("state/rescue/gone." + std::to_string(i) + ".rescue", headers[i] + std::string("\n{}"));
  std::string roots;
  for (const RescueCopy& copy : RescueStore(place).Abandoned()) roots += copy.document.root;
  EXPECT_EQ(roots, "abcd");
}

TEST_F(RescueStores, AreTheUsersAlone) {
  RescueStore store(place);
  EXPECT_TRUE(store.Abandoned().empty());
  ASSERT_TRUE(store.Write(document, text));
  for (const fs::path& made : {place, place.parent_path()})
    EXPECT_EQ(static_cast<unsigned>(fs::status(made).permissions()), 0700u) << made;
  RescueStore nowhere("/dev/null/rescue");
  EXPECT_FALSE(nowhere.Write(document, text));
  EXPECT_FALSE(nowhere.SetAside(document, text));
}

} // namespace
} // namespace Tesselor
