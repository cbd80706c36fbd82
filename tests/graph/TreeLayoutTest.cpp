#include "graph/TreeLayout.h"
#include "graph/GraphTest.h"

namespace Tesselor {

class TreeLayouts : public TestSupport::GraphTest {
protected:
  std::vector<MoveRecord> Run(ContentNode& start, TreeLayout::Order order = TreeLayout::Order::ByHeight) {
    return TreeLayout(order).Run(start);
  }
  static Toolkit::Rect BoxOf(const ContentNode& node) { return node.Bounds(); }
  static std::vector<ContentNode*> NodesOf(const std::vector<MoveRecord>& records) {
    std::vector<ContentNode*> nodes;
    for (const MoveRecord& record : records) nodes.push_back(static_cast<ContentNode*>(record.node.Get()));
    return nodes;
  }
};

TEST_F(TreeLayouts, CentresChildrenOnTheirParent) {
  ContentNode& root = AddAt("A", 100, 1000);
  std::vector<ContentNode*> children;
  for (const float top : {30.0f, 10.0f, 20.0f}) Connect(root, *children.emplace_back(&AddAt("A", 7, top)));
  const std::vector<MoveRecord> records = Run(root);
  EXPECT_EQ(NodesOf(records), (std::vector<ContentNode*>{&root, children[1], children[2], children[0]}));
  const float height = root.ActualHeight();
  ASSERT_GT(height, 0);
  const float first = 1000 + height / 2 - (3 * height + 160) / 2;
  for (size_t i = 0; i < 3; ++i) {
    const Toolkit::Rect box = BoxOf(*NodesOf(records)[i + 1]);
    EXPECT_NEAR(box.y, first + static_cast<float>(i) * (height + 80), 1e-2);
    EXPECT_NEAR(box.x, 100 + root.ActualWidth() + 300, 1e-2);
  }
  EXPECT_EQ(BoxOf(root).x, 100);
  EXPECT_EQ(BoxOf(root).y, 1000);
  EXPECT_EQ(records[1].oldLeft, 7);
  EXPECT_EQ(records[1].oldTop, 10);
  EXPECT_EQ(records[1].newLeft, BoxOf(*children[1]).x);
  EXPECT_EQ(records[1].newTop, BoxOf(*children[1]).y);
}

TEST_F(TreeLayouts, KeepsColumnsAsWideAsTheirWidestNodeAndBranchesApart) {
  ContentNode& root = AddAt("A", 100, 1000);
  ContentNode& upper = AddAt("A", 0, 1);
  ContentNode& lower = AddAt("A", 0, 2);
  lower.SetTitle("a title that makes this node by far the widest one of its column");
  Connect(root, upper);
  Connect(root, lower);
  std::vector<ContentNode*> leaves;
  for (int i = 0; i < 4; ++i)
    Connect(i < 3 ? upper : lower, *leaves.emplace_back(&AddAt("A", 0, static_cast<float>(i))));
  Run(root);
  const float column = BoxOf(lower).Right() + 300;
  const float height = root.ActualHeight();
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_NEAR(BoxOf(*leaves[i]).x, column, 1e-2);
    if (i > 0) {
      EXPECT_GE(BoxOf(*leaves[i]).y - BoxOf(*leaves[i - 1]).Bottom(), 80 - 1e-2);
    }
  }
  // A branch takes the height of what hangs on it: the lower one stands below the upper one's leaves.
  EXPECT_NEAR(BoxOf(lower).y - BoxOf(upper).y, 3 * height + 160 + 80, 1e-2);
  EXPECT_NEAR(BoxOf(*leaves[1]).y + height / 2, BoxOf(upper).y + height / 2, 1e-2);
}

TEST_F(TreeLayouts, OrdersChildrenByHeightOrByTheFile) {
  ContentNode& root = AddAt("A", 0, 0);
  std::vector<ContentNode*> children;
  const int indices[] = {1, -1, 0, -1};
  for (int i = 0; i < 4; ++i) {
    Connect(root, *children.emplace_back(&AddAt("A", 0, static_cast<float>(i))));
    children.back()->importIndex = indices[i];
  }
  const std::vector<ContentNode*> expected{&root, children[2], children[0], children[1], children[3]};
  EXPECT_EQ(NodesOf(Run(root, TreeLayout::Order::AsImported)), expected);
  // The layout has turned the heights around, and goes by them now.
  EXPECT_EQ(NodesOf(Run(root)), expected);
}

TEST_F(TreeLayouts, PlaceEachNodeOnceWhateverLeadsToIt) {
  ContentNode& root = AddAt("A", 0, 0);
  ContentNode& left = Add("A");
  ContentNode& right = Add("A");
  ContentNode& shared = Add("A");
  ContentNode& apart = AddAt("A", 1234, 5678);
  Connect(root, left);
  Connect(root, right);
  Connect(left, shared);
  Connect(right, shared);
  Connect(shared, root);
  EXPECT_EQ(Run(root).size(), 4u);
  EXPECT_EQ(BoxOf(apart).x, 1234);
  EXPECT_GT(BoxOf(shared).x, BoxOf(left).x);
}

} // namespace Tesselor
