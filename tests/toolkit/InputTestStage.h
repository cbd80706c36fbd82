#pragma once

#include "toolkit/MarkupTestSupport.h"
#include "toolkit/controls/StackPanel.h"

namespace Toolkit {

/// A black column of elements from markup that is laid out and takes raw input.
class InputStageTest : public MarkupTest {
protected:
  void ShowColumn(const std::string& children, Size size) {
    TakeDown();
    root = Make<StackPanel>("StackPanel", " x:Name=\"Root\" Background=\"Black\">" + children + "</StackPanel>");
    ASSERT_TRUE(root);
    input = std::make_unique<InputState>(*root);
    root->AttachAsRoot();
    root->Measure(size);
    root->Arrange({0, 0, size.width, size.height});
    LayoutQueue::Current().Run();
  }
  void TearDown() override {
    TakeDown();
    MarkupTest::TearDown();
  }
  void TakeDown() {
    if (root) root->DetachAsRoot();
    input.reset();
    root.Reset();
  }

  Ptr<StackPanel> root;
  std::unique_ptr<InputState> input;
};

} // namespace Toolkit
