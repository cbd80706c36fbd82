// What is selected, as the clipboard's text, and what a paste makes of it.
#include "CopyTest.h"
#include "document/NodeWriter.h"
#include "fields/FieldRawJson.h"
#include "graph/StructureChange.h"
#include "nodes/GenericContentNode.h"
#include "nodes/ReferenceNode.h"
#include "toolkit/controls/Canvas.h"

#include <functional>

namespace Tesselor {
namespace {

using TestSupport::Quoted;

class CopyAndPaste : public TestSupport::CopyTest {};

TEST_F(CopyAndPaste, GiveBackWhatWasCopied) {
  const std::string item = "{'$NodeId':'Item-2'}";
  const struct {
    const char* what;
    std::string members;
    std::function<void()> change;
  } cases[] = {
      {"a tree", "'One':{'Items':[{},{}]},'Items':[{'Label':'a','$Comment':'c'},{'One':{}}]", [] {}},
      {"generic nodes everywhere",
       "'One':{'$Generic':true,'x':1},'Items':[{'$Generic':true},{'Label':'a'}],'extra':{'a':1},'other':{'b':2}",
       [] {}},
      {"children out of the order of their heights", "'Items':[{},{},{}]",
       [this] { TestSupport::TestGraph::Place(Node(1), 1500, 900); }},
      {"a child of a map without a key", "'Map':{'x':{'$NodeId':'Item-2'}}", [this] { Node(1).mapKey.clear(); }},
      {"keys of a map that no field tells", "'Map':{'x':{'$NodeId':'Item-2'},'y':{'$Key':'y','$Value':3},'z':4}",
       [this] { Node(3).mapKey = "other"; }},
      {"a node in two lists", "'Items':[{'Items':[" + item + "]},{'Items':[" + item + "]}]", [] {}},
      {"a node on single pins of several", "'Items':[{'One':{}},{}]", [this] { Join(Node(3), "one", Node(2), "in"); }},
      {"a node below two tops", "'Items':[{'Items':[{'Label':'a'}]}]",
       [this] { Join(AddNode("Doc"), "items", Node(2), "in"); }},
      {"a cycle", "'Items':[{'Items':[{}]}]", [this] { Join(Node(2), "items", Node(1), "in"); }},
      {"a ring that nothing leads to", "",
       [this] {
         ContentNode &a = AddNode("Item"), &b = AddNode("Item");
         Join(a, "one", b, "in");
         Join(b, "one", a, "in");
       }},
      {"a node that hangs on itself", "",
       [this] {
         ContentNode& a = AddNode("Item");
         Join(a, "one", a, "in");
       }},
      {"a link among children", "'Items':[{},{'$Link':true,'Children':[{},{'$Link':true,'Children':[{}]}]},{}]", [] {}},
      {"a link without children", "'Items':[{'$Link':true},{}]", [this] { Node(1).SetComment("kept"); }},
      {"a link on a single pin, with two children", "'One':{'$Link':true,'Children':[{},{}]}", [] {}},
      {"a link of two parents", "'Items':[{'Items':[{'$Link':true,'Children':[{},{}]}]},{}]",
       [this] { Join(Node(5), "items", Node(2), "GenericIn"); }},
      {"a link with generic nodes", "'Items':[{'$Link':true,'Children':[{'$Generic':true,'x':1},{}]}]", [] {}},
      {"a link that nothing leads to", "",
       [this] {
         ContentNode &link = AddNode("Link"), &inner = AddNode("Link"), &a = AddNode("Item"), &b = AddNode("Generic");
         Join(link, "GenericOut", inner, "GenericIn");
         Join(link, "GenericOut", a, "in");
         Join(inner, "GenericOut", b, "Generic");
       }},
      {"links in a ring that nothing leads to", "",
       [this] {
         ContentNode &a = AddNode("Link"), &b = AddNode("Link");
         Join(a, "GenericOut", b, "GenericIn");
         Join(b, "GenericOut", a, "GenericIn");
       }},
      {"a pin other than the first of its type", "'Items':[{},{}]",
       [this] {
         Join(Node(0), "items", AddNode("Odd"), "b");
         Join(Node(1), "items", AddNode("Odd"), "a");
         Join(Node(1), "items", Node(3), "b");
       }},
      {"a pin that the schema has no key for", "'Items':[{'$NodeId':'Odd-2'}]",
       [this] {
         Join(Node(1), "free", AddNode("Item"), "in");
         Join(Node(1), "free", AddNode("Item"), "in");
       }},
      {"nodes with hidden pins", "'One':{'Items':[{}]},'Items':[{}]",
       [this] {
         Node(0).ToggleUnusedOutputPins();
         Node(1).ToggleUnusedOutputPins();
       }},
      {"frames among nodes", "'Items':[{}]",
       [this] {
         (*view)->AddGroupNode(30.5f, 400).SetTitle("g1");
         (*view)->AddCommentNode(1200, 20.0625f).SetTitle("c1");
         (*view)->AddGroupNode(40, 5).SetTitle("g2");
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    Load(c.members);
    c.change();
    const Nodes originals = All();
    const std::string text = Copied();
    SCOPED_TRACE(text);
    const std::string shown = Show(originals);
    for (int i = 0; i < 2; ++i) {
      const Nodes pasted = Paste(text);
      EXPECT_EQ(Show(pasted), shown);
      // They are selected, groups and comments too, and nothing else is.
      EXPECT_EQ((*view)->Selected().AllNodes().size(), pasted.size());
      for (const auto& node : pasted) EXPECT_TRUE(node->IsSelected() && (*view)->Contains(*node)) << node->Title();
      for (const auto& node : originals) EXPECT_FALSE(node->IsSelected()) << node->Title();
      EXPECT_TRUE((*view)->PendingConnections().empty());
    }
    EXPECT_EQ(Show(originals), shown);
  }
}

TEST_F(CopyAndPaste, WriteOneObjectForEachNodeThatHangsOnNothingOfTheCopy) {
  Load("'Items':[{'Label':'a','$Comment':'c','One':{}},{}],'extra':{'a':1}");
  // Whole places, which the form can tell.
  for (size_t i = 0; i < (*view)->ContentNodes().size(); ++i)
    TestSupport::TestGraph::Place(Node(i), 1000 + static_cast<float>(i), 500);
  GroupNode& group = (*view)->AddGroupNode(1000.5f, 510);
  CommentNode& comment = (*view)->AddCommentNode(1010, 510);
  comment.SetCommentText("}{");
  const std::string a =
      "{'$NodeId':'Item','$Title':'n1','$Comment':'c','$Position':{'$x':1,'$y':0},'Label':'a','Items':[]";
  const std::string one = "'One':{'$NodeId':'Item','$Title':'n2','$Position':{'$x':2,'$y':0},'Items':[]}";
  const std::string n3 = "{'$NodeId':'Item','$Title':'n3','$Position':{'$x':3,'$y':0},'Items':[]}";
  const std::string root = "{'$NodeId':'Doc','$Title':'n0','$Position':{'$x':0,'$y':0},'Kind':'doc','Items':[";
  const std::string extra = "],'Map':[],'Choice':[],'extra':{'$Generic':true,'a':1";
  // A node whose form tells no place, or no title, has them besides.
  const std::string placed = ",'$Copied':{'$x':4,'$y':0,'$Title':'n4'}}}";
  const struct {
    std::vector<size_t> selected;
    std::string objects;
  } cases[] = {
      {{}, ""},
      {{1}, a + "}"},
      {{2, 1}, a + "," + one + "}"},
      {{3, 1}, a + "}\n" + n3},
      {{3, 2}, one.substr(6) + "\n" + n3},
      // What the schema doesn't know belongs to its node.
      {{0}, root + extra + placed},
      {{0, 2}, root + extra + placed + "\n" + one.substr(6)},
      {{4, 3, 2, 1, 0}, root + a + "," + one + "}," + n3 + extra + placed},
      {{4}, "{'$Generic':true,'a':1,'$Copied':{'$Title':'n4'}}"},
      {{4, 3}, n3 + "\n{'$Generic':true,'a':1,'$Copied':{'$x':4,'$y':0,'$Title':'n4'}}"},
  };
  for (const auto& c : cases) {
    Select(c.selected);
    EXPECT_EQ(CopiedObjects(), Quoted(c.objects));
  }
  const std::string frame = "{'$Position':{'$x':0.5,'$y':10},'$width':300,'$height':300,'$name':'Group Title'}";
  Select({1});
  TestSupport::TestGraph::Place(Node(1), 1001.5f, 500);
  EXPECT_EQ(CopiedObjects(), Quoted(a + "}")) << "one node has no layout";
  (*view)->Selected().Add(comment);
  (*view)->Selected().Add(group);
  EXPECT_EQ(CopiedObjects(), Quoted(a + ",'$Copied':{'$x':1.5,'$y':0}}\n" + frame +
                                    "\n{'$Position':{'$x':10,'$y':10},'$width':250,'$height':150,'$name':'Comment',"
                                    "'$text':'}{','$fontSize':13}"));
  Node(4).SetTitle("Raw JSON Node");
  Select({4});
  EXPECT_EQ(Copied(), "{\n\t\"$Generic\":\ttrue,\n\t\"a\":\t1\n}");
}

TEST_F(CopyAndPaste, HoldWhatALinkLeadsTo) {
  Load("");
  ContentNode &link = AddNode("Link"), &inner = AddNode("Link"), &item = AddNode("Item");
  Join(link, "GenericOut", inner, "GenericIn");
  Join(inner, "GenericOut", item, "in");
  for (size_t i = 0; i < 4; ++i) TestSupport::TestGraph::Place(Node(i), 1000, 500);
  const std::string place = "'$Position':{'$x':0,'$y':0}";
  Select({1});
  EXPECT_EQ(CopiedObjects(), Quoted("{'$NodeId':'Link','$Title':'n1'," + place + "}"));
  Select({1, 3});
  EXPECT_EQ(CopiedObjects(), Quoted("{'$NodeId':'Link','$Title':'n1'," + place + "}\n{'$NodeId':'Item','$Title':'n3'," +
                                    place + ",'Items':[]}"));
  Select({1, 2, 3});
  EXPECT_EQ(
      CopiedObjects(),
      Quoted("{'$NodeId':'Link','$Title':'n1'," + place + ",'Children':[{'$NodeId':'Item','$Title':'n3'," + place +
             ",'Items':[],'$Copied':{'label':'2'}}],'$Copied':{'links':[{'$Title':'n2','connections':"
             "{'GenericOut':['2:in']},'$x':0,'$y':0,'label':'1'}],'connections':{'GenericOut':['1:GenericIn']}}}"));
  // A ring of links alone, and one on a pin that is no link's own.
  Join(inner, "GenericOut", link, "GenericIn");
  Select({1, 2});
  EXPECT_EQ(Show(Paste(Copied())), Show({Toolkit::Ptr<BaseNode>(&link), Toolkit::Ptr<BaseNode>(&inner)}));
  ContentNode& generic = AddNode("Generic");
  (*view)->Attach(*Toolkit::MakePtr<Connection>(*generic.FindPin("Generic"),
                                                *inner.AddDynamicPin(*generic.FirstInput()->blueprint)));
  generic.SetTitle("g");
  Select({1, 2});
  (*view)->Selected().Add(generic);
  const Nodes pasted = Paste(Copied());
  ASSERT_EQ(pasted.size(), 3u);
  EXPECT_TRUE(Show(pasted).find("n2 at 0,0 Link 'Comment'  GenericOut>n1.GenericIn GenericOut>g.Generic") !=
              std::string::npos)
      << Show(pasted);
}

TEST_F(CopyAndPaste, WriteAChildInFullAtEachOfItsParents) {
  Load("'Items':[{'Items':[{'$NodeId':'Item-2','Items':[{'Label':'l'}]}]},{'Items':[{'$NodeId':'Item-2'}]}],"
       "'Map':{'k':{'$NodeId':'Entry-5','$Key':'k','$Value':1}}");
  for (size_t i = 0; i < (*view)->ContentNodes().size(); ++i) TestSupport::TestGraph::Place(Node(i), 1000, 500);
  const std::string start = ",'$Position':{'$x':0,'$y':0}";
  const std::string inner = "'Items':[{'$NodeId':'Item','$Title':'n3'" + start + ",'Label':'l','Items':[],";
  const std::string shared = "'Items':[{'$NodeId':'Item','$Title':'n2'" + start + "," + inner +
                             "'$Copied':{'label':'2'}}],'$Copied':{'label':'1'}}]}";
  Select({1, 2, 3, 4});
  EXPECT_EQ(CopiedObjects(), Quoted("{'$NodeId':'Item','$Title':'n1'" + start + "," + shared +
                                    "\n{'$NodeId':'Item','$Title':'n4'" + start + "," + shared));
  Select({0, 5});
  Node(5).mapKey.clear();
  const std::string entry = "'Map':[{'$NodeId':'Entry','$Title':'n5'" + start + ",'$Key':'k','$Value':1}]";
  EXPECT_NE(CopiedObjects().find(Quoted(entry)), std::string::npos) << CopiedObjects();
}

TEST_F(CopyAndPaste, TakeWhatLiesInSelectedGroupsAlong) {
  Load("'Items':[{}]");
  GroupNode& group = (*view)->AddGroupNode(900, 400);
  GroupNode& inner = (*view)->AddGroupNode(910, 410);
  inner.SetBounds({910, 410, 100, 100});
  view->Layout();
  const auto copyOf = [this](std::vector<GroupNode*> groups) {
    (*view)->Selected().Clear();
    for (GroupNode* each : groups) {
      (*view)->Selected().Add(*each);
      (*view)->Selected().AddContentsOf(*each, **view);
    }
    return Paste(Copied()).size();
  };
  (*view)->Selected().Clear();
  group.SetBounds({900, 400, 2000, 2000});
  EXPECT_EQ(copyOf({&inner}), 1u);
  EXPECT_EQ(copyOf({&group, &inner}), 4u) << "what lies in two groups comes once";
}

TEST_F(CopyAndPaste, KeepTheFileOfAReference) {
  Load("'Items':[{'$NodeId':'File-2','$FileName':'other','FileId':'id','Values':{'a':1.5,'b':'text'}}]");
  Select({1});
  const std::string copied = CopiedObjects();
  EXPECT_EQ(copied, Quoted("{'$NodeId':'File','$Title':'n1','$Position':{'$x':60,'$y':10},'$FileName':'other',"
                           "'FileId':'id','Values':{'a':1.5,'b':'text'}}"));
  const Nodes pasted = Paste(copied);
  ASSERT_EQ(pasted.size(), 1u);
  const auto* node = Toolkit::DynamicCast<ReferenceNode>(pasted[0].Get());
  ASSERT_TRUE(node);
  EXPECT_EQ(node->FileName(), "other");
  EXPECT_EQ(node->FileId(), "id");
  const auto fileOf = [](const std::string& text) { return text.substr(text.find("$FileName")); };
  EXPECT_EQ(fileOf(CopiedObjects()), fileOf(copied));
}

TEST_F(CopyAndPaste, StopWhereNoTextCanBeReadAgain) {
  const auto loadChain = [this](int length) {
    Load("");
    const StructureChange change(**view);
    ContentNode* last = &Node(0);
    for (int i = 1; i < length; ++i) {
      ContentNode& next = AddNode("Item");
      Join(*last, "one", next, "in");
      last = &next;
    }
    for (int i = 0; i < length; ++i) TestSupport::TestGraph::Place(Node(static_cast<size_t>(i)), 1000, 500);
    SelectAll();
  };
  // The deepest object holds a list.
  loadChain(999);
  const std::string deepest = Copied();
  EXPECT_EQ(JsonNesting(deepest), JsonNestingLimit);
  EXPECT_EQ(ReadClipboardText(deepest).size(), 1u);
  loadChain(1000);
  EXPECT_FALSE(CopySelection(**view));
  // A longer one is not even written to its end: it could fill the stack.
  loadChain(3000);
  EXPECT_FALSE(CopySelection(**view));
  NodeWriter writer(NodeSet{});
  EXPECT_LE(JsonNesting(PrintJson(writer.WriteTopOfCopy(Node(0)).get())), JsonNestingLimit + 1);
  EXPECT_TRUE(writer.IsTooDeep());
  // What a field holds counts as well.
  Load("'extra':{'a':1}");
  std::string raw = "{}";
  for (size_t i = 1; i < JsonNestingLimit; ++i) raw = "{\"a\":" + raw + "}";
  Toolkit::DynamicCast<GenericContentNode>(&Node(1))->RawField()->GetFieldTextData()->SetValue(raw);
  Select({1});
  EXPECT_TRUE(CopySelection(**view));
  Select({0});
  EXPECT_FALSE(CopySelection(**view));
}

TEST_F(CopyAndPaste, DoNotDoubleWithEachNodeOfSeveralParents) {
  // Two ways from each node to the next, forty times: as nodes, and as links on one pin.
  for (const bool areLinks : {false, true}) {
    Load("");
    ContentNode* end = areLinks ? &AddNode("Link") : &Node(0);
    if (areLinks) Join(Node(0), "items", *end, "GenericIn");
    const char *type = areLinks ? "Link" : "Item", *out = areLinks ? "GenericOut" : "items";
    const char* in = areLinks ? "GenericIn" : "in";
    for (int i = 0; i < 40; ++i) {
      ContentNode &left = AddNode(type), &right = AddNode(type), &next = AddNode(type);
      Join(*end, out, left, in);
      Join(*end, out, right, in);
      Join(left, out, next, in);
      Join(right, out, next, in);
      end = &next;
    }
    Join(*end, out, AddNode("Item"), "in");
    const Nodes originals = All();
    const std::string text = Copied();
    EXPECT_LT(text.size(), 3000000u);
    EXPECT_EQ(Show(Paste(text)), Show(originals));
  }
}

TEST_F(CopyAndPaste, OfTheRootGiveANodeThatIsNone) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1'}"));
  SelectAll();
  const std::string text = CopiedObjects();
  EXPECT_EQ(text.substr(0, 39), Quoted("{'$NodeId':'Doc','$Title':'[ROOT] Doc',"));
  EXPECT_EQ(Paste(text).at(0)->Title(), "Doc");
  EXPECT_EQ((*view)->Root()->Title(), "[ROOT] Doc");
}

TEST_F(CopyAndPaste, GiveFieldsThatAreNotToldTheirDefaults) {
  AddSchema("{'id':'Default','title':'Default','color':'red','content':[{'Id':'label','Type':'SmallString',"
            "'Options':{'Default':'d'}}],'Schema':{'Label':'label'}}");
  const Nodes pasted = Paste(Quoted("{'$NodeId':'Default'}"));
  EXPECT_EQ(Toolkit::DynamicCast<ContentNode>(pasted.at(0).Get())->FindField("label")->GetValueAsString(), "d");
}

TEST_F(CopyAndPaste, LeavePropertiesAndParametersBehind) {
  StartView("Free");
  ASSERT_TRUE(Import("{'$NodeId':'Free-1','a':1,'b':'text'}"));
  ASSERT_EQ((*view)->ContentNodes().size(), 3u);
  for (size_t i = 0; i < 3; ++i) TestSupport::TestGraph::Place(Node(i), 1000, 500);
  SelectAll();
  const std::string text = Copied();
  EXPECT_EQ(text.find("$Copied"), std::string::npos) << text;
  EXPECT_EQ(Paste(text).size(), 1u);
}

/// What is made of texts that no copy wrote.
TEST_F(CopyAndPaste, MakeNodesOfAnyObjects) {
  const std::string noFrame = "Pasted object is no node, group or comment, ignoring...";
  const std::string group = "{'$Position':{'$x':-4.5,'$y':20},'$width':50,'$height':400.5,'$name':'g'}";
  const struct {
    std::string text;
    /// As `Show` tells them.
    std::string nodes;
    /// The log lines that begin with "Pasted".
    std::vector<std::string> log;
  } cases[] = {
      {group, "g at 0,0 100x400.5\n", {}},
      {"{'$position':{'$X':1,'$Y':2},'$WIDTH':200,'$Height':200,'$NAME':'g'}", "g at 0,0 200x200\n", {}},
      {"{'$Position':{'$x':1,'$y':2},'$text':7}", "Comment at 0,0 250x150\n", {}},
      {"{'$Position':{'$x':1,'$y':2},'$text':'t','$name':'c','$width':10,'$height':10}", "c at 0,0 100x60\n", {}},
      {"{'$NodeId':'Item','Label':'l'}", "Item at 0,0 Item 'Comment' \n", {}},
      {"{'$nodeid':'Item-7','$Title':'t','$Comment':'c'}", "t at 0,0 Item 'c' \n", {}},
      {"{'$NodeId':'Item','$Generic':true}", "Item at 0,0 Item 'Comment' \n", {}},
      {"{'$Generic':false,'a':1}", "Raw JSON Node at 0,0 Generic 'Comment' \n", {}},
      {"{'$NodeId':'Doc','$Title':'d','$Position':{'$x':7,'$y':7},'Items':[{'$Title':'i',"
       "'$Position':{'$x':2,'$y':3}}]}",
       "d at 5,4 Doc 'Comment'  items>i.in\ni at 0,0 Item 'Comment' \n",
       {}},
      // A frame keeps its fractions, and a whole place of a node is on the grid.
      {"{'$NodeId':'Item','$Position':{'$x':3.9,'$y':20}}" + group,
       "Item at 7.5,0 Item 'Comment' \ng at 0,0 100x400.5\n",
       {}},
      // One UUID is one node.
      {"{'$NodeId':'Doc-1','$Title':'d','One':{'$NodeId':'Item-2','$Title':'i'},'Items':[{'$NodeId':'Item-2'}]}",
       "d at 0,0 Doc 'Comment'  items>i.in one>i.in\ni at 0,0 Item 'Comment' \n",
       {}},
      // What lacks the keys of its kind.
      {"{}", "", {noFrame}},
      {"{'$Position':{'$x':1,'$y':2},'$width':50,'$height':400}", "", {noFrame}},
      {"{'$Position':{'$x':1,'$y':2},'$width':50,'$name':'g'}", "", {noFrame}},
      {"{'$Position':{'$x':1,'$y':2},'$height':50,'$name':'g'}", "", {noFrame}},
      {"{'$width':50,'$height':50,'$name':'g'}", "", {noFrame}},
      {"{'$Position':{'$x':1},'$width':50,'$height':50,'$name':'g'}", "", {noFrame}},
      {"{'$Position':{'$x':1e99,'$y':0},'$width':50,'$height':50,'$name':'g'}", "", {noFrame}},
      {"{'$Position':{'$x':1,'$y':2},'$width':'50','$height':50,'$name':'g'}", "", {noFrame}},
      {"{'$text':'t'}", "", {"Pasted comment has no position, ignoring..."}},
      {"{'$NodeId':7}", "", {"Pasted node has no type, ignoring..."}},
      {"{'$NodeId':'Broken','$Position':{'$x':1,'$y':2}}{}{'$NodeId':'Item','$Position':{'$x':1,'$y':2}}word",
       "Item at 0,0 Item 'Comment' \nRaw JSON Node at 0,0 Generic 'Comment' \n",
       {noFrame}},
      // Details that tell nonsense.
      {"{'$NodeId':'Item','$Title':'i','$Copied':{'$x':1e99,'$y':0,'label':'1','mapKey':7,'connections':"
       "{'items':['1:in','1:items','2:in','1','',7,'1:in'],'in':['1:in'],'none':['1:in'],'one':[]},"
       "'links':[{'label':'1'},7,{'$x':5},{'$Title':'l','label':'2','connections':{'GenericOut':['1:in']}}]},"
       "'One':{'$Copied':7,'$Title':'j'},'Items':[{'$Copied':{'label':'1'}}]}",
       "Link at 0,0 Link 'Comment' \nLink at 0,0 Link 'Comment' \nLink at 0,0 Link 'Comment' \ni at 0,0 Item 'Comment' "
       " items>i.in\n"
       "j at 0,0 Item 'Comment' \nl at 0,0 Link 'Comment'  GenericOut>i.in\n",
       {}},
  };
  AddSchema("{'id':'Broken','title':'Broken','color':'red','content':[{'Id':'x','Type':'no such type'}],'Schema':{}}");
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    Load("'Items':[{'$NodeId':'Item-7'},{'$NodeId':'Item-2'}]");
    Select({1});
    log.lines.clear();
    const Nodes pasted = Paste(Quoted(c.text), {300, 200});
    EXPECT_EQ(Show(pasted), c.nodes);
    std::erase_if(log.lines, [](const std::string& line) {
      return !line.starts_with("Pasted ") || line.ends_with("JSON, ignoring...");
    });
    EXPECT_EQ(log.lines, c.log);
    for (const auto& node : pasted) {
      const auto* content = Toolkit::DynamicCast<ContentNode>(node.Get());
      EXPECT_TRUE(!content || content->NodeId().empty()) << "an id that another node may have";
    }
    EXPECT_EQ((*view)->Selected().AllNodes().size(), pasted.size());
    EXPECT_EQ(Node(0).FindPin("items")->connections.size(), 2u) << "the nodes of the document stay as they are";
  }
  Paste(Quoted("{'$NodeId':'Broken','X':1}"), {});
  EXPECT_NE(ExportMetadata("$FloatingNodes").find(Quoted("{'$NodeId':'Broken','X':1}")), std::string::npos);
}

TEST_F(CopyAndPaste, PutTheUpperLeftCornerOfTheObjectsToThePlace) {
  Load("'Items':[{},{'Items':[{}]}]");
  // Above and left of all, but inside of another object.
  TestSupport::TestGraph::Place(Node(3), 10, 20);
  (*view)->AddCommentNode(990.5f, 700);
  const Nodes originals = All();
  const std::string text = Copied();
  const NodeCopy copy = CopySelection(**view).value();
  EXPECT_EQ(copy.corner, (Toolkit::Point{990.5f, 500.25f}));
  const Nodes pasted = Paste(text, {300, 200});
  EXPECT_EQ(Show(pasted), Show(originals));
  const Nodes frames = {pasted.back()};
  EXPECT_EQ(frames[0]->Bounds().x, 300);
  EXPECT_EQ(pasted[0]->Bounds().y, 200);
}

} // namespace
} // namespace Tesselor
