// Which fields a node writes: alone, when all defaults are wanted, when the schema requires them, and when they came
// from the file.
#include "NodeTest.h"

namespace Tesselor {

class NodeFields : public TestSupport::NodeTest {
protected:
  ContentNode& AddNodeWith(const std::string& type, const std::string& options) {
    const std::string id = "Node" + std::to_string(++count);
    AddSchema("{'id':'" + id + "','title':'N','color':'red','content':[{'Id':'field','Type':'" + type +
              "','Options':{" + options + "}}],'Schema':{'Key':'field'}}");
    return Add(id);
  }
  static std::string Saved(ContentNode& node, FieldsToWrite fields = FieldsToWrite::Changed) {
    return Written(node, NodeIdMember::Omitted, fields);
  }
  int count = 0;
};

TEST_F(NodeFields, AreWrittenByWhereTheirValueComesFrom) {
  const struct {
    const char* type;
    const char* options;
    const char* fresh;
    const char* allDefaults;
    const char* required;
    /// An asset that holds the default, and what becomes of it.
    const char* asset;
    const char* loaded;
  } cases[] = {
      {"SmallString", "'Default':'d'", "{}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}"},
      {"SmallString", "'Default':''", "{}", "{}", "{'Key':''}", "{'Key':''}", "{'Key':''}"},
      {"Spacer", "'Default':'d'", "{}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}"},
      {"Checkbox", "'Default':true", "{}", "{'Key':true}", "{'Key':true}", "{'Key':true}", "{'Key':true}"},
      {"Int", "'Default':5", "{}", "{'Key':5}", "{'Key':5}", "{'Key':5}", "{'Key':5}"},
      {"Float", "'Default':1.5", "{}", "{'Key':1.5}", "{'Key':1.5}", "{'Key':1.5}", "{'Key':1.5}"},
      {"Enum", "'Values':['A','B'],'Default':'B'", "{}", "{'Key':'B'}", "{'Key':'B'}", "{'Key':'B'}", "{'Key':'B'}"},
      {"EnumFilterable", "'Values':['A','B'],'Default':'B'", "{}", "{'Key':'B'}", "{'Key':'B'}", "{'Key':'B'}",
       "{'Key':'B'}"},
      {"Enum", "'Values':['A','B']", "{}", "{}", "{}", "{'Key':'A'}", "{'Key':'A'}"},
      // Those below have nothing to compare with, so they are always offered.
      {"String", "'Default':'d'", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}"},
      {"IntSlider", "'Default':5", "{'Key':5}", "{'Key':5}", "{'Key':5}", "{'Key':5}", "{'Key':5}"},
      {"Mixed", "'Default':'d'", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}"},
      {"RawJson", "'Default':'[1]'", "{'Key':[1]}", "{'Key':[1]}", "{'Key':[1]}", "{'Key':[1]}", "{'Key':[1]}"},
      {"FilePath", "'Default':'d'", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}", "{'Key':'d'}"},
      {"FilePath", "'UseUUID':true", "{'Key':'','$Key_FileName':''}", "{'Key':'','$Key_FileName':''}",
       "{'Key':'','$Key_FileName':''}", "{'$Key_FileName':'n','Key':'u'}", "{'Key':'u','$Key_FileName':'n'}"},
      {"Object", "'Fields':[{'Id':'a','Type':'Int','Options':{'Default':5}}]", "{'Key':{'a':5}}", "{'Key':{'a':5}}",
       "{'Key':{'a':5}}", "{'Key':{}}", "{'Key':{'a':5}}"},
      {"List", "", "{}", "{}", "{}", "{'Key':[]}", "{'Key':[]}"},
      {"List", "'Type':'int'", "{}", "{}", "{}", "{'Key':[1,2]}", "{'Key':[1,2]}"},
      {"Dictionary", "", "{}", "{}", "{}", "{'Key':{}}", "{}"},
      {"Dictionary", "'Type':'bool'", "{}", "{}", "{}", "{'Key':{'a':true}}", "{'Key':{'a':true}}"},
      {"Label", "'Text':'t'", "{}", "{}", "{}", "{'Key':'t'}", "{}"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.type) + " " + c.options);
    ContentNode& fresh = AddNodeWith(c.type, c.options);
    EXPECT_EQ(Saved(fresh), c.fresh);
    EXPECT_EQ(Saved(fresh, FieldsToWrite::All), c.allDefaults);
    EXPECT_EQ(Saved(AddNodeWith(c.type, (*c.options ? std::string(c.options) + "," : "") + "'Required':true")),
              c.required);
    ContentNode& loaded = AddNodeWith(c.type, c.options);
    Read(loaded, c.asset);
    EXPECT_EQ(Saved(loaded), c.loaded);
    EXPECT_EQ(Saved(loaded, FieldsToWrite::All), c.loaded);
  }
  EXPECT_TRUE(boxes.boxes.empty());
}

} // namespace Tesselor
