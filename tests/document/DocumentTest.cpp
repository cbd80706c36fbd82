#include "DocumentTest.h"

#include "ToolkitEnvironment.h"
#include "document/DocumentExport.h"
#include "document/NodeImporterExporter.h"
#include "fields/FieldRegistration.h"
#include "nodes/NodeRegistration.h"
#include "toolkit/base/Diagnostics.h"

#include <algorithm>
#include <regex>

namespace TestSupport {

namespace {

constexpr const char* schemas[] = {
    R"({'id':'Doc','title':'Doc','color':'blue',
        'outputs':[{'id':'items','Type':'T','color':'red','Multiple':true},
                   {'id':'choice','Type':'T','color':'red','Multiple':true},
                   {'id':'map','Type':'T','color':'red','Multiple':true,'IsMap':true},
                   {'id':'one','Type':'T','color':'red'},
                   {'id':'pair','Type':'T','color':'red'}],
        'content':[{'Id':'name','Type':'SmallString','Options':{'Default':''}},
                   {'Id':'count','Type':'Int','Options':{'Default':0}},
                   {'Id':'pairText','Type':'SmallString','Options':{'Default':''}}],
        'Schema':{'Name':'name','Kind':'$Const:doc','Count':'count','Items':{'node':'Item','pin':'items'},
                  'Map':{'node':'Entry','pin':'map'},'One':{'node':'Item','pin':'one'},
                  'Pair$Ref':'pairText','Pair$Pin':{'node':'Item','pin':'pair'},
                  'Lost':{'node':'Item','pin':'missing'},'Choice':{'node':'Family','pin':'choice'}}})",
    R"({'id':'Item','title':'Item','color':'green','inputs':[{'id':'in','Type':'T','color':'red','Multiple':true}],
        'outputs':[{'id':'items','Type':'T','color':'red','Multiple':true},{'id':'one','Type':'T','color':'red'}],
        'content':[{'Id':'label','Type':'SmallString','Options':{'Default':''}}],
        'Schema':{'Label':'label','Items':{'node':'Item','pin':'items'},
                  'One':{'node':'Item','pin':'one'}}})",
    R"({'id':'Entry','title':'Entry','color':'green','inputs':[{'id':'in','Type':'T','color':'red'}],
        'content':[{'Id':'key','Type':'SmallString'},{'Id':'value','Type':'Mixed'}],
        'Schema':{'$Key':'key','$Value':'value'}})",
    R"({'id':'Other','title':'Other','color':'green','inputs':[{'id':'entry','Type':'T','color':'red'}],
        'content':[{'Id':'label','Type':'SmallString','Options':{'Default':''}}],
        'Schema':{'Type':'$Const:other','Label':'label'}})",
    R"({'id':'Free','title':'Free','color':'green','inputs':[{'id':'in','Type':'T','color':'red'}],
        'outputs':[{'id':'properties','Type':'P','color':'red','Multiple':true},
                   {'id':'parameters','Type':'P','color':'red','Multiple':true,'Label':'Params'}],
        'Schema':{'$AdditionalProperties$Pin':{'node':'Property','pin':'properties'}}})",
    R"({'id':'Parametric','title':'Parametric','color':'green','inputs':[{'id':'in','Type':'T','color':'red'}],
        'outputs':[{'id':'parameters','Type':'P','color':'red','Multiple':true,'Label':'Params'}],
        'Schema':{'$AdditionalParameterProperties$Pin':{'node':'Property','pin':'parameters'}}})",
    R"({'id':'Property','title':'Property','color':'green','inputs':[{'id':'in','Type':'P','color':'red'}],
        'content':[{'Id':'key','Type':'SmallString'},{'Id':'type','Type':'SmallString'},
                   {'Id':'value','Type':'SmallString'},
                   {'Id':'description','Type':'SmallString','Options':{'Default':''}}],
        'Schema':{'$Key':'key','PropertyType':'type','Value':'value','Description':'description'}})"};

void FailOnWarning(const char* file, uint32_t line, Toolkit::LogLevel level, const char* channel, const char* message) {
  if (level >= Toolkit::LogLevel::Warning) ADD_FAILURE() << file << ":" << line << " " << channel << ": " << message;
}

} // namespace

std::string Quoted(std::string text) {
  std::replace(text.begin(), text.end(), '\'', '"');
  return text;
}

std::string PrintUnformatted(const cJSON* json) {
  const std::unique_ptr<char, decltype(&cJSON_free)> text(cJSON_PrintUnformatted(json), &cJSON_free);
  return text ? text.get() : "";
}

DocumentTest::DocumentTest(std::string rootNodeType) {
  ToolkitEnvironment::Start([] {
    Tesselor::RegisterFieldTypes();
    Tesselor::RegisterNodeTypes();
  });
  Toolkit::SetLogHandler(&FailOnWarning);
  StartWorkspace();
  StartView(rootNodeType);
}

void DocumentTest::StartWorkspace() {
  view.reset();
  workspace->nodeDictionary = std::make_unique<Tesselor::NodeDictionary>();
  for (const char* schema : schemas) AddSchema(schema);
  auto family = std::make_unique<Tesselor::NodeVariant>();
  family->VariantFieldName = "Type";
  family->Variants.Assign("item", "Item");
  family->Variants.Assign("other", "Other");
  family->Variants.Assign("", "Item");
  workspace->nodeDictionary->AddVariant("Family", std::move(family));
}

DocumentTest::~DocumentTest() {
  view.reset();
  Toolkit::SetLogHandler(nullptr);
}

void DocumentTest::StartView(const std::string& rootNodeType) { view = std::make_unique<TestGraph>(rootNodeType); }

void DocumentTest::AddSchema(const std::string& json) {
  const Tesselor::JsonPtr schema(cJSON_Parse(Quoted(json).c_str()));
  ASSERT_TRUE(schema) << json;
  workspace->nodeDictionary->AddSchema(schema.get());
}

bool DocumentTest::Import(const std::string& json) {
  const Tesselor::JsonPtr document(cJSON_Parse(Quoted(json).c_str()));
  EXPECT_TRUE(document) << json;
  return Tesselor::NodeImporterExporter::ImportNodeTree(document.get(), workspace, &view->target);
}

Tesselor::JsonPtr DocumentTest::Build(bool saveAllFields) {
  return Tesselor::DocumentExport(*(*view)->Root(), (*view)->ContentNodes(),
                                  saveAllFields ? Tesselor::FieldsToWrite::All : Tesselor::FieldsToWrite::Changed)
      .Build((*view)->GroupNodes(), (*view)->CommentNodes(), "Root menu");
}

std::string DocumentTest::Export(bool saveAllFields) { return PrintUnformatted(Build(saveAllFields).get()); }

std::string DocumentTest::ExportAsset() {
  const Tesselor::JsonPtr document = Build(false);
  cJSON_DeleteItemFromObject(document.get(), "$NodeEditorMetadata");
  static const std::regex uuid("[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}");
  return std::regex_replace(PrintUnformatted(document.get()), uuid, "<new>");
}

std::string DocumentTest::ExportMetadata(const char* key) {
  const Tesselor::JsonPtr document = Build(false);
  return PrintUnformatted(cJSON_GetObjectItem(cJSON_GetObjectItem(document.get(), "$NodeEditorMetadata"), key));
}

std::string DocumentTest::RoundTrip(const std::string& json) {
  StartView(view->target.root->RootNodeType);
  EXPECT_TRUE(Import(json));
  return ExportAsset();
}

} // namespace TestSupport
