#include "toolkit/base/Symbol.h"

#include <unordered_set>

namespace Toolkit {

Symbol::Symbol(std::string_view name) {
  static auto* table = new std::unordered_set<std::string>();
  if (!name.empty()) text = &*table->emplace(name).first;
}

const std::string& Symbol::Text() const {
  static const auto* empty = new std::string();
  return text ? *text : *empty;
}

} // namespace Toolkit
