// Forms of written nodes that no document of the other tests comes to.
#include "document/NodeWriter.h"
#include "DocumentTest.h"

#include <string>
#include <vector>

namespace Tesselor {

using TestSupport::PrintUnformatted;
using TestSupport::Quoted;

class NodeWriting : public TestSupport::DocumentTest {
protected:
  ContentNode& Node(size_t index) { return *(*view)->ContentNodes().at(index); }

  JsonPtr json{cJSON_CreateObject()};
  NodeWriter writer{FieldsToWrite::Changed};
};

TEST_F(NodeWriting, TitleAndPlaceGoAlongIfTheyAreAskedFor) {
  ASSERT_TRUE(Import("{'One':{'$NodeId':'Item-2','$Title':'t','Label':'l'}}"));
  TestSupport::TestGraph::Place(Node(1), 1010, 520);
  Node(1).SerializeWithId(json.get(), writer, NodeLayout::Written);
  EXPECT_EQ(PrintUnformatted(json.get()),
            Quoted("{'$NodeId':'Item-2','$Title':'t','$Position':{'$x':10,'$y':20},'Label':'l'}"));
}

TEST_F(NodeWriting, ALinkByItselfHoldsItsChildren) {
  ASSERT_TRUE(Import("{'One':{'$Link':true,'Children':[{'$NodeId':'Item'}]}}"));
  Node(2).SetNodeId("2");
  Node(1).Serialize(json.get(), writer, NodeIdMember::Omitted);
  EXPECT_EQ(PrintUnformatted(json.get()), Quoted("{'Children':[{'$NodeId':'Item-2'}]}"));
}

TEST_F(NodeWriting, AConnectedPinTakesThePlaceOfTheFieldOfItsKey) {
  AddSchema("{'id':'Both','title':'Both','color':'blue','outputs':[{'id':'list','Type':'T','color':'red','Multiple':"
            "true}],'content':[{'Id':'text','Type':'SmallString'}],'Schema':{'Both$Ref':'text','Both$Pin':{'node':"
            "'Item','pin':'list'}}}");
  StartView("Both");
  const std::string list = "{'$NodeId':'Both-1','Both':[{'$NodeId':'Item-2'}]}";
  EXPECT_EQ(RoundTrip(list), Quoted(list));
  EXPECT_EQ(RoundTrip("{'$NodeId':'Both-1','Both':'text'}"), Quoted("{'$NodeId':'Both-1','Both':'text'}"));
}

TEST_F(NodeWriting, PropertiesAndParametersLeaveOutWhatIsEmpty) {
  StartView("Free");
  ASSERT_TRUE(Import("{'n':null}"));
  EXPECT_EQ(Node(1).FindField("key")->GetValueAsString(), "n");
  EXPECT_EQ(Node(1).FindField("value")->GetValueAsString(), "");
  StartView("Parametric");
  EXPECT_EQ(RoundTrip("{'$NodeId':'Parametric-1','Params':{'p':{'Value':1,'Description':''}}}"),
            Quoted("{'$NodeId':'Parametric-1','Params':{'p':{'Value':1}}}"));
}

} // namespace Tesselor
