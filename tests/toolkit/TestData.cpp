#include "toolkit/MarkupTestSupport.h"

namespace Toolkit {

TOOLKIT_TYPE_IMPL(TestData, NotifyPropertyChangedBase, "Tesselor.TestData")
void TestData::Describe(TypeBuilder<TestData>& type) {
  type.Member<&TestData::GetText, &TestData::SetText>("Text");
  type.Member<&TestData::GetNumber, &TestData::SetNumber>("Number");
  type.Member<&TestData::GetNext, &TestData::SetNext>("Next");
}

} // namespace Toolkit
