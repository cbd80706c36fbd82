#include "NodeTest.h"

#include "TemporaryDirectory.h"
#include "nodes/ReferenceNode.h"
#include "platform/FileDialogs.h"
#include "toolkit/controls/ButtonBase.h"
#include "toolkit/controls/StackPanel.h"
#include "toolkit/controls/TextBox.h"
#include "toolkit/visual/Input.h"

#include <optional>
#include <vector>

namespace Tesselor {

class ReferenceNodes : public TestSupport::NodeTest {
protected:
  ReferenceNodes() {
    AddSchema("{'id':'Ref','title':'Ref','color':'red','isreference':true,'filerefkey':'Plot','filerefvalue':'Id',"
              "'modifykey':'Values','inputs':[{'id':'in','Type':'A','color':'red'}]}");
  }
  ReferenceNode& AddReference() { return static_cast<ReferenceNode&>(Add("Ref")); }
  static std::string Saved(ReferenceNode& node, FieldsToWrite fields = FieldsToWrite::Changed) {
    return Written(node, NodeIdMember::Written, fields);
  }
  /// Writes a file with these parameters, in which single quotes stand for double ones, and returns its path.
  std::string WriteFile(const std::string& name, const std::string& parameters) {
    return WriteText(name, "{'Id':'id-1','Components':{'ov::NPC::Plotter::ParametersComponent':{'Parameters':{" +
                               parameters + "}}}}");
  }
  std::string WriteText(const std::string& name, std::string text) {
    std::replace(text.begin(), text.end(), '\'', '"');
    return directory.Write(name, text);
  }
  void Click(const Toolkit::UIElement& element) {
    view.Layout();
    const Toolkit::Point middle =
        element.TransformToAncestor(nullptr).Map({element.ActualWidth() / 2, element.ActualHeight() / 2});
    input.MouseMove(middle);
    input.MouseDown(Toolkit::MouseButton::Left, middle, 1);
    input.MouseUp(Toolkit::MouseButton::Left, middle);
    view.Layout();
  }
  template <class T> static T* First(Toolkit::UIElement* root) {
    if (T* element = Toolkit::DynamicCast<T>(root)) return element;
    for (size_t i = 0; i < root->VisualChildCount(); ++i)
      if (T* element = First<T>(root->VisualChild(i))) return element;
    return nullptr;
  }
  /// "<caption>=<text>" of each field that can be seen in a panel of the node.
  static std::string Shown(ReferenceNode& node, const char* panelName) {
    std::string shown;
    const auto* panel = node.FindName<Toolkit::StackPanel>(panelName);
    for (size_t i = 0; i < panel->ChildCount(); ++i) {
      const auto& field = static_cast<const BaseField&>(*panel->Child(i));
      if (field.GetVisibility() == Toolkit::Visibility::Visible)
        shown += std::string(field.GetLabel()) + "=" + field.GetValueAsString() + " ";
    }
    return shown;
  }

  TestSupport::TemporaryDirectory directory;
  Toolkit::InputState input{*view.canvas};
};

/// Answers file dialogs with a path.
class ChosenFile final : public FileDialogBackend {
public:
  explicit ChosenFile(std::optional<std::string> path) : path(std::move(path)), former(FileDialogs::SetBackend(this)) {}
  ~ChosenFile() override { FileDialogs::SetBackend(former); }
  std::optional<std::string> Open(const std::string&, const std::string&) override { return path; }
  std::optional<std::string> Save(const std::string&, const std::string&) override { return {}; }

private:
  std::optional<std::string> path;
  FileDialogBackend* former;
};

TEST_F(ReferenceNodes, KeepTheValuesOfTheAsset) {
  ReferenceNode& node = AddReference();
  const std::string body = "'$FileName':'plot','Plot':'id-1','Values':{'B':true,'Name':'n','b':2,'big':12345678901,"
                           "'d':0.5,'digits':1234.56789,'o':{'k':[1]}}}";
  Read(node, "{'$Comment':'c','$NodeId':'Ref-9'," + body);
  view.Layout();
  EXPECT_EQ(Saved(node), "{'$Comment':'c','$NodeId':'Ref'," + body);
}

TEST_F(ReferenceNodes, KeepTheFractionsOfTheirPlace) {
  ReferenceNode& node = AddReference();
  Read(node, "{'$Position':{'$x':7.8,'$y':-7.8}}");
  EXPECT_FLOAT_EQ(Toolkit::Canvas::GetLeft(&node), TestSupport::TestGraph::Width / 2 + 7.8f);
  EXPECT_FLOAT_EQ(Toolkit::Canvas::GetTop(&node), TestSupport::TestGraph::Height / 2 - 7.8f);
}

TEST_F(ReferenceNodes, TakeParametersFromAFile) {
  ReferenceNode& node = AddReference();
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'File','Plot':'','Values':{}}");
  const std::string ov = "'$Type':'ov::NPC::Plotter::";
  node.LoadFileParameters(WriteFile("plot.json", "'int':{" + ov +
                                                     "IntParameterDefinition','Value':3},"
                                                     "'double':{" +
                                                     ov +
                                                     "DoubleParameterDefinition','Value':0.5},"
                                                     "'text':{" +
                                                     ov +
                                                     "StringParameterDefinition','Value':'t'},"
                                                     "'TEXT':{'$Type':'unknown','Value':'T'},"
                                                     "'lower':{" +
                                                     ov +
                                                     "intparameterdefinition','Value':'l'},"
                                                     "'int without':{" +
                                                     ov +
                                                     "IntParameterDefinition'},"
                                                     "'int of text':{" +
                                                     ov +
                                                     "IntParameterDefinition','Value':'5'},"
                                                     "'double of text':{" +
                                                     ov +
                                                     "DoubleParameterDefinition','Value':'5'},"
                                                     "'text of number':{'$type':'x','value':5},"
                                                     "'typeless':{'Value':1},'typed by number':{'$Type':7,'Value':1},"
                                                     "'scalar':5,'null':null"),
                          "plot");
  EXPECT_EQ(Shown(node, "NodeReference"), "Plot=id-1 ");
  EXPECT_EQ(Shown(node, "NodeParameters"), "int=3 double=0.5 text=t TEXT=T lower=l int without=0 int of text=0 "
                                           "double of text=0.0 text of number= ");
  EXPECT_EQ(node.contentFields.size(), 9u);
  // Fields without a default of their type do not know that they are unchanged.
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'File','Plot':'id-1','Values':{'double of text':0,"
                         "'int without':0,'text of number':''}}");
  EXPECT_TRUE(boxes.boxes.empty());

  node.LoadFileParameters(WriteFile("plot.json", "'new':{" + ov + "IntParameterDefinition','Value':7}"), "plot");
  EXPECT_EQ(Shown(node, "NodeParameters"), "new=7 ");
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'File','Plot':'id-1','Values':{}}");
  EXPECT_EQ(Saved(node, FieldsToWrite::All), "{'$NodeId':'Ref','$FileName':'File','Plot':'id-1','Values':{'new':7}}");
}

TEST_F(ReferenceNodes, TellOfFilesThatDoNotFit) {
  const std::string noKey = "Attention!: The loaded asset 'b' does not contain a 'Id' field. Please check the value of "
                            "'FileRefValue' on the reference node's schema.";
  const std::string noComponent = "Attention!: b does not contain a ov::NPC::Plotter::ParametersComponent component.";
  const struct {
    const char* what;
    /// Null for a file that is not there.
    const char* text;
    std::string box;
    const char* fileName;
  } cases[] = {
      {"missing", nullptr, noKey, ""},
      {"empty", "", noKey, ""},
      {"no JSON", "{'Id':'id-2'", noKey, ""},
      {"not text", "\x7f\xff", noKey, ""},
      {"a list", "[{'Id':'id-2'}]", noKey, ""},
      {"no key", "{'Name':'n'}", noKey, ""},
      {"a key that is no text", "{'Id':5}", "", "b"},
      {"no components", "{'id':'id-2'}", noComponent, "b"},
      {"components of another kind", "{'Id':'id-2','Components':['x']}", noComponent, "b"},
      {"no such component", "{'Id':'id-2','Components':{'Other':{}}}", noComponent, "b"},
      {"no parameters", "{'Id':'id-2','Components':{'ov::NPC::Plotter::ParametersComponent':{}}}", noComponent, "b"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ReferenceNode& node = AddReference();
    node.LoadFileParameters(WriteFile("a.json", "'P':{'$Type':'x','Value':'old'}"), "a");
    boxes.boxes.clear();
    log.lines.clear();
    const ChosenFile chosen(c.text ? WriteText("b.x.json", c.text) : directory / "b.missing");
    Click(*First<Toolkit::Button>(node.FindName<Toolkit::StackPanel>("NodeReference")->VisualParent()));
    EXPECT_EQ(boxes.Texts(), c.box.empty() ? std::vector<std::string>() : std::vector<std::string>{c.box});
    if (!c.box.empty()) {
      EXPECT_EQ(boxes.boxes[0].image, Toolkit::MessageBoxImage::Error);
      EXPECT_TRUE(log.Contains(c.box.substr(sizeof("Attention!: ") - 1)));
    }
    EXPECT_EQ(Saved(node, FieldsToWrite::All),
              "{'$NodeId':'Ref','$FileName':'" + std::string(c.fileName) + "','Plot':'id-1','Values':{'P':'old'}}");
  }
}

TEST_F(ReferenceNodes, LeaveAllAsItIsWhenNoFileIsChosen) {
  ReferenceNode& node = AddReference();
  const ChosenFile cancelled({});
  Click(*First<Toolkit::Button>(node.FindName<Toolkit::StackPanel>("NodeReference")->VisualParent()));
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'File','Plot':'','Values':{}}");
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ReferenceNodes, TakeWhatIsTypedIntoParametersOnly) {
  ReferenceNode& node = AddReference();
  const ChosenFile chosen(WriteFile("quest.first.json", "'P':{'$Type':'x','Value':'old'}"));
  Click(*First<Toolkit::Button>(node.FindName<Toolkit::StackPanel>("NodeReference")->VisualParent()));
  for (const char* panel : {"NodeReference", "NodeParameters"}) {
    auto* box = First<Toolkit::TextBox>(node.FindName<Toolkit::StackPanel>(panel));
    Click(*box);
    EXPECT_TRUE(box->IsFocused()) << "a text that is only shown can be selected and copied";
    box->SelectAll();
    input.TextInput("typed");
    input.KeyDown(Toolkit::Key::Delete);
  }
  input.SetFocus(nullptr);
  EXPECT_EQ(Shown(node, "NodeReference"), "Plot=id-1 ");
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'quest','Plot':'id-1','Values':{'P':'typed'}}");
}

TEST_F(ReferenceNodes, StandWithWhatAnIncompleteAssetGives) {
  const struct {
    const char* asset;
    const char* saved;
  } cases[] = {
      {"{}", "{'$NodeId':'Ref','$FileName':'File','Plot':'','Values':{}}"},
      {"{'$FileName':'f','Values':{'a':1}}", "{'$NodeId':'Ref','$FileName':'File','Plot':'','Values':{}}"},
      {"{'Plot':'id','Values':{'a':1}}", "{'$NodeId':'Ref','$FileName':'File','Plot':'id','Values':{}}"},
      {"{'plot':'id','$filename':'f','values':{'a':1}}",
       "{'$NodeId':'Ref','$FileName':'f','Plot':'id','Values':{'a':1}}"},
      {"{'Plot':'id','$FileName':'f','Values':'text'}", "{'$NodeId':'Ref','$FileName':'f','Plot':'id','Values':{}}"},
  };
  for (const auto& c : cases) {
    ReferenceNode& node = AddReference();
    Read(node, c.asset);
    EXPECT_EQ(Saved(node), c.saved) << c.asset;
  }
}

TEST_F(ReferenceNodes, ReadTheKindOfAParameterFromItsValue) {
  ReferenceNode& node = AddReference();
  Read(node, "{'Plot':'id','$FileName':'f','Values':{'i':-7,'whole':2.0,'d':1234.56,'s':'','t':true,"
             "'twice':'','twice':[1]}}");
  EXPECT_EQ(Shown(node, "NodeReference"), "Plot=id ");
  EXPECT_EQ(Shown(node, "NodeParameters"), "i=-7 whole=2 d=1234.560059 s= t= twice= twice= ");
  const std::string values = "'i':-7,'s':'','t':'no','twice':'','whole':2}}";
  // A value of which the field does not show all goes when the user enters something in its place.
  const auto type = [&](const char* name, const char* text) {
    auto* box = First<Toolkit::TextBox>(node.FindField(name));
    Click(*box);
    box->SelectAll();
    input.TextInput(text);
  };
  type("t", "no");
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'f','Plot':'id','Values':{'d':1234.56," + values);
  type("d", "1234.5");
  EXPECT_EQ(Saved(node), "{'$NodeId':'Ref','$FileName':'f','Plot':'id','Values':{'d':1234.5," + values);
}

} // namespace Tesselor
