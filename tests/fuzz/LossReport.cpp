// Holds two JSON texts against each other as a file and what a save makes of it. A text against itself loses nothing
// but what only the digits of its numbers say, and all paths begin at the top.

#include "document/LossReport.h"
#include "document/LongNumbers.h"
#include "document/NodeShapes.h"
#include "platform/JsonFile.h"
#include "workspace/NodeDictionary.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace Tesselor;

namespace {

/// Nodes hang on nodes of their own type, in each of the ways.
const NodeShapes& Shapes() {
  static const NodeDictionary* dictionary = [] {
    auto* made = new NodeDictionary;
    const JsonPtr schema = ParseJson(R"({"id":"T","title":"T","color":"red","content":[{"Id":"f","Type":"Mixed"}],
        "outputs":[{"id":"p","Type":"T","color":"red","Multiple":true},{"id":"m","Type":"T","color":"red","IsMap":true}],
        "Schema":{"F":"f","Items":{"node":"T","pin":"p"},"One":{"node":"T","pin":"p"},"Map":{"node":"T","pin":"m"}}})")
                               .json;
    made->AddSchema(schema.get());
    return made;
  }();
  static const NodeShapes shapes(*dictionary);
  return shapes;
}

void Check(const std::string& text, const cJSON& file, const cJSON& exported) {
  for (const Loss& loss : FindLosses(file, exported, Shapes(), FindLongNumbers(text)))
    if (!loss.path.starts_with("$") || loss.was.size() > 100 || loss.becomes.size() > 120 || loss.Line().empty()) {
      std::fprintf(stderr, "not a loss: %s\n", loss.Line().c_str());
      std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string all(reinterpret_cast<const char*>(data), size);
  const size_t middle = std::min(all.find('\n'), all.size());
  const std::string first = all.substr(0, middle);
  const JsonPtr file = ParseJson(first, JsonTail::Refused).json;
  if (!cJSON_IsObject(file.get())) return 0;
  if (middle < all.size())
    if (const JsonPtr exported = ParseJson(all.substr(middle + 1)).json; cJSON_IsObject(exported.get())) {
      Check(first, *file, *exported);
      Check(all.substr(middle + 1), *exported, *file);
    }
  Check(first, *file, *file);
  return 0;
}
