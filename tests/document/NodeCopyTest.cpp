// The clipboard's form of nodes: what is selected below the node that is copied, without UUIDs.
#include "DocumentTest.h"
#include "document/NodeWriter.h"

#include <string>
#include <vector>

namespace Tesselor {

using TestSupport::Quoted;

class NodeCopy : public TestSupport::DocumentTest {
protected:
  /// Reads the members of the root and puts all nodes to (10, 20).
  void Load(const std::string& members) {
    StartView("Doc");
    ASSERT_TRUE(Import("{'$NodeId':'Doc-1'," + members + "}"));
    for (const auto& node : (*view)->ContentNodes()) TestSupport::TestGraph::Place(*node, 1010, 520);
  }
  ContentNode& Node(size_t index) { return *(*view)->ContentNodes().at(index); }
  JsonPtr Copy(const NodeSet& selection) {
    JsonPtr copy(cJSON_CreateObject());
    NodeWriter writer(selection);
    Node(0).SerializeForCopy(copy.get(), writer, NodeLayout::Omitted);
    return copy;
  }
  /// One member of the copied root; "absent" if it isn't there.
  std::string CopyOf(const char* key, const NodeSet& selection) {
    const JsonPtr copy = Copy(selection);
    const cJSON* member = cJSON_GetObjectItem(copy.get(), key);
    return member ? TestSupport::PrintUnformatted(member) : "absent";
  }
  /// The labels of the copied list, a "-" behind those without a place.
  std::string Labels(const NodeSet& selection) {
    const JsonPtr copy = Copy(selection);
    std::string result;
    const cJSON* item = nullptr;
    cJSON_ArrayForEach(item, cJSON_GetObjectItem(copy.get(), "Items")) {
      result += JsonText(cJSON_GetObjectItem(item, "Label")).value_or("?");
      if (!cJSON_HasObjectItem(item, "$Position")) result += "-";
    }
    return result;
  }
};

const std::string place = "'$Position':{'$x':10,'$y':20}";

TEST_F(NodeCopy, HoldsWhatStandsBehindLinks) {
  // Document, 2, link, 3, inner link, 4, 5.
  Load("'Items':[{'$NodeId':'Item-2','Label':'a'},{'$Link':true,'Children':[{'$NodeId':'Item-3','Label':'b'},"
       "{'$Link':true,'Children':[{'$NodeId':'Item-4','Label':'c'}]},{'$NodeId':'Item-5','Label':'d'}]}]");
  ContentNode& link = Node(2);
  ContentNode& innerLink = Node(4);
  ASSERT_TRUE(link.IsPassthrough() && innerLink.IsPassthrough());
  EXPECT_EQ(Labels({}), "abcd");
  EXPECT_EQ(Labels({&Node(1), &link, &Node(3), &Node(5)}), "ab");
  EXPECT_EQ(Labels({&link, &innerLink, &Node(5), &Node(6)}), "cd");
  EXPECT_EQ(Labels({&innerLink, &Node(5)}), "");
  // What links lead to twice stands there twice, the second time without a place; a ring of links ends.
  Node(0).FindPin("items")->Join(*innerLink.FirstInput());
  EXPECT_EQ(Labels({}), "abcdc-");
  innerLink.FirstOutput()->Join(*link.FirstInput());
  EXPECT_EQ(Labels({}), "abcdc-b-d-");
  EXPECT_EQ(ExportAsset(), Quoted("{'$NodeId':'Doc-1','Kind':'doc','Items':[{'$NodeId':'Item-2','Label':'a'},"
                                  "{'$NodeId':'Item-<new>','Label':'b'},{'$NodeId':'Item-<new>','Label':'c'},"
                                  "{'$NodeId':'Item-<new>','Label':'d'},{'$NodeId':'Item-<new>','Label':'c'},"
                                  "{'$NodeId':'Item-<new>','Label':'b'},{'$NodeId':'Item-<new>','Label':'d'}]}"));
}

TEST_F(NodeCopy, HoldsTheOneChildOfASinglePinIfItIsSelected) {
  Load("'One':{'$NodeId':'Item-2','Label':'a'}");
  EXPECT_EQ(CopyOf("One", {}), Quoted("{'$NodeId':'Item'," + place + ",'Label':'a','Items':[]}"));
  EXPECT_EQ(CopyOf("One", {&Node(0)}), "absent");
  // Document, link, 2: neither alone is enough.
  Load("'One':{'$Link':true,'Children':[{'$NodeId':'Item-2','Label':'a'}]}");
  EXPECT_EQ(CopyOf("One", {&Node(1), &Node(2)}), Quoted("{'$NodeId':'Item'," + place + ",'Label':'a','Items':[]}"));
  EXPECT_EQ(CopyOf("One", {&Node(1)}), "absent");
  EXPECT_EQ(CopyOf("One", {&Node(2)}), "absent");
}

TEST_F(NodeCopy, EndsACycleWithTheTypeAlone) {
  Load("'One':{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-3'}]}");
  Node(2).FindPin("items")->Join(*Node(1).FirstInput());
  EXPECT_EQ(CopyOf("One", {}), Quoted("{'$NodeId':'Item'," + place + ",'Items':[{'$NodeId':'Item'," + place +
                                      ",'Items':[{'$NodeId':'Item'}]}]}"));
}

TEST_F(NodeCopy, PlacesGenericNodesInListsOnly) {
  Load("'One':{'$Generic':true,'x':1},'Items':[{'$Generic':true,'y':2}]");
  EXPECT_EQ(CopyOf("One", {}), Quoted("{'$Generic':true,'x':1}"));
  EXPECT_EQ(CopyOf("Items", {}), Quoted("[{" + place + ",'$Generic':true,'y':2}]"));
}

} // namespace Tesselor
