#include "DocumentTest.h"

#include "TemporaryDirectory.h"
#include "document/AssetFile.h"
#include "document/NodeImporterExporter.h"

#include <sys/stat.h>

#include <map>
#include <string>
#include <vector>

namespace Tesselor {

using TestSupport::Quoted;

class DocumentMetadata : public TestSupport::DocumentTest {
protected:
  /// Imports, exports, and does both again with what came out, which must not change any more.
  std::string StableExport(const std::string& json) {
    EXPECT_TRUE(Import(json));
    const std::string first = Export();
    StartView(view->target.root->RootNodeType);
    EXPECT_TRUE(Import(first));
    EXPECT_EQ(Export(), first);
    return first;
  }
};

TEST_F(DocumentMetadata, StandsBehindTheAsset) {
  EXPECT_EQ(StableExport("{'$NodeId':'Doc-1'}"),
            Quoted("{'$NodeId':'Doc-1','Kind':'doc','$NodeEditorMetadata':{'$Nodes':{'Doc-1':{'$Position':{'$x':0,"
                   "'$y':0},'$Title':'[ROOT] Doc'}},'$FloatingNodes':[],'$Links':{},'$Groups':[],'$Comments':[],"
                   "'$WorkspaceID':'Root menu'}}"));
}

TEST_F(DocumentMetadata, PlacesNodes) {
  ASSERT_TRUE(Import(
      "{'$NodeId':'Doc-1','$Position':{'$x':7,'$y':8},'$RootNodePosition':{'$x':10.9,'$y':'bad'},"
      "'Items':[{'$NodeId':'Item-2','$Position':{'$x':-3.9,'$y':4}},{'$NodeId':'Item-3'}],"
      "'$nodeeditormetadata':{'$nodes':{'Item-3':{'$Position':{'$x':10.07},'$Title':'t'},'Item':{},'Item-99':{}}}}"));
  const auto placeOf = [this](size_t i) {
    return Toolkit::Point{Toolkit::Canvas::GetLeft((*view)->ContentNodes()[i].Get()),
                          Toolkit::Canvas::GetTop((*view)->ContentNodes()[i].Get())};
  };
  EXPECT_EQ(placeOf(0), (Toolkit::Point{1010, 500}));
  EXPECT_EQ(placeOf(1), (Toolkit::Point{997, 504}));
  EXPECT_EQ(placeOf(2), (Toolkit::Point{1010, 500}));
  EXPECT_EQ(view->autoPositions, 0);
  TestSupport::TestGraph::Place(*(*view)->ContentNodes()[1], 999.1f, 500.9f);
  EXPECT_EQ(ExportMetadata("$Nodes"), Quoted("{'Doc-1':{'$Position':{'$x':10,'$y':0},'$Title':'[ROOT] Doc'},"
                                             "'Item-2':{'$Position':{'$x':0,'$y':0}},"
                                             "'Item-3':{'$Position':{'$x':10,'$y':0},'$Title':'t'}}"));
}

TEST_F(DocumentMetadata, PutsNodesWithoutAPlaceBesideTheirParents) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2','Items':[{}]},{'$NodeId':'Item-3'},"
                     "{'$NodeId':'Item-4'}],'$NodeEditorMetadata':{'$Nodes':{'Doc-1':{'$Position':{'$x':50,'$y':20}},"
                     "'Item-3':{'$Position':{'$x':400,'$y':600}}}}}"));
  std::map<std::string, const ContentNode*> byId;
  for (const auto& node : (*view)->ContentNodes()) byId[node->NodeId()] = node.Get();
  const auto bottomOf = [](const ContentNode* node) { return Toolkit::Canvas::GetTop(node) + node->ActualHeight(); };
  const ContentNode *root = byId["1"], *first = byId["2"], *placed = byId["3"], *last = byId["4"];
  const ContentNode* grandchild = (*view)->ContentNodes()[2].Get();
  EXPECT_EQ(Toolkit::Canvas::GetTop(placed), 1100);
  EXPECT_EQ(Toolkit::Canvas::GetLeft(first), Toolkit::Canvas::GetLeft(root) + root->ActualWidth() + 300);
  EXPECT_EQ(Toolkit::Canvas::GetTop(first), bottomOf(placed) + 80);
  EXPECT_EQ(Toolkit::Canvas::GetTop(last), bottomOf(first) + 80);
  EXPECT_EQ(Toolkit::Canvas::GetLeft(grandchild), Toolkit::Canvas::GetLeft(first) + first->ActualWidth() + 300);
  EXPECT_EQ(Toolkit::Canvas::GetTop(grandchild), Toolkit::Canvas::GetTop(first));
}

TEST_F(DocumentMetadata, LaysOutADocumentWithoutPositions) {
  const std::vector<std::pair<const char*, int>> cases = {
      {"{'Items':[{}]}", 1},
      {"{'$NodeEditorMetadata':{'$Nodes':{},'$Groups':[{'$Position':{}}]}}", 1},
      {"{'Items':[{'$Position':{}}]}", 0},
      {"{'unknown':[{'deep':{'$RootNodePosition':1}}]}", 0},
      {"{'$NodeEditorMetadata':{'$Nodes':{'a':{}}}}", 0}};
  for (const auto& [file, count] : cases) {
    SCOPED_TRACE(file);
    StartView("Doc");
    ASSERT_TRUE(Import(file));
    EXPECT_EQ(view->autoPositions, count);
  }
}

TEST_F(DocumentMetadata, KeepsLinksAndTheOrderOfTheirChildren) {
  const std::string written =
      StableExport("{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-a'},{'$NodeId':'Item-b'},{'$NodeId':'Item-c'},"
                   "{'$NodeId':'Item-d'}],'One':{'$NodeId':'Item-e'},'$NodeEditorMetadata':{"
                   "'$Nodes':{'Doc-1':{'$Position':{'$x':0,'$y':0}}},'$Links':{"
                   "'L1':{'$Position':{'$x':5,'$y':900},'inputConnections':['Doc-1:items'],"
                   "'outputConnections':['Item-c:in','link:L2',7,'nothing','Item-9:in','Item-c:no'],"
                   "'sourceEndpoint':'Doc-1:items'},"
                   "'L2':{'$Title':'second','inputConnections':['link:L1'],'outputConnections':['Item-b:in'],"
                   "'sourceEndpoint':'Doc-1:items'},"
                   "'L3':{'inputConnections':['Doc-1:one'],'outputConnections':['Item-e:in'],"
                   "'sourceEndpoint':'Doc-1:one'},'L4':{'inputConnections':{'a':'Doc-1:items'}}}}}");
  EXPECT_NE(written.find(Quoted("'Items':[{'$NodeId':'Item-a'},{'$NodeId':'Item-b'},{'$NodeId':'Item-c'},"
                                "{'$NodeId':'Item-d'}],'One':{'$NodeId':'Item-e'}")),
            std::string::npos)
      << written;
  EXPECT_EQ(ExportMetadata("$Links"),
            Quoted("{'L1':{'$Position':{'$x':5,'$y':900},'inputConnections':['Doc-1:items'],"
                   "'outputConnections':['link:L2','Item-c:in'],'sourceEndpoint':'Doc-1:items',"
                   "'targetEndpoint':'Item-b:in'},"
                   "'L2':{'$Position':{'$x':0,'$y':0},'$Title':'second','inputConnections':['link:L1'],"
                   "'outputConnections':['Item-b:in'],'sourceEndpoint':'Doc-1:items','targetEndpoint':'Item-b:in'},"
                   "'L3':{'$Position':{'$x':0,'$y':0},'inputConnections':['Doc-1:one'],"
                   "'outputConnections':['Item-e:in'],'sourceEndpoint':'Doc-1:one','targetEndpoint':'Item-e:in'},"
                   "'L4':{'$Position':{'$x':0,'$y':0},'inputConnections':[],'outputConnections':[]}}"));
}

TEST_F(DocumentMetadata, ALinkWithTwoParentsReplacesBothConnections) {
  const std::string item = "{'$NodeId':'Item-9'}";
  const std::string written = StableExport(
      "{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2','Items':[" + item + "]},{'$NodeId':'Item-3','Items':[" + item +
      "]}],'$NodeEditorMetadata':{'$Links':{'L':{'inputConnections':['Item-3:items','Item-2:items'],"
      "'outputConnections':['Item-9:in'],'sourceEndpoint':'Item-3:items'}}}}");
  EXPECT_NE(written.find(Quoted("{'$NodeId':'Item-2','Items':[" + item + "]}")), std::string::npos) << written;
  EXPECT_NE(written.find(Quoted("'inputConnections':['Item-3:items','Item-2:items']")), std::string::npos) << written;
}

TEST_F(DocumentMetadata, ALinkIsNumberedByTheLastOfItsParentsInTheFile) {
  for (const auto& [parents, index] :
       {std::pair("'Item-3:items','Item-2:items'", 1), {"'Item-2:items','Item-3:items'", 0}}) {
    StartView("Doc");
    ASSERT_TRUE(Import("{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-4'},"
                       "{'$NodeId':'Item-9'}]},{'$NodeId':'Item-3','Items':[{'$NodeId':'Item-9'}]}],"
                       "'$NodeEditorMetadata':{'$Links':{'L':{'inputConnections':[" +
                       std::string(parents) +
                       "],'outputConnections':['Item-9:in'],'sourceEndpoint':'Item-2:items'}}}}"));
    EXPECT_EQ(view->Find("Link")->arrayIndex, index) << parents;
  }
}

TEST_F(DocumentMetadata, ALinkTakesTheChildFromTheSourceThatItNames) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','One':{'$NodeId':'Item-2'},'$NodeEditorMetadata':{'$Links':{'L':{"
                     "'outputConnections':['Item-2:in'],'sourceEndpoint':'Doc-1:one'}}}}"));
  EXPECT_TRUE((*view)->Root()->FindPin("one")->connections.empty());
  EXPECT_EQ((*view)->ContentNodes()[1]->FirstInput()->connections[0]->owner, view->Find("Link"));
}

TEST_F(DocumentMetadata, KeepsWhatTheRootDoesNotReach) {
  // A tree, two trees that share a child, a node behind a free link, and a ring.
  const std::string floating = "[{'$NodeId':'Item-2','Items':[{'$NodeId':'Item-3'}]},"
                               "{'$NodeId':'Item-4','Items':[{'$NodeId':'Item-3'}]},{'$NodeId':'Item-5'},"
                               "{'$Generic':true,'x':1},"
                               "{'$NodeId':'Item-6','Items':[{'$NodeId':'Item-7','Items':[{'$NodeId':'Item-6'}]}]}]";
  StableExport("{'$NodeId':'Doc-1','$NodeEditorMetadata':{'$FloatingNodes':" + floating +
               ",'$Links':{'L':{'inputConnections':[],'outputConnections':['Item-5:in']}}}}");
  EXPECT_EQ(ExportMetadata("$FloatingNodes"), Quoted(floating));
}

TEST_F(DocumentMetadata, PlacesANewFloatingNodeByItsFirstSave) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1'}"));
  const auto node = workspace->nodeDictionary->CreateNode("Item", true);
  (*view)->AddNode(*node, 70, 80, false);
  const std::string places = ExportMetadata("$Nodes");
  EXPECT_NE(places.find("\"Item-" + node->NodeId() + "\":{\"$Position\":{\"$x\":70,\"$y\":80}"), std::string::npos)
      << places;
  EXPECT_EQ(ExportMetadata("$Nodes"), places);
  // A tree is written from its top, whichever of its nodes came first.
  const auto top = workspace->nodeDictionary->CreateNode("Item", true);
  node->SetNodeId("low");
  top->SetNodeId("top");
  (*view)->AddNode(*top, 0, 0, false);
  (*view)->Attach(*Toolkit::MakePtr<Connection>(*top->FindPin("items"), *node->FirstInput()));
  EXPECT_EQ(ExportMetadata("$FloatingNodes"), Quoted("[{'$NodeId':'Item-top','Items':[{'$NodeId':'Item-low'}]}]"));
}

TEST_F(DocumentMetadata, FindsFloatingNodesAndTheirTypes) {
  const std::vector<std::pair<const char*, const char*>> cases = {
      {"{'$NodeEditorMetadata':{'FloatingFunctionNodes':[{'$NodeId':'Item-2'}]}}", "Item"},
      {"{'$NodeEditorMetadata':{},'$FloatingNodes':[{'$NodeId':'Item'}]}", "Item"},
      {"{'$FloatingNodes':[{'Type':'$Const:other'}]}", "Other"},
      {"{'$FloatingNodes':[{'Type':'X'}]}", "Raw JSON Node"},
      {"{'$FloatingNodes':[{'$NodeId':5}]}", "Raw JSON Node"}};
  for (const auto& [file, title] : cases) {
    SCOPED_TRACE(file);
    StartView("Doc");
    ASSERT_TRUE(Import(file));
    ASSERT_EQ((*view)->ContentNodes().size(), 2u);
    EXPECT_EQ((*view)->ContentNodes()[1]->Title(), title);
  }
  AddSchema("{'id':'Preset','title':'Preset','color':'red','content':[{'Id':'f','Type':'SmallString',"
            "'Options':{'Default':'d'}}],'Schema':{'Type':'$Const:preset','f':'f'}}");
  StartView("Doc");
  ASSERT_TRUE(Import("{'$FloatingNodes':[{'$NodeId':'Preset'},{'Type':'$Const:preset'}]}"));
  for (size_t i : {1, 2}) EXPECT_EQ((*view)->ContentNodes().at(i)->FindField("f")->GetValueAsString(), "d");
}

TEST_F(DocumentMetadata, KeepsFrames) {
  StableExport("{'$NodeId':'Doc-1','$NodeEditorMetadata':{'$Groups':[{'$Position':{'$x':120.25,'$y':-3},'$width':50,"
               "'$height':200,'$name':'g'},{}],'$Comments':[{'$Position':{'$x':1,'$y':2},'$width':300,'$height':40,"
               "'$name':7,'$text':'t','$fontSize':200}]}}");
  EXPECT_EQ(ExportMetadata("$Groups"),
            Quoted("[{'$Position':{'$x':120.25,'$y':-3},'$width':100,'$height':200,'$name':'g'},"
                   "{'$Position':{'$x':0,'$y':0},'$width':300,'$height':300,'$name':'Group Title'}]"));
  EXPECT_EQ(ExportMetadata("$Comments"),
            Quoted("[{'$Position':{'$x':1,'$y':2},'$width':300,'$height':60,'$name':'Comment','$text':'t',"
                   "'$fontSize':128}]"));
  EXPECT_EQ(Toolkit::Canvas::GetZIndex((*view)->GroupNodes()[0].Get()), -20000);
  StartView("Doc");
  ASSERT_TRUE(Import("{'$NodeEditorMetadata':{'$Groups':{'a':{}},'$Comments':{'a':{'$text':'t'}}}}"));
  EXPECT_TRUE((*view)->GroupNodes().empty() && (*view)->CommentNodes().empty()) << "only arrays hold frames";
}

TEST_F(DocumentMetadata, ShowsOnlyUsedPinsOfANodeWithVeryMany) {
  std::string outputs;
  for (int i = 0; i < 11; ++i) outputs += "{'id':'o" + std::to_string(i) + "','Type':'T','color':'red'},";
  outputs.pop_back();
  AddSchema("{'id':'Many','title':'Many','color':'red','outputs':[" + outputs +
            "],'Schema':{'A':{'node':'Item','pin':'o0'}}}");
  StartView("Many");
  ASSERT_TRUE(Import("{'A':{}}"));
  EXPECT_TRUE((*view)->ContentNodes()[0]->FindPin("o0")->IsVisible());
  EXPECT_FALSE((*view)->ContentNodes()[0]->FindPin("o1")->IsVisible());
}

TEST_F(DocumentMetadata, RootFamiliesFollowTheFile) {
  StartView("Family");
  EXPECT_FALSE(Import("{'x':1}"));
  EXPECT_FALSE(Import("{'Type':'none'}"));
  EXPECT_TRUE(Import("{'Type':'other'}"));
  EXPECT_EQ((*view)->Root()->TypeId(), "Other");
  EXPECT_EQ(boxes.Texts(),
            (std::vector<std::string>{"Error Importing: Cannot import node tree: Missing variant field 'Type' in file.",
                                      "Error Importing: Cannot import node tree: Unknown variant value 'none'."}));
  EXPECT_TRUE(log.Contains("ImportNodeTree: Missing or invalid variant redirect field: Type"));
}

TEST_F(DocumentMetadata, RefusesToWriteLinksOfMixedTypes) {
  ASSERT_TRUE(Import("{'$NodeId':'Doc-1','Items':[{'$NodeId':'Item-2'}],'$NodeEditorMetadata':{'$Links':{'L':"
                     "{'inputConnections':['Doc-1:items']}},'$FloatingNodes':[{'$NodeId':'Property-3'}]}}"));
  NodePinData* out = view->Find("Link")->FirstOutput();
  out->Join(*view->Find("Property")->FirstInput());
  const TestSupport::TemporaryDirectory directory;
  const std::string path = directory.Write("asset.json", "old");
  EXPECT_FALSE(NodeImporterExporter::ExportNodeTree(path, (*view)->Root(), (*view)->ContentNodes(),
                                                    (*view)->GroupNodes(), (*view)->CommentNodes(), "Root", false));
  EXPECT_EQ(boxes.Texts(),
            std::vector<std::string>{"Export Error: Cannot export: The following Link nodes have mismatched pin "
                                     "types:\n\n\"Link\":\n  Input connections: T\n  Output connections: P\n\n"
                                     "Please ensure all Link nodes connect nodes of the same type."});
  EXPECT_EQ(TestSupport::TemporaryDirectory::Read(path), "old");
}

TEST_F(DocumentMetadata, TellsWhyAFileCanNotBeReadOrWritten) {
  const TestSupport::TemporaryDirectory directory;
  const std::string missing = directory / "missing.json";
  const std::string bad = directory.Write("bad.json", "{");
  const std::string good = directory.Write("good.json", Quoted("{'$WorkspaceID':'outer','$NodeEditorMetadata':"
                                                               "{'$workspaceid':'inner'}}"));
  const std::string nowhere = directory / "none/out.json";
  const auto complaint = [](const std::string& path) {
    const AssetFile file = AssetFile::Read(path);
    EXPECT_FALSE(file);
    return file.caption + ": " + file.error;
  };
  EXPECT_EQ(complaint(missing), "Error Opening File: File not found:\n" + missing);
  const std::string folder = directory.Path().string();
  EXPECT_EQ(complaint(folder), "Error Opening File: Failed to open file:\n" + folder);
  EXPECT_EQ(complaint(bad),
            "Error Parsing File: Invalid JSON in file:\n" + bad + "\n\nError: line 1, column 2, where the text ends");
  const AssetFile file = AssetFile::Read(good);
  ASSERT_TRUE(file);
  EXPECT_EQ(NodeImporterExporter::GetWorkspaceID(file.json.get()), "inner");
  EXPECT_FALSE(NodeImporterExporter::ImportNodeTree(nullptr, workspace, &view->target));
  EXPECT_FALSE(NodeImporterExporter::ImportNodeTree(file.json.get(), nullptr, &view->target));
  EXPECT_TRUE(NodeImporterExporter::ImportNodeTree(file.json.get(), workspace, &view->target));
  EXPECT_FALSE(
      NodeImporterExporter::ExportNodeTree(nowhere, (*view)->Root(), (*view)->ContentNodes(), {}, {}, "r", false));
  EXPECT_FALSE(NodeImporterExporter::ExportNodeTree(good, nullptr, (*view)->ContentNodes(), {}, {}, "r", false));
  EXPECT_EQ(boxes.Texts(),
            (std::vector<std::string>{
                "Error Importing: Cannot import node tree: No data provided.",
                "Error Importing: Cannot import node tree: No workspace selected.",
                "Export Error: Failed to save file:\n" + nowhere +
                    "\n\nThe file may be in use or you may not have permission to write to this location.",
                "Export Error: Cannot export: No root node defined."}));
}

} // namespace Tesselor
