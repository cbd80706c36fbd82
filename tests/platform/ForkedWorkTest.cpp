#include "platform/ForkedWork.h"

#include "toolkit/base/Dispatcher.h"

#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using Tesselor::ForkedWork;

class ForkedWorks : public testing::Test {
protected:
  std::unique_ptr<ForkedWork> Start(const std::function<ForkedWork::Result()>& work) {
    return ForkedWork::Start(work, [this](ForkedWork::Result result) { results.push_back(std::move(result)); });
  }
  /// Lets the loop run until something has ended, and a little longer.
  void Wait() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (results.empty() && std::chrono::steady_clock::now() < end) Toolkit::Dispatcher::Current().RunDue();
    for (int i = 0; i < 100; ++i) Toolkit::Dispatcher::Current().RunDue();
  }

  std::vector<ForkedWork::Result> results;
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
      {"signals that are the parent's",
       []() -> ForkedWork::Result {
         for (const int signal : {SIGTERM, SIGHUP, SIGINT}) raise(signal);
         return "lives";
       }},
  };
  const ForkedWork::Result expected[] = {text, std::nullopt, std::nullopt, "lives"};
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
  }
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

} // namespace
