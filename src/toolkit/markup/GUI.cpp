#include "toolkit/markup/GUI.h"

#include "toolkit/base/Diagnostics.h"
#include "toolkit/markup/DocumentCompiler.h"
#include "toolkit/visual/FrameworkElement.h"

#include <string>
#include <unordered_map>

namespace Toolkit {

namespace {
GUI::DocumentProvider documentProvider = nullptr;

struct Compiled {
  std::unique_ptr<ElementPlan> plan;
  bool tried = false;
};

std::unordered_map<std::string, Compiled>& Documents() {
  static auto* documents = new std::unordered_map<std::string, Compiled>();
  return *documents;
}

Ptr<ResourceDictionary> LoadDictionary(std::string_view name) {
  const std::string_view text = documentProvider ? documentProvider(name) : std::string_view();
  if (!text.data()) return nullptr;
  return DocumentCompiler(name, text, &LoadDictionary).CompileDictionary();
}

const ElementPlan* Find(std::string_view name) {
  Compiled& entry = Documents()[std::string(name)];
  if (!entry.tried) {
    entry.tried = true;
    const std::string_view text = documentProvider ? documentProvider(name) : std::string_view();
    if (text.data()) {
      entry.plan = DocumentCompiler(name, text, &LoadDictionary).Compile();
    } else {
      ReportError(__FILE__, __LINE__, "there is no document '" + std::string(name) + "'", false);
    }
  }
  return entry.plan.get();
}
} // namespace

void GUI::SetDocumentProvider(DocumentProvider provider) { documentProvider = provider; }

bool GUI::LoadComponent(FrameworkElement& component, std::string_view documentName) {
  const ElementPlan* plan = Find(documentName);
  if (!plan) return false;
  if (!component.GetType().IsA(*plan->type)) {
    ReportError(__FILE__, __LINE__,
                "'" + std::string(documentName) + "' is no document of " + component.GetType().Name(), false);
    return false;
  }
  Instantiation(&component, nullptr, false).Apply(*plan, component);
  return true;
}

Ptr<Object> GUI::Load(std::string_view documentName) {
  const ElementPlan* plan = Find(documentName);
  if (!plan) return nullptr;
  Instantiation instantiation(nullptr, nullptr, false);
  return instantiation.Create(*plan);
}

const Type* GUI::ClassOf(std::string_view documentName) {
  const ElementPlan* plan = Find(documentName);
  return plan ? plan->type : nullptr;
}

} // namespace Toolkit
