#pragma once

#include "nodes/CommentNode.h"
#include "nodes/ContentNode.h"
#include "nodes/DocumentView.h"
#include "nodes/GroupNode.h"
#include "nodes/NodeIdIndex.h"
#include "toolkit/controls/Canvas.h"
#include "workspace/RootType.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace TestSupport {

/// A document without a window: nodes stand on a bare canvas of 2000 by 1000 that is laid out, and connections are
/// made as pins allow them.
class TestDocumentView : public Tesselor::DocumentView {
public:
  template <class T> using List = std::vector<Toolkit::Ptr<T>>;
  static constexpr float Width = 2000;
  static constexpr float Height = 1000;

  explicit TestDocumentView(std::string rootNodeType) : root(std::make_shared<Tesselor::RootType>()) {
    root->RootNodeType = std::move(rootNodeType);
    canvas->AttachAsRoot();
    Layout();
  }
  ~TestDocumentView() override {
    for (const auto& node : nodes) node->ForgetConnections();
    index.Clear();
    canvas->DetachAsRoot();
    canvas->ClearChildren();
  }
  TestDocumentView(const TestDocumentView&) = delete;
  TestDocumentView& operator=(const TestDocumentView&) = delete;

  const List<Tesselor::ContentNode>& ContentNodes() const override { return nodes; }
  const List<Tesselor::GroupNode>& GroupNodes() const override { return groups; }
  const List<Tesselor::CommentNode>& CommentNodes() const override { return comments; }

  void AddNode(Tesselor::ContentNode& node, float x, float y, bool select) override {
    node.SetDataContext(&node);
    nodes.emplace_back(&node);
    index.Add(node);
    canvas->AddChild(&node);
    node.SetSelected(select);
    Place(node, x + Width / 2, y + Height / 2);
  }
  Tesselor::GroupNode& AddGroupNode(float x, float y) override { return AddFrame(groups, x, y); }
  Tesselor::CommentNode& AddCommentNode(float x, float y) override { return AddFrame(comments, x, y); }
  void SetRootNode(Tesselor::ContentNode& node) override {
    rootNode = &node;
    node.SetTitle("[ROOT] " + node.Blueprint().title);
  }

  Tesselor::ContentNode* FindNodeById(std::string_view nodeId) const override { return index.Find(nodeId); }
  std::vector<Tesselor::PendingConnection>& PendingConnections() override { return pending; }
  void CompletePendingConnections() override {
    Layout();
    std::set<Tesselor::NodePinData*> parents;
    for (const auto& entry : pending)
      if (Tesselor::NodePinData::CanConnect(*entry.childPin, *entry.parentPin)) {
        entry.childPin->Join(*entry.parentPin);
        parents.insert(entry.parentPin);
      }
    for (Tesselor::NodePinData* pin : parents) pin->RefreshChildOrder();
    pending.clear();
  }
  void AutoPosition(bool) override { ++autoPositions; }
  void RefreshConnectionsOf(const Tesselor::ContentNode&) override {}
  void ClearHistory() override {}
  std::shared_ptr<Tesselor::RootType> CurrentRoot() const override { return root; }

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
    for (const auto& node : nodes)
      if (node->Title() == title) return node.Get();
    return nullptr;
  }

  Toolkit::Ptr<Toolkit::Canvas> canvas = Toolkit::MakePtr<Toolkit::Canvas>();
  List<Tesselor::ContentNode> nodes;
  List<Tesselor::GroupNode> groups;
  List<Tesselor::CommentNode> comments;
  Tesselor::NodeIdIndex index;
  std::vector<Tesselor::PendingConnection> pending;
  Toolkit::Ptr<Tesselor::ContentNode> rootNode;
  std::shared_ptr<Tesselor::RootType> root;
  int autoPositions = 0;

private:
  template <class T> T& AddFrame(List<T>& list, float x, float y) {
    list.push_back(Toolkit::MakePtr<T>());
    T& frame = *list.back();
    frame.SetDataContext(&frame);
    canvas->AddChild(&frame);
    Place(frame, x, y);
    return frame;
  }
};

} // namespace TestSupport
