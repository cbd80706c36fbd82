#include "platform/ProcessIdentity.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Tesselor::ProcessIdentity;

std::string ReadFrom(int descriptor) {
  char text[64];
  const ssize_t count = read(descriptor, text, sizeof text);
  return std::string(text, count > 0 ? static_cast<size_t>(count) : 0);
}

TEST(ProcessIdentity, LivesUntilTheProcessEndsWhetherOrNotItsParentAsks) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    const std::string name = ProcessIdentity::Own();
    if (write(ends[1], name.data(), name.size()) < 0) _exit(1);
    for (;;) pause();
  }
  const std::string name = ReadFrom(ends[0]);
  EXPECT_TRUE(ProcessIdentity::IsAlive(name)) << name;
  EXPECT_FALSE(ProcessIdentity::IsAlive(name + "0")) << "another run of that number";

  kill(child, SIGKILL);
  siginfo_t state{};
  ASSERT_EQ(waitid(P_PID, static_cast<id_t>(child), &state, WEXITED | WNOWAIT), 0);
  EXPECT_FALSE(ProcessIdentity::IsAlive(name)) << "its parent has not asked for it yet";
  waitpid(child, nullptr, 0);
  EXPECT_FALSE(ProcessIdentity::IsAlive(name));
  close(ends[0]);
  close(ends[1]);
}

} // namespace
