#include "values/ActionHistory.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using Tesselor::ActionHistory;

/// Writes down what is done to it.
class Recorded final : public Tesselor::IActionCommand {
public:
  Recorded(std::string& journal, std::string name, size_t bytes = 0)
      : journal(journal), name(std::move(name)), bytes(bytes) {}
  ~Recorded() override { journal += "-" + name + " "; }
  void Do() override { journal += "do" + name + " "; }
  void Undo() override { journal += "undo" + name + " "; }
  size_t HeldBytes() const override { return bytes; }

private:
  std::string& journal;
  std::string name;
  size_t bytes;
};

std::string Take(std::string& journal) { return std::exchange(journal, {}); }

TEST(ActionHistory, WalksBackAndForthWithoutDoingWhatIsPushed) {
  std::string journal;
  ActionHistory history;
  history.UndoLast();
  history.RedoLast();
  history.Push(std::make_unique<Recorded>(journal, "A"));
  history.Push(std::make_unique<Recorded>(journal, "B"));
  EXPECT_EQ(Take(journal), "");
  for (int i = 0; i < 3; ++i) history.UndoLast();
  EXPECT_EQ(Take(journal), "undoB undoA ");
  EXPECT_EQ(history.UndoneCount(), 2u);
  for (int i = 0; i < 3; ++i) history.RedoLast();
  EXPECT_EQ(Take(journal), "doA doB ");
  EXPECT_EQ(history.UndoneCount(), 0u);
}

TEST(ActionHistory, NamesEachStateOfTheDocumentAndComesBackToTheName) {
  std::string journal;
  ActionHistory history;
  int changes = 0;
  history.onChanged = [&] { ++changes; };
  const auto push = [&] { history.Push(std::make_unique<Recorded>(journal, "A")); };
  std::vector<uint64_t> states{history.State()};
  for (int i = 0; i < 3; ++i) {
    push();
    states.push_back(history.State());
  }
  for (size_t i = 3; i-- > 0;) {
    history.UndoLast();
    EXPECT_EQ(history.State(), states[i]);
  }
  history.RedoLast();
  EXPECT_EQ(history.State(), states[1]);
  EXPECT_EQ(changes, 7);
  history.NoteExtension();
  EXPECT_EQ(history.State(), states[1]) << "the newest step is undone";
  push();
  history.NoteExtension();
  EXPECT_EQ(std::count(states.begin(), states.end(), history.State()), 0) << "another step leads elsewhere";
  // The oldest state that can be reached is that of the newest step which is forgotten.
  const uint64_t reached = history.State();
  for (size_t i = 0; i < ActionHistory::capacity; ++i) push();
  for (size_t i = 0; i < ActionHistory::capacity; ++i) history.UndoLast();
  EXPECT_EQ(history.State(), reached);
  history.Clear();
  EXPECT_NE(history.State(), reached);
  EXPECT_NE(history.State(), 0u);
}

TEST(ActionHistory, ForgetsWhatWasUndoneWhenSomethingNewIsPushed) {
  std::string journal;
  ActionHistory history;
  for (const char* name : {"A", "B", "C"}) history.Push(std::make_unique<Recorded>(journal, name));
  history.UndoLast();
  history.UndoLast();
  Take(journal);
  history.Push(std::make_unique<Recorded>(journal, "D"));
  EXPECT_EQ(history.Size(), 2u);
  EXPECT_EQ(Take(journal), "-C -B ");
  history.RedoLast();
  history.UndoLast();
  history.UndoLast();
  EXPECT_EQ(Take(journal), "undoD undoA ");
  history.Clear();
  history.UndoLast();
  history.RedoLast();
  EXPECT_EQ(Take(journal), "-D -A ");
  EXPECT_EQ(history.UndoneCount(), 0u);
}

TEST(ActionHistory, LetsWhatAStepPushesFollowIt) {
  // As a box does whose text was being edited when its node comes or goes.
  class Pushing final : public Tesselor::IActionCommand {
  public:
    Pushing(ActionHistory& history, std::string& journal, std::string pusher)
        : history(history), journal(journal), pusher(std::move(pusher)) {}
    void Do() override { Step("do"); }
    void Undo() override { Step("undo"); }

  private:
    void Step(const std::string& name) {
      journal += name + "( ";
      if (name == pusher) history.Push(std::make_unique<Recorded>(journal, "B"));
      history.UndoLast();
      history.RedoLast();
      journal += ") ";
    }
    ActionHistory& history;
    std::string& journal;
    std::string pusher;
  };
  std::string journal;
  for (const auto& [pusher, expected] :
       {std::pair("undo", "undo( ) undoB undoA "), {"do", "undo( ) do( ) undoB undo( ) undoA "}}) {
    ActionHistory history;
    history.Push(std::make_unique<Recorded>(journal, "A"));
    history.Push(std::make_unique<Pushing>(history, journal, pusher));
    history.UndoLast();
    // What was undone can't be redone after what was pushed.
    history.RedoLast();
    EXPECT_EQ(history.UndoneCount(), 0u) << pusher;
    for (int i = 0; i < 3; ++i) history.UndoLast();
    EXPECT_EQ(Take(journal), expected);
    history.Clear();
    Take(journal);
  }
  // What a step pushes while it is run for the first time comes before it.
  ActionHistory history;
  history.Push(std::make_unique<Recorded>(journal, "A"));
  history.Run(std::make_unique<Pushing>(history, journal, "do"));
  EXPECT_EQ(history.Size(), 3u);
  Take(journal);
  for (int i = 0; i < 3; ++i) history.UndoLast();
  EXPECT_EQ(Take(journal), "undo( ) undoB undoA ");
}

TEST(ActionHistory, KeepsTheNewest512Commands) {
  std::string journal;
  ActionHistory history;
  for (int i = 0; i < 512; ++i) history.Push(std::make_unique<Recorded>(journal, std::to_string(i)));
  EXPECT_EQ(Take(journal), "");
  // The undone ones go before the oldest is considered.
  history.UndoLast();
  history.Push(std::make_unique<Recorded>(journal, "new"));
  EXPECT_EQ(Take(journal), "undo511 -511 ");
  history.Push(std::make_unique<Recorded>(journal, "newer"));
  EXPECT_EQ(Take(journal), "-0 ");
  EXPECT_EQ(history.Size(), ActionHistory::capacity);
  history.Clear();
}

TEST(ActionHistory, KeepsWhatTheByteBudgetHoldsAndTheNewestStepInAnyCase) {
  constexpr size_t budget = ActionHistory::byteBudget;
  const struct {
    std::vector<size_t> pushed;
    size_t kept;
  } cases[] = {
      {{budget, 0}, 2},
      {{budget, 1}, 1},
      {{0, budget / 2, budget / 2}, 3},
      {{0, budget / 2, budget / 2, 1}, 2},
      {{0, 0, budget + 1}, 1},
      {{0, budget + 1, 0, 0}, 2},
  };
  for (const auto& c : cases) {
    std::string journal;
    ActionHistory history;
    for (const size_t bytes : c.pushed) history.Push(std::make_unique<Recorded>(journal, "A", bytes));
    EXPECT_EQ(history.Size(), c.kept) << testing::PrintToString(c.pushed);
  }
}

} // namespace
