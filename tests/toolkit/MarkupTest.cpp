#include "toolkit/MarkupTest.h"

#include "ToolkitEnvironment.h"
#include "toolkit/markup/DocumentCompiler.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(TestData, NotifyPropertyChangedBase, "Tesselor.TestData")
void TestData::Describe(TypeBuilder<TestData>& type) {
  type.Member<&TestData::GetText, &TestData::SetText>("Text");
  type.Member<&TestData::GetNumber, &TestData::SetNumber>("Number");
  type.Member<&TestData::GetNext, &TestData::SetNext>("Next");
}

Ptr<TestItems> MakeItems(const std::vector<std::string>& texts) {
  auto items = MakePtr<TestItems>();
  for (const std::string& text : texts) items->Add(MakePtr<TestData>(text));
  return items;
}

MarkupTest::MarkupTest() {
  TestSupport::ToolkitEnvironment::Start([] { TestData::StaticType(); });
}

Ptr<Object> MarkupTest::MakeObject(const std::string& text) {
  texts.push_back(std::make_unique<std::string>(text));
  std::unique_ptr<ElementPlan> plan = DocumentCompiler("test.xaml", *texts.back(), [](std::string_view) {
                                        return Ptr<ResourceDictionary>();
                                      }).Compile();
  if (!plan) return nullptr;
  plans.push_back(std::move(plan));
  return Instantiation(nullptr, nullptr, false).Create(*plans.back());
}

void StageTest::Show(const std::string& content, Size size) {
  TakeWindowDown();
  window = Make<Window>("Window", ">" + content + "</Window>");
  ASSERT_TRUE(window) << content;
  Put(*window, size);
}

void StageTest::TakeWindowDown() {
  const WeakPtr<Window> observed(window);
  TakeDown();
  window.Reset();
  EXPECT_FALSE(observed) << "something still holds the window";
}

} // namespace Toolkit
