#include "DocumentTest.h"
#include "document/NodeWriter.h"
#include "fields/FieldRawJson.h"

#include <string>
#include <vector>

namespace Tesselor {

using TestSupport::Quoted;

class DocumentWalk : public TestSupport::DocumentTest {};

struct Case {
  const char* what;
  const char* file;
  const char* written;
};

TEST_F(DocumentWalk, WritesWhatItRead) {
  const std::vector<Case> cases = {
      {"keys in the schema's order, constants always", "{'Count':3,'Name':'n','$NodeId':'Doc-1'}",
       "{'$NodeId':'Doc-1','Name':'n','Kind':'doc','Count':3}"},
      {"comments, but not the one that stands for none",
       "{'$NodeId':'Doc-1','$Comment':'c','One':{'$NodeId':'Item-2','$Comment':'Comment'}}",
       "{'$NodeId':'Doc-1','$Comment':'c','Kind':'doc','One':{'$NodeId':'Item-2'}}"},
      {"a node without identity gets one", "{'One':{'Label':'a'}}",
       "{'$NodeId':'Doc-<new>','Kind':'doc','One':{'$NodeId':'Item-<new>','Label':'a'}}"},
      {"an array in its order", "{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2','Label':'b'},{'$NodeId':'Item-3'}]}",
       "{'$NodeId':'Doc-1','Kind':'doc','Items':[{'$NodeId':'Item-2','Label':'b'},{'$NodeId':'Item-3'}]}"},
      {"an empty array stays, an empty map becomes one", "{'$NodeId':'Doc-1','Items':[],'Map':{}}",
       "{'$NodeId':'Doc-1','Kind':'doc','Items':[],'Map':[]}"},
      {"a map of scalars and objects",
       "{'$NodeId':'Doc-1','Map':{'a':1,'b':'x','c':true,'d':{'$NodeId':'Item-4','Label':'l'}}}",
       "{'$NodeId':'Doc-1','Kind':'doc','Map':{'a':1,'b':'x','c':true,'d':{'$NodeId':'Item-4','Label':'l'}}}"},
      {"several unknown objects, in the order of the file",
       "{'$NodeId':'Doc-1','zeta':{'a':1},'Name':'n','alpha':{'b':[2]},'mid':{}}",
       "{'$NodeId':'Doc-1','Name':'n','Kind':'doc','zeta':{'$Generic':true,'a':1},'alpha':{'$Generic':true,'b':[2]},"
       "'mid':{'$Generic':true}}"},
      {"an object under a pin that the node doesn't have", "{'$NodeId':'Doc-1','Lost':{'a':1}}",
       "{'$NodeId':'Doc-1','Kind':'doc','Lost':{'$Generic':true,'a':1}}"},
      {"a generic node in an array keeps its members and its comment",
       "{'$NodeId':'Doc-1','Items':[{'$Generic':true,'$Comment':'c','$Title':'t','x':{'y':1}}]}",
       "{'$NodeId':'Doc-1','Kind':'doc','Items':[{'$Comment':'c','$Generic':true,'$Title':'t','x':{'y':1}}]}"},
      {"an object goes to the pin of a pair", "{'$NodeId':'Doc-1','Pair':{'$NodeId':'Item-2'}}",
       "{'$NodeId':'Doc-1','Kind':'doc','Pair':{'$NodeId':'Item-2'}}"},
      {"and a text to the field", "{'$NodeId':'Doc-1','Pair':'text'}",
       "{'$NodeId':'Doc-1','Kind':'doc','Pair':'text'}"},
      {"keys in any letter case, where they are looked up", "{'$nodeid':'Doc-1','ONE':{},'$COMMENT':'c'}",
       "{'$NodeId':'Doc-1','$Comment':'c','Kind':'doc','ONE':{'$Generic':true}}"},
      {"one node with two parents is written below both",
       "{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-9','Label':'l'}]},"
       "{'$NodeId':'Item-3','Items':[{'$NodeId':'Item-9','Label':'ignored'}]}]}",
       "{'$NodeId':'Doc-1','Kind':'doc','Items':[{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-9','Label':'l'}]},"
       "{'$NodeId':'Item-3','Items':[{'$NodeId':'Item-9','Label':'l'}]}]}"},
      {"a cycle ends with the identity alone",
       "{'$NodeId':'Doc-1','One':{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-3','Items':[{'$NodeId':'Item-2'}]}]}}",
       "{'$NodeId':'Doc-1','Kind':'doc','One':{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-3',"
       "'Items':[{'$NodeId':'Item-2'}]}]}}"},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.what);
    const std::string first = RoundTrip(test.file);
    EXPECT_EQ(first, Quoted(test.written));
    const bool isStable = first.find("<new>") == std::string::npos;
    if (isStable) {
      EXPECT_EQ(RoundTrip(first), first);
    }
  }
  EXPECT_TRUE(boxes.boxes.empty()) << boxes.Texts().front();
}

TEST_F(DocumentWalk, ChoosesTheTypeOfAChild) {
  const std::vector<Case> cases = {
      {"by the variant's field", "{'Choice':[{'Type':'other'}]}", "Other"},
      {"by the empty key if the field is missing", "{'Choice':[{}]}", "Item"},
      {"generic if the variant doesn't know the value", "{'Choice':[{'Type':'nothing'}]}", "Raw JSON Node"},
      {"by the identity, which beats the schema", "{'Items':[{'$NodeId':'Other-1'}]}", "Other"},
      {"by the identity, which beats the variant", "{'Choice':[{'Type':'other','$NodeId':'Item'}]}", "Item"},
      {"generic by mark", "{'One':{'$Generic':0}}", "Raw JSON Node"},
      {"a link by mark", "{'Items':[{'$Link':true}]}", "Link"},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.what);
    StartView("Doc");
    ASSERT_TRUE(Import(test.file));
    ASSERT_EQ((*view)->ContentNodes().size(), 2u);
    EXPECT_EQ((*view)->ContentNodes()[1]->Blueprint().title, test.written);
    EXPECT_EQ((*view)->ContentNodes()[1]->FirstInput()->connections.size(), 1u);
  }
  EXPECT_TRUE(log.Contains("Could not find variant entry 'nothing' in variant: 'Family'."));
  EXPECT_TRUE(log.Contains("Using default variant node: 'Item'."));
}

TEST_F(DocumentWalk, TurnsUnknownKeysIntoPropertiesAndBack) {
  const std::vector<Case> cases = {
      {"every type of value", "{'$NodeId':'Free-1','s':'text','n':2,'d':2.5,'b':true,'a':[1,'x'],'o':{'k':1}}",
       "{'$NodeId':'Free-1','s':'text','n':2,'d':2.5,'b':true,'a':[1,'x'],'o':{'k':1}}"},
      {"a number that six digits don't hold", "{'$NodeId':'Free-1','d':0.123456789,'n':12345678901}",
       "{'$NodeId':'Free-1','d':0.123456789,'n':12345678901}"},
      {"a formula", "{'$NodeId':'Free-1','f':{'Compute':'1+2'}}", "{'$NodeId':'Free-1','f':{'Compute':'1+2'}}"},
      {"a text that is JSON", "{'$NodeId':'Free-1','t':'12'}", "{'$NodeId':'Free-1','t':12}"},
      {"a text that begins as JSON", "{'$NodeId':'Free-1','t':'12 apples','u':'007','v':'1.'}",
       "{'$NodeId':'Free-1','t':'12 apples','u':'007','v':'1.'}"},
  };
  StartView("Free");
  for (const Case& test : cases) {
    SCOPED_TRACE(test.what);
    EXPECT_EQ(RoundTrip(test.file), Quoted(test.written));
  }
  StartView("Parametric");
  EXPECT_EQ(RoundTrip("{'$NodeId':'Parametric-1','Params':{'p':{'Value':[1],'Description':'d'},'q':{'Value':'x'}},"
                      "'other':{'a':1}}"),
            Quoted("{'$NodeId':'Parametric-1','Params':{'p':{'Value':[1],'Description':'d'},'q':{'Value':'x'}},"
                   "'other':{'$Generic':true,'a':1}}"));
}

TEST_F(DocumentWalk, ReportsEveryValueThatIsLost) {
  ASSERT_TRUE(Import("{'Unknown':[1,2],'Items':[7],'Choice':'text'}"));
  const std::string tail = "' in node: 'Doc'. Saving will override this file and erase this field. Proceed with "
                           "caution.";
  const std::string head = "Unknown field encountered when loading file. Field '";
  EXPECT_EQ(boxes.Texts(), (std::vector<std::string>{"Attention!: " + head + "Unknown: [1, 2]" + tail,
                                                     "Attention!: " + head + "Items: 7" + tail}));
  EXPECT_TRUE(log.Contains(head + "Unknown: [1, 2]" + tail));
  EXPECT_TRUE(log.Contains(head + "Choice: \"text\"" + tail));
}

TEST_F(DocumentWalk, AnUnknownTypeBecomesAFloatingGenericNode) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','Items':[{'$NodeId':'Nothing-2','a':1}]}"));
  EXPECT_EQ(boxes.Texts(),
            std::vector<std::string>{"Attention!: Could not find node id: Nothing. A generic node will be created"});
  EXPECT_TRUE(log.Contains("Warning: Could not find matching input pin for connection type 'T' on node 'Nothing'."));
  EXPECT_EQ(ExportMetadata("$FloatingNodes"), Quoted("[{'$Generic':true,'a':1}]"));
}

TEST_F(DocumentWalk, AGenericNodeNeverWritesTextThatIsNoJson) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','extra':{'a':1}}"));
  static_cast<FieldRawJson*>((*view)->ContentNodes()[1]->FindField("Generic"))
      ->GetFieldTextData()
      ->SetValue("{ broken");
  EXPECT_EQ(ExportAsset(), Quoted("{'$NodeId':'Doc-1','Kind':'doc','extra':{'$Generic':true,'a':1}}"));
  ASSERT_EQ(boxes.boxes.size(), 1u);
  EXPECT_EQ(boxes.boxes[0].caption, "Attention!");
}

TEST_F(DocumentWalk, CopiesWithoutIdentity) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','$Position':{'$x':7,'$y':8},'Items':[{'$NodeId':'Item-2','$Title':'left "
                     "out'},{'$NodeId':'Item-3',"
                     "'Label':'l'}],'Map':{'k':{'$NodeId':'Item-4'}}}"));
  for (const auto& node : (*view)->ContentNodes()) TestSupport::TestGraph::Place(*node, 1010, 520);
  const JsonPtr copy(cJSON_CreateObject());
  NodeWriter writer(NodeSet{(*view)->ContentNodes()[2].Get(), (*view)->ContentNodes()[3].Get()});
  (*view)->ContentNodes()[0]->SerializeForCopy(copy.get(), writer, NodeLayout::Written);
  EXPECT_EQ(TestSupport::PrintUnformatted(copy.get()),
            Quoted("{'$NodeId':'Doc','$Title':'[ROOT] Doc','$Position':{'$x':10,'$y':20},'Kind':'doc',"
                   "'Items':[{'$NodeId':'Item','$Position':{'$x':10,'$y':20},'Label':'l','Items':[]}],"
                   "'Map':[{'$NodeId':'Item','$Position':{'$x':10,'$y':20},'Items':[]}],'Choice':[]}"));
}

TEST_F(DocumentWalk, ReadsAndWritesNinehundredLevels) {
  std::string file;
  std::string written;
  for (int i = 0; i < 450; ++i) {
    file += "{'Items':[";
    written += i == 0 ? "{'$NodeId':'Doc-<new>','Kind':'doc','Items':[" : "{'$NodeId':'Item-<new>','Items':[";
  }
  file += "{}";
  written += "{'$NodeId':'Item-<new>'}";
  for (int i = 0; i < 450; ++i) {
    file += "]}";
    written += "]}";
  }
  EXPECT_EQ(RoundTrip(file), Quoted(written));
}

} // namespace Tesselor
