#pragma once

#include "CapturedBoxes.h"
#include "CapturedLog.h"
#include "toolkit/controls/Grid.h"
#include "toolkit/visual/Input.h"
#include "workspace/Workspace.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace TestSupport {

/// A workspace whose dictionary holds the given schemas, each a JSON object as text.
std::shared_ptr<Tesselor::Workspace> MakeWorkspace(const std::vector<std::string>& schemas);

/// All elements of a class at and below `root`, in tree order.
template <class T> void Collect(Toolkit::UIElement* root, std::vector<T*>& found) {
  if (T* element = Toolkit::DynamicCast<T>(root)) found.push_back(element);
  for (size_t i = 0; i < root->VisualChildCount(); ++i)
    if (Toolkit::UIElement* child = root->VisualChild(i)) Collect(child, found);
}
template <class T> std::vector<T*> All(Toolkit::UIElement* root) {
  std::vector<T*> found;
  Collect(root, found);
  return found;
}

/// A view of 1000 by 800 with one element in it, laid out and open to raw input, with a clock that stands still.
class EditorStage {
public:
  static constexpr float Width = 1000, Height = 800;

  explicit EditorStage(Toolkit::UIElement& element);
  ~EditorStage();

  /// Runs layout and what it leads to.
  void Settle();
  /// The middle of an element in the root's coordinates.
  Toolkit::Point MiddleOf(const Toolkit::UIElement& element) const;
  void Click(const Toolkit::UIElement& element);
  void Drag(Toolkit::MouseButton button, Toolkit::Point from, Toolkit::Point to);
  /// Lets time pass.
  void Wait(double milliseconds);

  Toolkit::Ptr<Toolkit::Grid> root;
  std::unique_ptr<Toolkit::InputState> input;

private:
  double now = 1000;
};

/// Base of the tests: boxes and log lines are kept, and toolkit warnings fail the test.
class EditorTest : public testing::Test {
protected:
  EditorTest();
  ~EditorTest() override;

  CapturedBoxes boxes;
  CapturedLog log;
};

} // namespace TestSupport
