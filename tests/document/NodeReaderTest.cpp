// What reading leaves in the nodes beside what a save writes again.
#include "document/NodeReader.h"
#include "DocumentTest.h"
#include "toolkit/controls/Canvas.h"

#include <string>
#include <vector>

namespace Tesselor {

class NodeReading : public TestSupport::DocumentTest {};

TEST_F(NodeReading, SelectsNewNodesIfItIsAskedTo) {
  for (const NewNodes newNodes : {NewNodes::Unselected, NewNodes::Selected}) {
    StartView("Doc");
    NodeReader reader(**view, *workspace, newNodes);
    const Toolkit::Ptr<ContentNode> node = workspace->nodeDictionary->CreateNode("Doc", true);
    const JsonPtr json(cJSON_Parse(R"({"One": {}, "Items": [{}, {"$Link": true, "Children": [{}]}], "unknown": {}})"));
    node->Deserialize(json.get(), reader);
    EXPECT_EQ((*view)->ContentNodes().size(), 5u);
    for (const auto& child : (*view)->ContentNodes())
      EXPECT_EQ((*view)->Selected().Contains(*child), newNodes == NewNodes::Selected) << child->Title();
  }
}

TEST_F(NodeReading, RemembersThePositionInTheArray) {
  ASSERT_TRUE(Import("{'Items':[{},{'$Link':true,'Children':[{},{}]},{}],'One':{}}"));
  std::vector<int32_t> indices;
  for (const auto& node : (*view)->ContentNodes()) indices.push_back(node->importIndex);
  EXPECT_EQ(indices, (std::vector<int32_t>{-1, 0, 1, 0, 1, 2, -1}));
}

TEST_F(NodeReading, TakesTheNameOfANode) {
  ASSERT_TRUE(Import("{'name':'n','One':{}}"));
  EXPECT_EQ((*view)->ContentNodes()[0]->NodeName(), "n");
  // A node without a name of its own asks upstream.
  EXPECT_EQ((*view)->ContentNodes()[1]->NodeName(), "");
  EXPECT_EQ((*view)->ContentNodes()[1]->FindUpstreamName(), "n");
}

TEST_F(NodeReading, CutsTheFractionsOfInlinePlaces) {
  const std::string placed = "'$Position':{'$x':7.8,'$y':-7.8}";
  for (const std::string& members :
       {"'One':{" + placed + "}", "'Items':[{" + placed + "}]", "'One':{'$Generic':true," + placed + "}",
        "'Items':[{'$Generic':true," + placed + "}]", "'unknown':{" + placed + "}"}) {
    SCOPED_TRACE(members);
    StartView("Doc");
    ASSERT_TRUE(Import("{" + members + "}"));
    const ContentNode& node = *(*view)->ContentNodes().at(1);
    EXPECT_EQ(Toolkit::Canvas::GetLeft(&node), TestSupport::TestGraph::Width / 2 + 7);
    EXPECT_EQ(Toolkit::Canvas::GetTop(&node), TestSupport::TestGraph::Height / 2 - 7);
  }
}

TEST_F(NodeReading, KeepsTheFractionsOfAGenericNodesOwnPlace) {
  NodeReader reader(**view, *workspace, NewNodes::Unselected);
  const Toolkit::Ptr<ContentNode> node = workspace->nodeDictionary->CreateNode("Generic", true);
  reader.Add(*node);
  const JsonPtr json(cJSON_Parse(R"({"$Position": {"$x": 7.8, "$y": -7.8}})"));
  node->Deserialize(json.get(), reader);
  EXPECT_FLOAT_EQ(Toolkit::Canvas::GetLeft(node.Get()), TestSupport::TestGraph::Width / 2 + 7.8f);
  EXPECT_FLOAT_EQ(Toolkit::Canvas::GetTop(node.Get()), TestSupport::TestGraph::Height / 2 - 7.8f);
  // Without a place in the file it stays where it is.
  node->Deserialize(JsonPtr(cJSON_Parse("{}")).get(), reader);
  EXPECT_FLOAT_EQ(Toolkit::Canvas::GetLeft(node.Get()), TestSupport::TestGraph::Width / 2 + 7.8f);
}

} // namespace Tesselor
