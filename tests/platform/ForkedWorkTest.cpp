#include "platform/ForkedWork.h"
#include "platform/OutOfMemory.h"
#include "toolkit/base/Dispatcher.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Tesselor::ForkedWork;

class ForkedWorks : public testing::Test {
protected:
  std::unique_ptr<ForkedWork> Start(const std::function<ForkedWork::Result()>& work) {
    return ForkedWork::Start(work,
                             [this, held = held](ForkedWork::Result result) { results.push_back(std::move(result)); });
  }
  /// Lets the loop run until something has ended, and a little longer.
  void Wait() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (results.empty() && std::chrono::steady_clock::now() < end) Toolkit::Dispatcher::Current().RunDue();
    for (int i = 0; i < 100; ++i) Toolkit::Dispatcher::Current().RunDue();
  }

  std::vector<ForkedWork::Result> results;
  /// By the callbacks that are still there, too.
  const std::shared_ptr<int> held = std::make_shared<int>();
};

TEST_F(ForkedWorks, GivesWhatTheChildReturnsHoweverOftenItIsInterrupted) {
  std::string text;
  while (text.size() < 8'000'000) text += std::to_string(text.size());
  const std::pair<const char*, std::function<ForkedWork::Result()>> cases[] = {
      {"a long text",
       [&text]() -> ForkedWork::Result {
         struct sigaction action {};
         action.sa_handler = [](int) {};
         sigaction(SIGALRM, &action, nullptr);
         const itimerval often{{0, 200}, {0, 200}};
         setitimer(ITIMER_REAL, &often, nullptr);
         return text;
       }},
      {"nothing", [] { return ForkedWork::Result(); }},
      {"a death", []() -> ForkedWork::Result { _exit(3); }},
      {"an exception", []() -> ForkedWork::Result { throw std::runtime_error("thrown"); }},
      {"no memory", []() -> ForkedWork::Result { return std::string(size_t(1) << 50, 'x'); }},
      {"signals that are the parent's",
       []() -> ForkedWork::Result {
         for (const int signal : {SIGTERM, SIGHUP, SIGINT}) raise(signal);
         return "lives";
       }},
  };
  const ForkedWork::Result expected[] = {text, std::nullopt, std::nullopt, std::nullopt, std::nullopt, "lives"};
  rlimit cores{};
  getrlimit(RLIMIT_CORE, &cores);
  const rlimit noCore{0, cores.rlim_max};
  setrlimit(RLIMIT_CORE, &noCore);
  const std::new_handler former = std::get_new_handler();
  Tesselor::EndWhenOutOfMemory();
  testing::internal::CaptureStderr();
  for (size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE(cases[i].first);
    results.clear();
    const auto work = Start(cases[i].second);
    ASSERT_TRUE(work);
    EXPECT_TRUE(work->IsRunning());
    Wait();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_TRUE(results[0] == expected[i]);
    EXPECT_FALSE(work->IsRunning());
    EXPECT_EQ(held.use_count(), 1) << "the callback is kept";
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr().find("the editor ends"), std::string::npos);
  std::set_new_handler(former);
  setrlimit(RLIMIT_CORE, &cores);
}

TEST_F(ForkedWorks, EndsOnceByWaitingAndNeverWhenItIsLetGo) {
  auto work = Start([] { return ForkedWork::Result(""); });
  work->Finish();
  EXPECT_EQ(results, std::vector<ForkedWork::Result>{""});
  work->Finish();
  Wait();
  EXPECT_EQ(results.size(), 1u);
  results.clear();
  work = Start([]() -> ForkedWork::Result {
    alarm(60);
    for (;;) pause();
  });
  work.reset();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
  for (int i = 0; i < 100; ++i) Toolkit::Dispatcher::Current().RunDue();
  EXPECT_TRUE(results.empty());
}

TEST_F(ForkedWorks, EndsWithAParentThatNeverReads) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t parent = fork();
  if (parent == 0) {
    close(ends[0]);
    ForkedWork::Start(
        [&]() -> ForkedWork::Result {
          const pid_t self = getpid();
          if (write(ends[1], &self, sizeof self) < 0) _exit(1);
          // Until the parent is gone.
          usleep(100000);
          return std::string(1 << 20, 'x');
        },
        [](const ForkedWork::Result&) {})
        .release();
    usleep(50000);
    _exit(0);
  }
  close(ends[1]);
  pid_t child = 0;
  ASSERT_EQ(read(ends[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
  // The child holds the last writing end.
  pollfd waiting{ends[0], POLLIN, 0};
  const bool hasEnded = poll(&waiting, 1, 10000) == 1;
  EXPECT_TRUE(hasEnded);
  if (!hasEnded) kill(child, SIGKILL);
  waitpid(parent, nullptr, 0);
  close(ends[0]);
}

} // namespace
