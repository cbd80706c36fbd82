#pragma once

#include "document/ImportTarget.h"
#include "graph/Graph.h"
#include "nodes/CommentNode.h"
#include "nodes/GroupNode.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/RootType.h"

#include <memory>
#include <string>
#include <vector>

namespace TestSupport {

/// A graph on a bare canvas of 2000 by 1000 that is laid out, without a window.
class TestGraph {
public:
  static constexpr float Width = 2000;
  static constexpr float Height = 1000;

  explicit TestGraph(std::string rootNodeType = "Node") {
    target.root = std::make_shared<Tesselor::RootType>();
    target.root->RootNodeType = std::move(rootNodeType);
    target.onLaidOut = [this](std::vector<Tesselor::MoveRecord>) { ++autoPositions; };
    canvas->SetWidth(Width);
    canvas->SetHeight(Height);
    canvas->AttachAsRoot();
    Layout();
  }
  ~TestGraph() {
    graph.Clear();
    canvas->DetachAsRoot();
    canvas->ClearChildren();
  }
  TestGraph(const TestGraph&) = delete;
  TestGraph& operator=(const TestGraph&) = delete;

  Tesselor::Graph* operator->() { return &graph; }
  Tesselor::Graph& operator*() { return graph; }

  void Layout() {
    canvas->Measure({Width, Height});
    canvas->Arrange({0, 0, Width, Height});
    canvas->UpdateLayout();
  }
  static void Place(Toolkit::UIElement& element, float left, float top) {
    Toolkit::Canvas::SetLeft(&element, left);
    Toolkit::Canvas::SetTop(&element, top);
  }
  /// The first node of that title; null if there is none.
  Tesselor::ContentNode* Find(std::string_view title) const {
    for (const auto& node : graph.ContentNodes())
      if (node->Title() == title) return node.Get();
    return nullptr;
  }

  Toolkit::Ptr<Toolkit::Canvas> canvas = Toolkit::MakePtr<Toolkit::Canvas>();
  Tesselor::Graph graph{*canvas};
  Tesselor::ImportTarget target{graph, nullptr, {}};
  int autoPositions = 0;
};

} // namespace TestSupport
