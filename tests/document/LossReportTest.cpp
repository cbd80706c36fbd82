#include "DocumentTest.h"
#include "document/DocumentLosses.h"
#include "document/LongNumbers.h"

#include <regex>
#include <string>
#include <vector>

namespace Tesselor {

using TestSupport::Quoted;

class LossReport : public TestSupport::DocumentTest {
protected:
  LossReport() {
    AddSchema(
        R"({'id':'Values','title':'Values','color':'green','inputs':[{'id':'in','Type':'T','color':'red','Multiple':true}],
        'content':[{'Id':'level','Type':'Int','Options':{'Default':0}},
                   {'Id':'list','Type':'List','Options':{'Type':'string'}},
                   {'Id':'table','Type':'Dictionary','Options':{'Type':'mixed'}},
                   {'Id':'mixed','Type':'Mixed'},
                   {'Id':'object','Type':'Object','Options':{'Fields':[{'Id':'x','Type':'Int'}]}}],
        'Schema':{'Level':'level','List':'list','Table':'table','Mixed':'mixed','Object':'object'}})");
    target = view->target.root;
    target->workspace = workspace;
  }
  std::vector<DocumentLoss> Losses(const std::string& json) {
    StartView("Doc");
    view->target.root = target;
    const std::string text = Quoted(json);
    const JsonPtr file = ParseJson(text).json;
    EXPECT_TRUE(file) << text;
    EXPECT_TRUE(Import(json));
    return FindDocumentLosses(*file, FindLongNumbers(text), **view, *target);
  }
  std::string Lines(const std::string& json) {
    std::string lines;
    for (const DocumentLoss& loss : Losses(json)) lines += loss.loss.Line() + "\n";
    return lines;
  }
  std::shared_ptr<RootType> target;
};

struct LossCase {
  const char* what;
  /// Members of the root behind its identity.
  const char* members;
  const char* lines;
};

TEST_F(LossReport, TellsEachValueThatASaveDropsMovesOrChanges) {
  const std::vector<LossCase> cases = {
      // Values.
      {"a scalar that no schema knows", "'Unknown':5", "$.Unknown: was 5 becomes nothing\n"},
      {"a value of the wrong type", "'Name':5,'Count':'x'",
       "$.Name: was 5 becomes nothing\n$.Count: was 'x' becomes nothing\n"},
      {"a constant", "'Kind':'other'", "$.Kind: was 'other' becomes 'doc'\n"},
      {"a scalar under a single pin and in the array of one that makes nodes", "'One':7,'Items':[{},5]",
       "$.One: was 7 becomes nothing\n$.Items[1]: was 5 becomes {'$NodeId': 'Item-<new>'}\n"},
      {"an unknown key of the editor's kind, and a key that is no word", "'$Mystery':1,'a \\'key\\'':2",
       "$.$Mystery: was 1 becomes nothing\n$['a \\'key\\'']: was 2 becomes nothing\n"},
      {"numbers, texts and members of fields",
       "'One':{'$NodeId':'Values-2','Level':99.7,'List':['a',1],'Table':{'a':null,'b':'5'},'Mixed':'5',"
       "'Object':{'x':1,'y':2}}",
       "$.One.Level: was 99.7 becomes 99\n$.One.List[1]: was 1 becomes ''\n$.One.Table.a: was null becomes ''\n"
       "$.One.Table.b: was '5' becomes 5\n$.One.Mixed: was '5' becomes 5\n$.One.Object.y: was 2 becomes nothing\n"},
      {"elements of generic nodes that are no objects", "'Items':[{'$Generic':true,'a':1},[1,2]]",
       "$.Items[1]: was [1, 2] becomes {'$NodeId': 'Item-<new>'}\n"},
      {"a text that becomes a number, and what a formula has beside it",
       "'One':{'$NodeId':'Free-2','p':'12','q':{'Compute':'1+2','other':1}}",
       "$.One.p: was '12' becomes 12\n$.One.q.other: was 1 becomes nothing\n"},
      {"an array under a key of a map", "'Map':[{'$NodeId':'Item-2'}]",
       "$.Map: was [{'$NodeId': 'Item-2'}] becomes {'Item': {'$NodeId': 'Item-2'}}\n"},
      {"digits that no double has, also in raw JSON",
       "'Count':3,'big':{'a':[9007199254740993],'b':9007199254740992,'c':0.1234567890123456789}",
       "$.big.a[0]: was 9007199254740993 becomes 9.00719925474099e+15\n"
       "$.big.b: was 9007199254740992 becomes 9.00719925474099e+15\n"
       "$.big.c: was 0.1234567890123456789 becomes 0.12345678901234568\n"},
      {"a number beyond all doubles, and one that is nearer to zero than any", "'big':{'a':1e999,'b':[-1e-999]}",
       "$.big.a: was 1e999 becomes null\n$.big.b[0]: was -1e-999 becomes -0\n"},
      {"the editor's own keys among values, where they say nothing",
       "'One':{'$NodeId':'Values-2','List':[{'$Link':true,'Children':[{'a':1}]},'x',{'$NodeId':'Item-9'}],"
       "'Table':{'$Generic':{'x':1},'$NodeId':'Item','$Link':true,'Children':[1]},"
       "'Object':{'x':5,'$Link':true,'$Generic':true,'$Title':'Values'}},'any':{'a':[{'$Link':true,'Children':[1,2]},3]"
       "}",
       "$.One.List[0]: was {'$Link': true, 'Children': [{'a': 1}]} becomes ''\n"
       "$.One.List[2]: was {'$NodeId': 'Item-9'} becomes ''\n"
       "$.One.Table.$Generic: was {'x': 1} becomes ''\n"
       "$.One.Table.Children: was [1] becomes ''\n"
       "$.One.Object.$Link: was true becomes nothing\n"
       "$.One.Object.$Generic: was true becomes nothing\n"
       "$.One.Object.$Title: was 'Values' becomes nothing\n"},
      {"the second of two equal keys", "'Name':'a','Name':'b'",
       "$.Name: was 'b' becomes nothing (the key stands there twice)\n"},
      {"keys that differ in case and in value", "'name':'a','Name':'b'",
       "$.name: was 'a' becomes nothing\n$.Name: was 'b' becomes 'a'\n"},
      {"long values, cut between two characters",
       "'Unknown':'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"
       "aaaaaaaaaaaaaaaaaaaaaaaaäöüä'",
       "$.Unknown: was 'aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa… becomes "
       "nothing\n"},
      // Nodes.
      {"a mark of generic nodes that is another",
       "'Items':[{'$Generic':'text','a':1},{'$Generic':false},{'$Generic':true}],'any':{'$Generic':{'x':5}},'$Generic':"
       "true",
       "$.Items[0].$Generic: was 'text' becomes true\n"
       "$.Items[1].$Generic: was false becomes true\n"
       "$.any.$Generic: was {'x': 5} becomes true\n"
       "$.$Generic: was true becomes nothing\n"},
      {"one node twice, with another content",
       "'Items':[{'$NodeId':'Item-2','One':{'$NodeId':'Item-9','Label':'a'}},{'$NodeId':'Item-3',"
       "'Items':[{'$NodeId':'Item-9','Label':'b'}]}]",
       "$.Items[1].Items[0].Label: was 'b' becomes 'a'\n"},
      {"another order",
       "'Items':[{'$NodeId':'Item-2','$Position':{'$x':0,'$y':90}},{'$NodeId':'Item-3',"
       "'$Position':{'$x':0,'$y':10}}]",
       "$.Items: was elements in their order becomes the order 1, 0\n"},
      {"another order of nodes that say nothing else, and where they were placed",
       "'Items':[{'$Position':{'$x':10,'$y':20}},{'Label':'a','$Position':{'$x':10,'$y':-20}},{'$Link':true,'Children':"
       "["
       "{'$NodeId':'Item'}]}]",
       "$.Items: was elements in their order becomes the order 1, 2, 0\n"},
      {"two arrays under one key, of which both are read",
       "'Items':[{'Label':'a','x':1}],'Items':[{'Label':'b','y':2}]",
       "$.Items[0].x: was 1 becomes nothing\n"
       "$.Items[0].y: was 2 becomes nothing\n"},
      {"what a pass-through node has beside its children, and one that has none",
       "'Items':[{'$Link':true,'$Position':{'$x':3.9,'$y':-4},'$Title':'t','$NodeId':'Link','Note':'keep','X':[1],'Y':"
       "null,'$Odd':5,"
       "'$Comment':'c','Obj':{'a':1},'Children':[{'$NodeId':'Item','Label':'b'}]},{'$Link':true,'Note':1,'Children':[]}"
       ","
       "{'$Link':true,'Children':{'b':1}},{'$Link':true,'Children':'text','$Position':{'$x':50,'y':1}}]",
       "$.Items[0].Note: was 'keep' becomes nothing\n"
       "$.Items[0].X: was [1] becomes nothing\n"
       "$.Items[0].Y: was null becomes nothing\n"
       "$.Items[0].$Odd: was 5 becomes nothing\n"
       "$.Items[0].$Comment: was 'c' becomes nothing\n"
       "$.Items[0].Obj: was {'a': 1} becomes a node without that key\n"
       "$.Items[1].Note: was 1 becomes nothing\n"
       "$.Items[2].Children: was {'b': 1} becomes a node without that key\n"
       "$.Items[3].Children: was 'text' becomes nothing\n"},
      {"raw JSON of which a load can't tell behind which pass-through node it stands",
       "'Items':[{'$NodeId':'Item-2','Items':[{'$Link':true,'Children':[{'a':1}]},{'$Generic':true}]},{'$Link':true,"
       "'Children':[{'a':1}]},{'$Link':true,'Children':[{'b':1}]}],'One':{'$Link':true,'Children':[{'a':1},{'b':2}]},"
       "'Pair':{'$Link':true,'Children':[{'$Link':true,'Children':[{'a':1}]},{'a':2}]}",
       "$.One.Children[1]: was {'b': 2} moves to $FloatingNodes\n"
       "$.Pair.Children[1]: was {'a': 2} moves to $FloatingNodes\n"
       "$: was connections of 'Link' to nodes without identity becomes none after the next load\n"
       "$: was connections of 'Link' to nodes without identity becomes none after the next load\n"
       "$: was connections of 'Link' to nodes without identity becomes none after the next load\n"
       "$: was connections of 'Link' to nodes without identity becomes none after the next load\n"
       "$: was connections of 'Link' to nodes without identity becomes none after the next load\n"
       "$: was connections of 'Link' to nodes without identity becomes none after the next load\n"},
      {"pass-through nodes of one pin that name raw JSON, of which a load couldn't tell",
       "'Items':[{'$Generic':true,'a':1},{'$Generic':true,'b':1}],'$Links':{'L':{'inputConnections':['Doc-1:items'],"
       "'outputConnections':['Generic-7:Generic'],'sourceEndpoint':'Doc-1:items'},'M':{'inputConnections':['Doc-1:"
       "items'],"
       "'outputConnections':['Generic-8:Generic','Generic-9:Generic'],'sourceEndpoint':'Doc-1:items'}}",
       "$.$Links.L.outputConnections[0]: was 'Generic-7:Generic' becomes nothing\n"
       "$.$Links.M.outputConnections[0]: was 'Generic-8:Generic' becomes nothing\n"
       "$.$Links.M.outputConnections[1]: was 'Generic-9:Generic' becomes nothing\n"},
      {"a pass-through node that names several on a pin for one, of which the first is known",
       "'One':{'$Generic':true,'a':1},'$FloatingNodes':[{'$Generic':true,'b':2}],'$Links':{'L':{'inputConnections':['"
       "Doc-1:"
       "one'],'outputConnections':['Generic-7:Generic','Generic-8:Generic'],'sourceEndpoint':'Doc-1:one'}}",
       "$.$Links.L.outputConnections[1]: was 'Generic-8:Generic' becomes nothing\n"},
      {"nodes behind a pass-through node of a map",
       "'Map':{'z':{'$NodeId':'Item'},'k':{'$Link':true,'n':1,'Children':[{'$NodeId':'Item','Label':'a'}]}}",
       "$.Map.k.n: was 1 becomes nothing\n"
       "$.Map.k.Children[0]: was {'$NodeId': 'Item', 'Label': 'a'} becomes the member Item\n"},
      {"what moves to the floating nodes, and what it loses there",
       "'Items':[{'$NodeId':'Item-2'},{'$NodeId':'Property-3','x':5},{'$NodeId':'Item-4'}]",
       "$.Items[1]: was {'$NodeId': 'Property-3', 'x': 5} moves to $FloatingNodes\n"
       "$.Items[1].x: was 5 becomes nothing\n"},
      {"nodes without an identity that move from among others",
       "'Items':[{'$NodeId':'Item','Label':'a'},{'$NodeId':'Property','Value':'v','x':1},{'$NodeId':'Item','Label':'b'}"
       "]",
       "$.Items[1]: was {'$NodeId': 'Property', 'Value': 'v', 'x': 1} moves to $FloatingNodes\n"
       "$.Items[1].x: was 1 becomes nothing\n"},
      {"nodes with and without an identity that move, and one that stays",
       "'Items':[{'$NodeId':'Item-2'},{'$NodeId':'Item-2'},{'$NodeId':'Property-3','Value':'a'},{'$NodeId':'Property',"
       "'Value':'a','x':1}]",
       "$.Items[1]: was {'$NodeId': 'Item-2'} becomes nothing (the array holds the node already)\n"
       "$.Items[2]: was {'$NodeId': 'Property-3', 'Value': 'a'} moves to $FloatingNodes\n"
       "$.Items[3]: was {'$NodeId': 'Property', 'Value': 'a', 'x': 1} moves to $FloatingNodes\n"
       "$.Items[3].x: was 1 becomes nothing\n"},
      {"an object that goes before one that moves",
       "'$Mystery':{'Value':'a'},'Items':[{'$NodeId':'Property','Value':'b','x':1}]",
       "$.$Mystery: was {'Value': 'a'} becomes nothing\n"
       "$.Items[0]: was {'$NodeId': 'Property', 'Value': 'b', 'x': 1} moves to $FloatingNodes\n"
       "$.Items[0].x: was 1 becomes nothing\n"},
      {"pass-through nodes behind a single pin: of several children, which get new identities, and of none",
       "'One':{'$Link':true,'Children':[{'$NodeId':'Item-2','Label':5},{'$NodeId':'Item-3','Label':'b','x':1}]},"
       "'Pair':{'$Link':true,'a':1}",
       "$.One.Children[0].$NodeId: was 'Item-2' becomes 'Item-<new>'\n"
       "$.One.Children[0].Label: was 5 becomes nothing\n"
       "$.One.Children[1]: was {'$NodeId': 'Item-3', 'Label': 'b', 'x': 1} moves to $FloatingNodes\n"
       "$.One.Children[1].$NodeId: was 'Item-3' becomes 'Item-<new>'\n"
       "$.One.Children[1].x: was 1 becomes nothing\n"
       "$.Pair.a: was 1 becomes nothing\n"},
      // The editor's own data.
      {"a title of the wrong type, and a place that is overruled",
       "'One':{'$NodeId':'Item-2','$Title':5,'$Position':{'$x':50,'$y':7}},"
       "'$Nodes':{'Item-2':{'$Position':{'$x':'far','$y':7},'$Title':'t'}}",
       "$.One.$Title: was 5 becomes nothing\n$.One.$Position: was {'$x': 50, '$y': 7} becomes nothing\n"
       "$.$Nodes['Item-2'].$Position.$x: was 'far' becomes 0\n"},
      {"a title in the metadata that is none", "'One':{'$NodeId':'Item-2'},'$Nodes':{'Item-2':{'$Title':5}}",
       "$.$Nodes['Item-2'].$Title: was 5 becomes nothing\n"},
      {"places that are none, and what they have beside the coordinates",
       "'$Position':{'$x':'a','note':5,'empty':{}},'One':{'$Position':'x'},'$Groups':[{'$Position':{'$x':1,'$y':2,'$z':"
       "3}}]",
       "$.$Position.$x: was 'a' becomes 0\n"
       "$.$Position.note: was 5 becomes nothing\n"
       "$.One.$Position: was 'x' becomes nothing\n"
       "$.$Groups[0].$Position.$z: was 3 becomes nothing\n"},
      {"what the metadata say of nodes that aren't there",
       "'$Nodes':{'Item-9':{'$Title':'lost','$Position':{'$x':1,'$y':1}},'Item':{'$Extra':1},'Doc-9':{'$Title':'[ROOT] "
       "Doc'}}",
       "$.$Nodes['Item-9'].$Title: was 'lost' becomes nothing\n"
       "$.$Nodes.Item.$Extra: was 1 becomes nothing\n"},
      {"unknown members of the metadata",
       "'$NodeEditorMetadata':{'$Nodes':{'Doc-1':{'$Extra':1}},'$Links':[1],'$Other':{}}",
       "$.$NodeEditorMetadata.$Nodes['Doc-1'].$Extra: was 1 becomes nothing\n"
       "$.$NodeEditorMetadata.$Links: was [1] becomes {}\n$.$NodeEditorMetadata.$Other: was {} becomes nothing\n"},
      {"an object that goes, beside a floating node that was there before",
       "'$Mystery':{'$a':1},'$FloatingNodes':[{'$NodeId':'Item-2'}]", "$.$Mystery: was {'$a': 1} becomes nothing\n"},
      {"a link that is none", "'$Links':{'L':5}",
       "$.$Links.L: was 5 becomes {'$Position': {'$x': 0, '$y': 0}, 'inputConnections': [], 'outputConnections': […\n"},
      {"floating nodes that are no list", "'$FloatingNodes':5", "$.$FloatingNodes: was 5 becomes []\n"},
      {"ends of links that lead nowhere",
       "'Items':[{'$NodeId':'Item-2'}],'$NodeEditorMetadata':{'$Nodes':{'Item-2':{}},'$Links':{'L':{'$Position':{'$x':"
       "1,'$y':2},"
       "'inputConnections':['Doc-1:items'],'outputConnections':['Item-2:in','Item-7:in',5],"
       "'sourceEndpoint':'Doc-1:items'}}}",
       "$.$NodeEditorMetadata.$Links.L.outputConnections[1]: was 'Item-7:in' becomes nothing\n"
       "$.$NodeEditorMetadata.$Links.L.outputConnections[2]: was 5 becomes nothing\n"},
      {"frames at their smallest",
       "'$NodeEditorMetadata':{'$Comments':[{'$Position':{'$x':1.5,'$y':2},'$width':1,"
       "'$height':400,'$name':'n','$fontSize':'big'}]}",
       "$.$NodeEditorMetadata.$Comments[0].$width: was 1 becomes 100\n"
       "$.$NodeEditorMetadata.$Comments[0].$fontSize: was 'big' becomes 13\n"},
      {"floating nodes that another list hides",
       "'$NodeEditorMetadata':{'FloatingFunctionNodes':[{'$NodeId':'Item-2','x':1}],'$FloatingNodes':[]}",
       "$.$NodeEditorMetadata.FloatingFunctionNodes: was [{'$NodeId': 'Item-2', 'x': 1}] becomes nothing\n"},
  };
  static const std::regex uuid("[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}");
  for (const LossCase& test : cases) {
    SCOPED_TRACE(test.what);
    const std::string lines = Lines("{'$NodeId':'Doc-1'," + std::string(test.members) + "}");
    EXPECT_EQ(std::regex_replace(lines, uuid, "<new>"), Quoted(test.lines));
  }
}

/// A file of few nodes whose save is larger by a factor for each level: two nodes with one and the same below them.
std::string Diamonds(int levels) {
  std::string text = "{'$NodeId':'Item-bottom'}";
  for (int i = levels; i-- > 0;) {
    const std::string number = std::to_string(i);
    const std::string below = i + 1 == levels ? "Item-bottom" : "Item-" + std::to_string(i + 1);
    text = "{'$NodeId':'Item-" + number + "','Items':[{'$NodeId':'Item-l" + number + "','One':" + text +
           "},{'$NodeId':'Item-r" + number + "','Items':[{'$NodeId':'" + below + "'}]}]}";
  }
  return "{'$NodeId':'Doc-top','Unknown':5,'One':" + text + "}";
}

TEST_F(LossReport, FindsEachOfManyNodesThatMove) {
  std::string items, lines;
  for (int i = 0; i < 30; ++i) {
    const std::string node = "{'$NodeId':'Property','Value':'" + std::to_string(i) + "'}";
    items += (i ? "," : "") + node;
    lines += "$.Items[" + std::to_string(i) + "]: was {'$NodeId': 'Property', 'Value': '" + std::to_string(i) +
             "'} moves to $FloatingNodes\n";
  }
  EXPECT_EQ(Lines("{'Items':[" + items + "]}"), Quoted(lines));
}

TEST_F(LossReport, TellsOfADocumentThatASaveMultipliesOnlyThat) {
  const std::pair<int, const char*> cases[] = {
      // Ten times as large as its objects is where it begins.
      {6, "$.Unknown: was 5 becomes nothing\n"},
      {7, "$: was 23 nodes becomes 510\n"},
      {40, ""},
  };
  for (const auto& [levels, lines] : cases) EXPECT_EQ(Lines(Diamonds(levels)), lines) << levels;
  // A file that holds all of it already.
  StartView("Doc");
  ASSERT_TRUE(Import(Diamonds(7)));
  EXPECT_EQ(Lines(Export()), "");
}

TEST_F(LossReport, IsSilentOnWhatASaveKeeps) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"defaults and identities that it adds, another order and case of keys",
       "{'one':{},'$nodeid':'Doc','$COMMENT':'c','Items':[{'Label':'b'},{'Label':'a'}],'Count':3.0}"},
      {"defaults that it leaves out, and dictionaries and maps without entries",
       "{'Name':'','Count':0,'Map':{},'One':{'$NodeId':'Values','Table':{},'Mixed':''}}"},
      {"a default that the second place of a node names alone",
       "{'Items':[{'$NodeId':'Values-9'},{'$NodeId':'Item-3','Items':[{'$NodeId':'Values-9','Level':0}]}]}"},
      {"other ways to write a number",
       "{'big':{'a':1e2,'b':100.0,'c':-0,'d':0.10000000000000001,'h':0.000012345678901234,'e':1E+2,'f':0."
       "3333333333333333,'g':100000000000000000000}}"},
      {"places and titles in nodes, which arrive in the metadata",
       "{'$NodeId':'Doc-1','One':{'$NodeId':'Item-2','$Title':'t','$Position':{'$x':10.7,'$y':-3}},'$Nodes':{}}"},
      {"the title of the type", "{'One':{'$NodeId':'Item-2','$Title':'Item'}}"},
      {"a pass-through node in the tree, without which its children are written",
       "{'Items':[{'Label':'a'},{'$Link':true,'Children':[{'$NodeId':'Item','Label':'b'},{'$Link':true,'Children':"
       "[{'$NodeId':'Item','Label':'c'}]}]},{'Label':'d'}]}"},
      {"a pass-through node behind a single pin", "{'One':{'$Link':true,'Children':[{'$NodeId':'Item','Label':'a'}]}}"},
      {"the old place and name of the floating nodes", "{'FloatingFunctionNodes':[{'$NodeId':'Item-2','Label':'l'}]}"},
      {"a floating node that hangs on the tree by a link",
       "{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-3'}],'$FloatingNodes':[{'$NodeId':'Item-2','Label':'l'}],'$Links':"
       "{'L':{'inputConnections':"
       "['Doc-1:items'],'outputConnections':['Item-2:in']}}}"},
      {"a floating node that hangs on another one as well",
       "{'$FloatingNodes':[{'$NodeId':'Item-2','Label':'l'},{'$NodeId':'Item-3','Items':[{'$NodeId':'Item-2'}]}]}"},
      {"places of nodes that aren't there, and the root that was chosen",
       "{'$NodeEditorMetadata':{'$Nodes':{'Item-9':{'$Position':{'$x':1,'$y':1}},'Item':5},'$WorkspaceID':'Other'}}"},
      {"one node behind several pins, each with its place",
       "{'$NodeId':'Doc-1','One':{'$NodeId':'Item-2'},'Pair':{'$NodeId':'Item-2'},'$FloatingNodes':[{'$NodeId':'Item-2'"
       "}],"
       "'$Nodes':{'Item-2':{'$Position':{'$x':1,'$y':1}},'Item-2':{'$Position':{'$x':20,'$y':2}},"
       "'Item-2':{'$Position':{'$x':300,'$y':3}}}}"},
      {"fractions of frames",
       "{'$Groups':[{'$Position':{'$x':0.1,'$y':0.2},'$width':300.1,'$height':200,'$name':''}]}"},
      {"raw JSON with equal keys, in which nothing is lost", "{'any':{'a':1,'a':2,'in':{'$Position':{'$x':1}}}}"},
  };
  for (const auto& [what, file] : cases) {
    SCOPED_TRACE(what);
    for (const bool writesDefaults : {false, true}) {
      workspace->ExportDefaults = writesDefaults;
      EXPECT_EQ(Lines(file), "") << writesDefaults;
    }
  }
}

TEST_F(LossReport, FindsNoneInWhatASaveHasWritten) {
  AddSchema("{'id':'File','title':'File','color':'red','isreference':true,'filerefkey':'Ref','filerefvalue':'Id',"
            "'modifykey':'Changes','inputs':[{'id':'in','Type':'T','color':'red'}]}");
  AddSchema(
      "{'id':'Files','title':'Files','color':'red','inputs':[{'id':'in','Type':'T','color':'red'}],'outputs':[{"
      "'id':'files','Type':'T','color':'red','Multiple':true}],'Schema':{'Files':{'node':'File','pin':'files'}}}");
  const std::pair<const char*, const char*> cases[] = {
      {"one node behind several pins, in the tree and floating, each with its place",
       "{'$NodeId':'Doc-1','Pair':{'$NodeId':'Item-2','$Position':{'$x':20,'$y':2}},'One':{'$NodeId':'Item-2','Label':'"
       "a',"
       "'$Position':{'$x':300,'$y':3}},'$FloatingNodes':[{'$NodeId':'Item-2','$Title':'t','$Position':{'$x':4000,'$y':"
       "4}}]}"},
      {"raw JSON behind a pass-through node", "{'Items':[{'$NodeId':'Item'},{'$Link':true,'Children':[{'a':1},{'$"
                                              "NodeId':'Item'},{'b':2}]},{'$NodeId':'Item-3'}]}"},
      {"raw JSON behind several pass-through nodes, and behind a pin for one",
       "{'Items':[{'$Link':true,'Children':[{'$Link':true,'Children':[{'a':1}]}]}],'One':{'$Link':true,'Children':[{'a'"
       ":1}]}}"},
      {"a reference behind a pass-through node", "{'One':{'$NodeId':'Files-2','Files':[{'$Link':true,'Children':[{'$"
                                                 "NodeId':'File','Ref':'r','$FileName':'f'}]}]}}"},
      {"pass-through nodes before nothing", "{'Items':[{'$Link':true},{'Label':'a'}],'One':{'$Link':true}}"},
  };
  for (const auto& [what, file] : cases) {
    SCOPED_TRACE(what);
    Losses(file);
    const std::string saved = Export();
    EXPECT_EQ(Lines(saved), "");
    EXPECT_EQ(Export(), saved);
  }
}

TEST_F(LossReport, KnowsTheNodeOfAValueAndLeavesTheDocumentAsItIs) {
  const std::vector<DocumentLoss> losses = Losses("{'One':{'Label':'a','One':{'x':1}},'Name':'','y':2}");
  ASSERT_EQ(losses.size(), 2u);
  EXPECT_EQ(losses[0].loss.path, "$.One.One.x");
  ASSERT_NE(losses[0].node.Get(), nullptr);
  EXPECT_EQ(losses[0].node.Get()->NumberingPin(), nullptr);
  EXPECT_NE(losses[0].node.Get(), losses[1].node.Get());
  EXPECT_EQ(losses[1].node.Get(), (*view)->Root());
  for (const auto& node : (*view)->ContentNodes()) EXPECT_EQ(node->NodeId(), "") << "made by writing only";
}

} // namespace Tesselor
