#pragma once

#include "WindowStage.h"

#include <gtest/gtest.h>

namespace TestSupport {

/// The window with a file in it, whose unsaved work and former versions are kept.
class KeptFileTest : public testing::Test {
protected:
  KeptFileTest() : window("quest"), view(window.View()) { view.KeepWork(state.Path()); }

  /// An edit that no other one is joined with.
  void Nudge() {
    window.Focus(&view.GetGraph().Panel());
    view.GetGraph().Selected().Clear();
    view.GetGraph().Selected().Add(window.Node("The nest"));
    window.Press(Toolkit::Key::Right);
  }
  using Texts = std::vector<std::string>;

  TemporaryDirectory state;
  WindowStage window;
  Tesselor::MainView& view;
};

} // namespace TestSupport
