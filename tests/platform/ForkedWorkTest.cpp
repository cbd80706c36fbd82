#include "platform/ForkedWork.h"
#include "platform/OutOfMemory.h"
#include "toolkit/base/Dispatcher.h"

#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Tesselor::ForkedWork;
using Result = ForkedWork::Result;

constexpr int patience = 10000;

TEST(ForkedWork, TellsWhatTheChildMadeWhateverBecomesOfIt) {
  const std::string large(1 << 20, 'x');
  const struct {
    const char* name;
    std::function<Result()> work;
    Result expected;
  } cases[] = {
      {"a text", [&] { return large; }, large},
      {"no text", [] { return ""; }, ""},
      {"nothing", [] { return std::nullopt; }, std::nullopt},
      {"an end", []() -> Result { _exit(0); }, ""},
      {"a failure", []() -> Result { _exit(3); }, std::nullopt},
      {"an exception", []() -> Result { throw std::runtime_error("thrown"); }, std::nullopt},
      {"no memory", []() -> Result { return std::string(size_t(1) << 50, 'x'); }, std::nullopt},
  };
  rlimit cores{};
  getrlimit(RLIMIT_CORE, &cores);
  const rlimit noCore{0, cores.rlim_max};
  setrlimit(RLIMIT_CORE, &noCore);
  const std::new_handler former = std::get_new_handler();
  Tesselor::EndWhenOutOfMemory();
  testing::internal::CaptureStderr();
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto held = std::make_shared<int>();
    std::optional<Result> told;
    const auto work = ForkedWork::Start(c.work, [&told, held](Result result) { told = std::move(result); });
    ASSERT_TRUE(work);
    for (int i = 0; i < patience && !told; ++i) {
      Toolkit::Dispatcher::Current().RunDue();
      usleep(1000);
    }
    ASSERT_TRUE(told);
    EXPECT_TRUE(*told == c.expected);
    EXPECT_EQ(held.use_count(), 1) << "the callback is kept";
  }
  std::set_new_handler(former);
  setrlimit(RLIMIT_CORE, &cores);
  EXPECT_EQ(testing::internal::GetCapturedStderr().find("the editor ends"), std::string::npos);
}

TEST(ForkedWork, EndsWithAParentThatNeverReads) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t parent = fork();
  if (parent == 0) {
    close(ends[0]);
    ForkedWork::Start(
        [&]() -> Result {
          const pid_t self = getpid();
          if (write(ends[1], &self, sizeof self) < 0) _exit(1);
          // Until the parent is gone.
          usleep(100000);
          return std::string(1 << 20, 'x');
        },
        [](const Result&) {})
        .release();
    usleep(50000);
    _exit(0);
  }
  close(ends[1]);
  pid_t child = 0;
  ASSERT_EQ(read(ends[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
  // The child holds the last writing end.
  pollfd waiting{ends[0], POLLIN, 0};
  const bool hasEnded = poll(&waiting, 1, patience) == 1;
  EXPECT_TRUE(hasEnded);
  if (!hasEnded) kill(child, SIGKILL);
  waitpid(parent, nullptr, 0);
  close(ends[0]);
}

} // namespace
