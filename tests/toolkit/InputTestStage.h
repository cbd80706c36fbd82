#pragma once

#include "toolkit/MarkupTest.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/markup/DocumentCompiler.h"
#include "toolkit/visual/LayoutQueue.h"

#include <optional>

namespace Toolkit {

/// A black column of elements from markup on a stage without a window.
class InputStageTest : public MarkupTest {
protected:
  ~InputStageTest() override { TakeDown(); }
  void ShowColumn(const std::string& children, Size size) {
    TakeDown();
    root = Make<StackPanel>("StackPanel", " x:Name=\"Root\" Background=\"Black\">" + children + "</StackPanel>");
    ASSERT_TRUE(root);
    stage.emplace(*root, size);
    input = &stage->Input();
  }
  void TakeDown() {
    stage.reset();
    root.Reset();
  }

  Ptr<StackPanel> root;
  std::optional<TestSupport::Stage> stage;
  InputState* input = nullptr;
};

} // namespace Toolkit
