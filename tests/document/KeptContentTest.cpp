// What a save keeps although no schema, or no place in the tree, asks for it.
#include "DocumentTest.h"
#include "TemporaryDirectory.h"
#include "document/DocumentExport.h"
#include "document/DocumentPrint.h"
#include "document/LossReport.h"
#include "document/NodeImporterExporter.h"
#include "document/NodeShapes.h"
#include "fields/FieldRawJson.h"
#include "nodes/GenericContentNode.h"
#include "nodes/NodeKeys.h"
#include "platform/JsonMemory.h"

#include <cstdlib>
#include <string>
#include <unordered_set>
#include <vector>

namespace Tesselor {

using TestSupport::Quoted;

class KeptContent : public TestSupport::DocumentTest {
protected:
  KeptContent() {
    AddSchema("{'id':'Broken','title':'Broken','color':'red','inputs':[{'id':'in','Type':'T','color':'red'}],"
              "'content':[{'Id':'x','Type':'no such type'}],'Schema':{'X':'x'}}");
    AddSchema("{'id':'Torn','title':'Torn','color':'red','inputs':[{'id':'in','Type':'T','color':'red'}],'outputs':[{"
              "'id':'out','Type':'T','color':'red','fields':[{'Id':'x','Type':'no such type'}]}],'Schema':{'X':'x'}}");
    AddSchema("{'id':'Frayed','title':'Frayed','color':'red','inputs':[{'id':'in','Type':'T','color':'red','fields':[{"
              "'Id':'x','Type':'no such type'}]}],'Schema':{'X':'x'}}");
    AddSchema("{'id':'Open','title':'Open','color':'red','inputs':[{'id':'in','Type':'T','color':'red'}],"
              "'outputs':[{'id':'loose','Type':'T','color':'red','Multiple':true}],'Schema':{}}");
  }
  /// What the second of two loads and saves writes.
  std::string Twice(const std::string& json) {
    StartView("Doc");
    EXPECT_TRUE(Import(json));
    const std::string first = Export();
    StartView("Doc");
    EXPECT_TRUE(Import(first));
    EXPECT_EQ(Export(), first);
    return first;
  }
  /// What is kept of a document that is not saved.
  std::string Print() const {
    return DocumentExport(*(*view)->Root(), (*view)->ContentNodes(), FieldsToWrite::All)
        .Print((*view)->GroupNodes(), (*view)->CommentNodes(), "Doc");
  }
  bool Save(const std::string& path) {
    return NodeImporterExporter::ExportNodeTree(path, (*view)->Root(), (*view)->ContentNodes(), (*view)->GroupNodes(),
                                                (*view)->CommentNodes(), "Root", false);
  }
  void Connect(ContentNode& parent, const char* output, ContentNode& child, const char* input) {
    (*view)->Attach(*Toolkit::MakePtr<Connection>(*child.FindPin(input), *parent.FindPin(output)));
  }
  ContentNode& Add(const char* type) {
    const Toolkit::Ptr<ContentNode> node = workspace->nodeDictionary->CreateNode(type, true);
    (*view)->AddNode(*node, 0, 0, false);
    return *node;
  }
};

TEST_F(KeptContent, EntriesOfTypesThatCanNotBeMadeGoOutAsTheyCame) {
  // A type that nobody knows may be one of the file that could not be read.
  workspace->nodeDictionary->lacksSchemas = true;
  const struct {
    const char* what;
    const char* members;
    const char* written = nullptr;
  } cases[] = {
      {"in an array, between others", "'Items':[{'$NodeId':'Item-2'},{'$NodeId':'Broken-3','X':{'deep':[1]}},{'$NodeId'"
                                      ":'Nothing-4','a':1},{'$NodeId':'Item-5'}]"},
      {"behind a single pin, with a comment", "'One':{'$NodeId':'Broken-3','$Comment':'c','X':null}"},
      {"with fields on pins", "'Items':[{'$NodeId':'Torn-3','X':1},{'$NodeId':'Item-4'},{'$NodeId':'Frayed-5','X':2}]"},
      {"in a map", "'Map':{'k':{'$NodeId':'Nothing-3','a':1}}"},
      {"twice in the tree", "'Items':[{'$NodeId':'Broken-3','X':1},{'$NodeId':'Item-4','Items':[{'$NodeId':'Broken-3',"
                            "'X':1}]}]"},
      {"below a pass-through node", "'Items':[{'$Link':true,'Children':[{'$NodeId':'Broken-3','X':1}]}]",
       "'Items':[{'$NodeId':'Broken-3','X':1}]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string head = "{'$NodeId':'Doc-1','Kind':'doc',";
    EXPECT_EQ(RoundTrip(head + c.members + "}"), Quoted(head + (c.written ? c.written : c.members) + "}"));
    EXPECT_EQ(ExportMetadata("$FloatingNodes"), "[]");
  }
  StartView("Doc");
  ASSERT_TRUE(Import("{'$FloatingNodes':[{'$NodeId':'Broken-3','X':1}]}"));
  EXPECT_EQ(ExportMetadata("$FloatingNodes"), Quoted("[{'$NodeId':'Broken-3','X':1}]"));
  EXPECT_EQ(boxes.Texts().back(), "Error: Unable to create Field: no such type");
  StartView("Doc");
  ASSERT_TRUE(Import("{'Items':[{'$NodeId':'Nothing','X':1}],'$FloatingNodes':[{'Type':'gone','X':1}]}"));
  EXPECT_EQ(ExportMetadata("$FloatingNodes"), Quoted("[{'Type':'gone','X':1}]"));
  (*view)->ContentNodes()[1]->SetNodeId("2");
  EXPECT_NE(ExportAsset().find(Quoted("{'$NodeId':'Nothing-2','X':1}")), std::string::npos);
  // A root is refused instead: nothing is left to edit.
  for (const char* root : {"Broken", "Torn"}) {
    StartView(root);
    EXPECT_FALSE(Import("{'X':1}")) << root;
  }
}

TEST_F(KeptContent, ComesBackWholeOnceABrokenSchemaIsRepaired) {
  const auto part = [](const std::string& head, const std::string& field, const std::string& onPin,
                       const std::string& inObject) {
    return "{'title':'Part'," + head +
           ",'inputs':[{'id':'in','Type':'T','color':'red','Multiple':true}],'outputs':[{"
           "'id':'parts','Type':'T','color':'red','Multiple':true,'fields':[{'Id':'onPin','Type':'" +
           onPin +
           "'}]}],"
           "'content':[{'Id':'field','Type':'" +
           field +
           "'},{'Id':'object','Type':'Object','Options':{'Fields':[{'Id':"
           "'A','Type':'Int'},{'Id':'B'," +
           inObject +
           "}]}}],'Schema':{'X':'field','Object':'object','Pin':'onPin',"
           "'Parts':{'node':'Part','pin':'parts'}}}";
  };
  const std::string head = "'id':'Part','color':'red'", text = "SmallString", number = "'Type':'Float'";
  const auto entry = [](const char* id, const std::string& parts = {}) {
    return "{'$NodeId':'Part-" + std::string(id) + "','X':'x','Object':{'A':1,'B':2.5},'Pin':'p'" +
           (parts.empty() ? "" : ",'Parts':[" + parts + "]") + "}";
  };
  const std::string several = "{'$NodeId':'Item-10'}";
  const std::string file =
      "{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2'}," +
      entry("3", entry("4", "{'$NodeId':'Item-6'}," + entry("7")) + "," + entry("5") + "," + several) + "," + several +
      "],'Map':{'k':" + entry("9") + "},'One':" + entry("8") +
      ",'$NodeEditorMetadata':{'$Nodes':{"
      "'Doc-1':{'$Position':{'$x':-90,'$y':0}},'Item-2':{'$Position':{'$x':0,'$y':-50}},"
      "'Part-3':{'$Position':{'$x':0,'$y':0},'$Title':'three'},'Part-4':{'$Position':{'$x':90,'$y':0},'$Title':'four'},"
      "'Part-5':{'$Position':{'$x':90,'$y':50}},'Item-6':{'$Position':{'$x':190,'$y':-7}},'Part-7':{'$Position':{'$x':"
      "190,'$y':60}},'Part-8':{'$Position':{'$x':1,'$y':200}},'Part-9':{'$Position':{'$x':2,'$y':300}},'Item-10':{"
      "'$Position':{'$x':95,'$y':90}},'Part-11':{'$Position':{'$x':3,'$y':400}},'Part-12':{'$Position':{'$x':4,'$y':400"
      "}}},'$FloatingNodes':[" +
      entry("11", entry("12") + "," + several) +
      "],'$Links':{"
      // From the tree to a part, in it, from it and the tree to one node, from link to link, and behind a single pin.
      "'to':{'$Position':{'$x':5,'$y':5},'inputConnections':['Doc-1:items'],'outputConnections':['Part-3:in']},"
      "'in':{'$Position':{'$x':6,'$y':5},'inputConnections':['Part-3:parts'],'outputConnections':['Part-4:in',"
      "'Part-5:in']},'of':{'$Position':{'$x':7,'$y':95},'$Title':'both','inputConnections':['Part-11:parts',"
      "'Part-3:parts','Doc-1:items'],'outputConnections':['Item-10:in']},'from':{'$Position':{'$x':11,'$y':95},"
      "'inputConnections':['Item-10:items'],'outputConnections':[]},'first':{'$Position':{'$x':8,'$y':5},'"
      "inputConnections':["
      "'Part-4:parts'],'outputConnections':['link:second']},'second':{'$Position':{'$x':9,'$y':5},'inputConnections':["
      "'link:first'],'outputConnections':['Item-6:in','Part-7:in']},'one':{'$Position':{'$x':10,'$y':200},"
      "'inputConnections':['Doc-1:one'],'outputConnections':['Part-8:in']}},'$Groups':[{'$Position':{'$x':0,'$y':0},"
      "'$width':300,'$height':300,'$name':'g'}],'$Comments':[],'$WorkspaceID':'Root menu'}}";
  const auto save = [this](const std::string& schema, const std::string& json, const char* root = "Doc") {
    StartWorkspace();
    if (schema.empty())
      workspace->nodeDictionary->lacksSchemas = true;
    else
      AddSchema(schema);
    StartView(root);
    EXPECT_TRUE(Import(json));
    return Export();
  };
  const auto shapes = [this] { return NodeShapes(*workspace->nodeDictionary); };
  const std::string intact = part(head, text, text, number);
  const std::string saved = save(intact, file);
  ASSERT_TRUE(FindLosses(*ParseJson(Quoted(file)).json, *ParseJson(saved).json, shapes()).empty()) << saved;
  const struct {
    const char* what;
    std::string schema;
    const char* root = "Doc";
  } cases[] = {
      {"no file", ""},
      {"an unknown field", part(head, "SmallStrng", text, number)},
      {"an unknown field on a pin", part(head, text, "SmallStrng", number)},
      {"an unknown field in an object", part(head, text, text, "'Type':'Floot'")},
      {"no type of a field in an object", part(head, text, text, "'Typ':'Float'")},
      {"no colour", part("'id':'Part'", text, text, number)},
      {"no id", part("'idd':'Part','color':'red'", text, text, number)},
      {"the id of another", part("'id':'Item','color':'red'", text, text, number)},
      {"no type of the root", "", "Gone"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string broken = save(c.schema, saved, c.root);
    for (const Loss& loss : FindLosses(*ParseJson(saved).json, *ParseJson(broken).json, shapes()))
      ADD_FAILURE() << loss.Line();
    EXPECT_EQ(save(c.schema, broken, c.root), broken);
    EXPECT_EQ(save(intact, broken), saved);
  }
}

TEST_F(KeptContent, PropertiesWhoseTypeCanNotBeMadeStayProperties) {
  AddSchema("{'id':'Bag','title':'Bag','color':'red','inputs':[{'id':'in','Type':'T','color':'red'}],'outputs':[{'id':"
            "'p','Type':'P','color':'red','Multiple':true}],'Schema':{'$AdditionalProperties$Pin':{'node':'Broken',"
            "'pin':'p'}}}");
  const std::string file = "{'$NodeId':'Doc-1','Kind':'doc','One':{'$NodeId':'Bag-2','a':1,'b':{'Compute':'x'}}}";
  EXPECT_EQ(RoundTrip(file), Quoted(file));
}

TEST_F(KeptContent, WhatHangsOnTheTreeButIsWrittenNowhereCountsAsFloating) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','One':{'$NodeId':'Item-2'},'Items':[{'$NodeId':'Open-3'}],'x':{'a':1}}"));
  ContentNode& root = *(*view)->Root();
  ContentNode& link = Add(BuiltIn::Link);
  // A pin that takes one child shows a second one behind a pass-through node.
  ContentNode& first = *(*view)->FindNodeById("2");
  Connect(first, "one", link, "GenericIn");
  Connect(link, "GenericOut", Add("Item"), "in");
  ContentNode& second = Add("Item");
  second.SetNodeId("second");
  Connect(link, "GenericOut", second, "in");
  // A pin that no key of the schema names, and what hangs on the child there.
  ContentNode& loose = Add("Item");
  loose.SetNodeId("loose");
  Connect(*(*view)->FindNodeById("3"), "loose", loose, "in");
  ContentNode& below = Add("Item");
  below.SetNodeId("below");
  Connect(loose, "items", below, "in");
  // A typed node where the schema knows no key.
  ContentNode& generic = *(*view)->ContentNodes()[3];
  ASSERT_TRUE(Toolkit::DynamicCast<GenericContentNode>(&generic));
  (*view)->Remove(generic);
  ContentNode& typed = Add("Item");
  typed.SetNodeId("typed");
  Connect(root, "Generic", typed, "in");
  // What stands behind a pass-through node of a node that floats is written there alone.
  ContentNode& behind = Add("Item");
  behind.SetNodeId("behind");
  ContentNode &between = Add(BuiltIn::Link), &above = Add("Item");
  above.SetNodeId("above");
  Connect(above, "items", between, "GenericIn");
  Connect(between, "GenericOut", behind, "in");
  EXPECT_EQ(ExportMetadata("$FloatingNodes"), Quoted("[{'$NodeId':'Item-second'},{'$NodeId':'Item-loose','Items':[{"
                                                     "'$NodeId':'Item-below'}]},{'$NodeId':'Item-typed'},{'$NodeId':'"
                                                     "Item-above','Items':[{'$NodeId':'Item-behind'}]}]"));
}

TEST_F(KeptContent, FloatingNodesKeepTheirPlaceOverTwoSaves) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1'}"));
  TestSupport::TestGraph::Place(Add("Item"), 300, 700);
  const std::string saved = Twice(Export());
  EXPECT_NE(saved.find(Quoted("'$Position':{'$x':-700,'$y':200}")), std::string::npos) << saved;
}

TEST_F(KeptContent, AChildBehindALinkKeepsItsPlaceAmongPlacedSiblings) {
  const auto file = [](const char* y2, const char* y3, const char* y4) {
    return "{'$NodeId':'Doc-1','Kind':'doc','Items':[{'$NodeId':'Item-2'" + std::string(y2) + "},{'$NodeId':'Item-3'" +
           y3 + "},{'$NodeId':'Item-4'" + y4 +
           "}],'$Links':{'L':{'$Position':{'$x':0,'$y':900},'inputConnections':['Doc-1:items'],'outputConnections':"
           "['Item-3:in'],'sourceEndpoint':'Doc-1:items'}}}";
  };
  const std::string written =
      Quoted("{'$NodeId':'Doc-1','Kind':'doc','Items':[{'$NodeId':'Item-2'},{'$NodeId':'Item-3'},"
             "{'$NodeId':'Item-4'}]}");
  for (const int height : {-500, 0, 500}) {
    const auto at = [height](int below) { return ",'$Position':{'$x':0,'$y':" + std::to_string(height + below) + "}"; };
    EXPECT_EQ(RoundTrip(file(at(0).c_str(), at(10).c_str(), at(20).c_str())), written) << height;
  }
}

TEST_F(KeptContent, AnInlinePlaceAtTheMiddleIsAPlace) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','$Position':{'$x':-300,'$y':0},'Items':[{'$NodeId':'Item-2','$Position':{'$x':"
                     "0,'$y':0}},{'$NodeId':'Item-3','$RootNodePosition':{'$x':0.4,'$y':0.3}}]}"));
  for (const char* id : {"2", "3"}) {
    const ContentNode& node = *(*view)->FindNodeById(id);
    EXPECT_EQ(Toolkit::Canvas::GetLeft(&node), 1000) << id;
    EXPECT_EQ(Toolkit::Canvas::GetTop(&node), 500) << id;
  }
}

TEST_F(KeptContent, AGenericRootHasItsMetadataOnce) {
  for (const char* file : {"{'a':1,'$NodeEditorMetadata':{'$Groups':[],'$WorkspaceID':'x'}}", "{'a':1,'$Groups':[]}"}) {
    StartView("No such type");
    ASSERT_TRUE(Import(file));
    EXPECT_EQ(ExportAsset(), Quoted("{'$Generic':true,'a':1}"));
  }
}

TEST_F(KeptContent, RefusesToSaveWhatCouldNotBeOpenedAgain) {
  const TestSupport::TemporaryDirectory directory;
  const std::string path = directory.Write("asset.json", "old");
  const auto chain = [this](const char* pin, int length, bool floats = false) {
    StartView("Doc");
    EXPECT_TRUE(Import("{'$NodeId':'Doc-1'}"));
    ContentNode* last = floats ? &Add("Item") : (*view)->Root();
    for (int i = 0; i < length; ++i) {
      ContentNode& next = Add("Item");
      Connect(*last, pin, next, "in");
      last = &next;
    }
    return last;
  };
  const std::string tail = " levels deep, and only 1000 can be opened again.";
  chain("one", 999);
  EXPECT_TRUE(Save(path));
  EXPECT_TRUE(ParseJson(TestSupport::TemporaryDirectory::Read(path)));
  EXPECT_TRUE(ParseJson(Print()));
  chain("one", 1000);
  EXPECT_EQ(Print(), "");
  EXPECT_FALSE(Save(path));
  EXPECT_EQ(boxes.Texts().back(), "Export Error: Cannot export: The file would nest 1001" + tail);
  // Around the floating nodes are the document, the metadata and their list.
  chain("one", 996, true);
  EXPECT_TRUE(Save(path));
  chain("one", 997, true);
  EXPECT_FALSE(Save(path));
  EXPECT_EQ(boxes.Texts().back(), "Export Error: Cannot export: The file would nest 1001" + tail);
  EXPECT_EQ(DocumentExport(*(*view)->Root(), (*view)->ContentNodes(), FieldsToWrite::All).Measure().nesting, 1001u)
      << "told before it is built";
  // What stands in raw text is known only once it is written.
  ContentNode* last = chain("items", 499);
  std::string raw = "1";
  for (int i = 0; i < 3; ++i) raw = "{\"a\":" + raw + "}";
  const JsonPtr object = ParseJson(raw).json;
  last->AddDynamicPin(*workspace->nodeDictionary->FindBlueprint(BuiltIn::Generic)->inputs.front());
  auto& generic = static_cast<GenericContentNode&>(Add(BuiltIn::Generic));
  generic.SetTargetKey("g");
  generic.RawField()->GetFieldTextData()->SetValue(raw);
  Connect(*last, BuiltIn::Generic, generic, BuiltIn::Generic);
  EXPECT_EQ(Print(), "");
  EXPECT_FALSE(Save(path));
  EXPECT_EQ(boxes.Texts().back(), "Export Error: Cannot export: The file would nest 1002" + tail);
}

TEST_F(KeptContent, CountsHowOftenNodesWithSeveralParentsAreWritten) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1'}"));
  ContentNode* above = (*view)->Root();
  constexpr int levels = 40;
  for (int i = 0; i < levels; ++i) {
    ContentNode &left = Add("Item"), &right = Add("Item"), &next = Add("Item");
    Connect(*above, "items", left, "in");
    Connect(*above, "items", right, "in");
    Connect(left, "items", next, "in");
    Connect(right, "items", next, "in");
    above = &next;
    if (i == 2) {
      const auto size = DocumentExport(*(*view)->Root(), (*view)->ContentNodes(), FieldsToWrite::All).Measure();
      // The root, and on each level two nodes with one each below them, for each of those above.
      EXPECT_EQ(size.nodes, 1 + 4 + 8 + 16);
      EXPECT_EQ(size.nesting, 7u);
      EXPECT_FALSE(size.IsMultiplied(10));
    }
  }
  // In a ring a node that is being written is only named.
  ContentNode &start = Add("Item"), &ring = Add("Item"), &back = Add("Item");
  Connect(start, "one", ring, "in");
  Connect(ring, "one", back, "in");
  Connect(back, "one", ring, "in");
  const auto size = DocumentExport(start, {}, FieldsToWrite::All).Measure();
  EXPECT_EQ(size.nodes, 4);
  EXPECT_EQ(size.nesting, 4u);
  const TestSupport::TemporaryDirectory directory;
  EXPECT_EQ(Print(), "");
  EXPECT_FALSE(Save(directory / "asset.json"));
  EXPECT_EQ(
      boxes.Texts().back(),
      "Export Error: Cannot export: The file would hold 4.4e+12 nodes, since nodes with several parents are written "
      "below each. That is more than can be opened again.");
}

/// Lets the allocation of that number fail, and keeps what would leak then.
class FailingMemory {
public:
  explicit FailingMemory(int failing) {
    countdown = failing;
    former = JsonMemory::SetAllocator({&Allocate, &Free});
  }
  ~FailingMemory() {
    JsonMemory::SetAllocator(former);
    for (void* block : std::exchange(blocks, {})) std::free(block);
  }
  bool HasFailed() const { return countdown <= 0; }

private:
  static void* Allocate(size_t size) {
    if (countdown-- == 1) return nullptr;
    return *blocks.insert(std::malloc(size)).first;
  }
  static void Free(void* block) {
    blocks.erase(block);
    std::free(block);
  }
  static inline int countdown = 0;
  static inline std::unordered_set<void*> blocks;
  JsonMemory::Allocator former;
};

TEST_F(KeptContent, AnyAllocationThatFailsRefusesTheSave) {
  const TestSupport::TemporaryDirectory directory;
  const std::string path = directory.Write("asset.json", "old");
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','Name':'n','Items':[{'$NodeId':'Item-2','Label':'l'}],'Map':{'k':5},'x':{'a':"
                     "[1]},'One':{'$NodeId':'Free-3','p':'12'},'$Groups':[{}],'$Links':{'L':{}}}"));
  const JsonMemory routed;
  int refused = 0;
  for (int i = 1;; ++i) {
    FailingMemory memory(i);
    const bool isSaved = Save(path);
    if (!memory.HasFailed()) {
      EXPECT_TRUE(isSaved);
      break;
    }
    EXPECT_FALSE(isSaved) << "allocation " << i;
    EXPECT_EQ(TestSupport::TemporaryDirectory::Read(path), "old") << "allocation " << i;
    ++refused;
    if (isSaved) break;
  }
  EXPECT_GT(refused, 100);
  const std::string whole = Print();
  for (int i = 1; i < refused; ++i) {
    FailingMemory memory(i);
    const std::string text = Print();
    if (memory.HasFailed())
      EXPECT_EQ(text, "") << "allocation " << i;
    else
      EXPECT_EQ(text, whole);
  }
}

TEST(DocumentPrint, CutsTextsOnceTheyHaveGrownFarBeyondTheDocument) {
  std::string nested = "1";
  for (int i = 0; i < 900; ++i) nested = "{\"level\":" + nested + "}";
  const JsonPtr document = ParseJson(nested).json;
  DocumentPrint print(document.get());
  const size_t whole = PrintJson(document.get()).size();
  std::string log;
  for (const cJSON* value = document.get(); cJSON_IsObject(value); value = value->child) print.Append(log, value);
  EXPECT_LT(log.size(), whole * (DocumentPrint::MostCopies + 1));
  EXPECT_TRUE(log.ends_with("...")) << log.substr(log.size() - 300);
}

} // namespace Tesselor
