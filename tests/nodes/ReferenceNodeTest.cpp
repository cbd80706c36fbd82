#include "NodeTest.h"

#include "TemporaryDirectory.h"
#include "nodes/ReferenceNode.h"
#include "toolkit/controls/StackPanel.h"

#include <vector>

namespace Tesselor {

class ReferenceNodes : public TestSupport::NodeTest {
protected:
  ReferenceNodes() {
    AddSchema("{'id':'Ref','title':'Ref','color':'red','isreference':true,'filerefkey':'Plot','filerefvalue':'Id',"
              "'modifykey':'Values','inputs':[{'id':'in','Type':'A','color':'red'}]}");
  }
  ReferenceNode& AddReference() { return static_cast<ReferenceNode&>(Add("Ref")); }
  static std::string Saved(ReferenceNode& node) {
    const JsonPtr json(cJSON_CreateObject());
    node.Serialize(json.get(), true, false);
    return Print(json.get());
  }
};

TEST_F(ReferenceNodes, KeepTheValuesOfTheAsset) {
  ReferenceNode& node = AddReference();
  const std::string body = "'$FileName':'plot','Plot':'id-1','Values':{'B':true,'Name':'n','b':2,'big':5000000000,"
                           "'d':0.5,'o':{'k':[1]}}}";
  node.Deserialize(Parse("{'$Comment':'c','$NodeId':'Ref-9'," + body).get(), workspace, view, false);
  view.Layout();
  EXPECT_EQ(Saved(node), "{'$Comment':'c','$NodeId':'Ref'," + body);
}

TEST_F(ReferenceNodes, TakeParametersFromAFile) {
  const TestSupport::TemporaryDirectory directory;
  const auto write = [&directory](std::string text) {
    std::replace(text.begin(), text.end(), '\'', '"');
    return directory.Write("plot.json", text);
  };
  ReferenceNode& node = AddReference();
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'File','Plot':'','Values':{}}");
  node.LoadFileParameters(
      write("{'Id':'id-1','Components':{'ov::NPC::Plotter::ParametersComponent':{'Parameters':{"
            "'a':{'$Type':'ov::NPC::Plotter::IntParameterDefinition','Value':3},'A':{'$Type':'x','Value':'t'},"
            "'skipped':{'Value':1},'bad':{'$Type':7}}}}}"),
      "plot");
  EXPECT_EQ(node.contentFields.size(), 2u);
  EXPECT_EQ(node.FindField("a")->GetValueAsString(), "3");
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'File','Plot':'id-1','Values':{}}");

  node.LoadFileParameters(write("{'Id':'id-2'}"), "plot");
  node.LoadFileParameters(write("no JSON"), "plot");
  EXPECT_EQ(boxes.Texts(),
            (std::vector<std::string>{
                "Attention!: plot does not contain a ov::NPC::Plotter::ParametersComponent component.",
                "Attention!: The loaded asset 'plot' does not contain a 'Id' field. Please check the value of "
                "'FileRefValue' on the reference node's schema."}));
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'','Plot':'id-1','Values':{}}");
}

} // namespace Tesselor
