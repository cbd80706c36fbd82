// Writes a workspace and an asset of a given number of nodes, the same bytes for the same arguments:
//   GenerateAsset <directory> <nodes> [--seed=<number>] [--no-layout] [--plain] [--flat]
// The asset is a tree. A fifth of its nodes are branches, whose Multiple pin holds an array of children (up to three
// branches and four leaves); one leaf in four hangs on the single pin of another. A node has ten plain fields; a branch
// has fields of all other kinds besides, among them lists and dictionaries of two to four rows, unless --plain is
// given. With --flat all nodes but the first are leaves on its pin. Unless --no-layout is given, the metadata places
// every node, as a file that was saved before does. It prints the numbers of nodes, of fields (each row and each field
// inside an object counts as one) and of bytes.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

namespace {

struct JsonDeleter {
  void operator()(cJSON* item) const { cJSON_Delete(item); }
};
using Json = std::unique_ptr<cJSON, JsonDeleter>;

/// SplitMix64: small, and the same on every platform.
class RandomNumbers {
public:
  explicit RandomNumbers(uint64_t seed) : state(seed) {}
  uint64_t Next() {
    uint64_t z = (state += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
  }
  uint32_t Below(uint32_t limit) { return static_cast<uint32_t>(Next() % limit); }

private:
  uint64_t state;
};

const char* const rarities[] = {"Common", "Uncommon", "Rare", "Epic", "Legendary"};
const char* const words[] = {"amber", "bridge", "cinder", "drum",  "ember",  "fjord", "grove", "harbour",
                             "inlet", "jasper", "knell",  "larch", "marrow", "north", "ochre", "pillar"};

std::string Uuid(RandomNumbers& random) {
  char text[37];
  const uint64_t high = random.Next(), low = random.Next();
  std::snprintf(text, sizeof(text), "%08x-%04x-4%03x-8%03x-%012llx", static_cast<unsigned>(high >> 32),
                static_cast<unsigned>(high >> 16 & 0xFFFF), static_cast<unsigned>(high & 0xFFF),
                static_cast<unsigned>(low >> 52), static_cast<unsigned long long>(low & 0xFFFFFFFFFFFFull));
  return text;
}

std::string Words(RandomNumbers& random, uint32_t count) {
  std::string text;
  for (uint32_t i = 0; i < count; ++i) {
    if (i > 0) text += ' ';
    text += words[random.Below(std::size(words))];
  }
  return text;
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) {
    std::cerr << "Cannot write " << path << "\n";
    std::exit(1);
  }
}

/// Which fields a branch has besides the plain ones.
enum class BranchFields { Plain, AllKinds };

std::string NodeSchema(const std::string& id, bool hasChildren, BranchFields branchFields) {
  const bool hasAllKinds = hasChildren && branchFields == BranchFields::AllKinds;
  std::string values;
  for (const char* rarity : rarities) values += (values.empty() ? "\"" : ", \"") + std::string(rarity) + "\"";
  const std::string otherKinds = hasAllKinds ? R"(,
    {"Id": "Heading", "Type": "Label", "Options": {"Text": "More", "FontSize": 18}},
    {"Id": "Order", "Type": "IntSlider", "Options": {"Label": "Order", "Max": 50, "TickFrequency": 5}},
    {"Id": "Mood", "Type": "EnumFilterable", "Options": {"Label": "Mood", "Values": [)" +
                                                   values + R"(]}},
    {"Id": "Voice", "Type": "FilePath", "Options": {"Label": "Voice", "UseUUID": true}},
    {"Id": "Extra", "Type": "RawJson", "Options": {"Label": "Extra"}},
    {"Id": "Remark", "Type": "Spacer", "Options": {"Label": "Remark", "Default": ""}},
    {"Id": "Tags", "Type": "List", "Options": {"Label": "Tags", "Width": 120}},
    {"Id": "Scores", "Type": "List", "Options": {"Label": "Scores", "Type": "int"}},
    {"Id": "Limits", "Type": "Dictionary", "Options": {"Label": "Limits", "Type": "mixed"}},
    {"Id": "Place", "Type": "Object", "Options": {"Label": "Place", "Fields": [
      {"Id": "X", "Type": "Float", "Options": {"Label": "X"}},
      {"Id": "Y", "Type": "Float", "Options": {"Label": "Y"}},
      {"Id": "Note", "Type": "SmallString", "Options": {"Label": "Note"}}]}})"
                                             : "";
  const std::string otherKeys = hasAllKinds ? R"(
    "Order": "Order", "Mood": "Mood", "Voice": "Voice", "Extra": "Extra", "Remark": "Remark", "Tags": "Tags",
    "Scores": "Scores", "Limits": "Limits", "Place": "Place",)"
                                            : "";
  const std::string childPin =
      hasChildren ? R"({"id": "Steps", "Type": "Step", "color": "orange", "Multiple": true, "Label": "Steps"})"
                  : R"({"id": "Outcome", "Type": "Step", "color": "green", "Label": "Outcome"})";
  const std::string childKey = hasChildren ? R"("Steps$Pin": {"node": "Step", "pin": "Steps"})"
                                           : R"("Outcome$Pin": {"node": "Leaf", "pin": "Outcome"})";
  return R"({
  "id": ")" +
         id + R"(",
  "title": ")" +
         id + R"(",
  "color": ")" +
         (hasChildren ? "blue" : "purple") + R"(",
  "Description": "A node of the benchmark's tree.",
  "inputs": [{"id": "In", "Type": "Step", "color": "orange", "Label": "In"}],
  "outputs": [)" +
         childPin + R"(],
  "content": [
    {"Id": "Name", "Type": "SmallString", "Options": {"Label": "Name", "Width": 160, "Default": ""}},
    {"Id": "Tag", "Type": "SmallString", "Options": {"Label": "Tag", "Default": "none"}},
    {"Id": "Count", "Type": "Int", "Options": {"Label": "Count", "Default": 1, "Min": 0, "Max": 1000000}},
    {"Id": "Priority", "Type": "Int", "Options": {"Label": "Priority", "Default": 0}},
    {"Id": "Weight", "Type": "Float", "Options": {"Label": "Weight", "Default": 1.0}},
    {"Id": "Delay", "Type": "Float", "Options": {"Label": "Delay", "Default": 0.0}},
    {"Id": "Enabled", "Type": "Checkbox", "Options": {"Label": "Enabled", "Default": true}},
    {"Id": "Rarity", "Type": "Enum", "Options": {"Label": "Rarity", "Values": [)" +
         values + R"(], "Default": "Common"}},
    {"Id": "Value", "Type": "Mixed", "Options": {"Label": "Value"}},
    {"Id": "Description", "Type": "String", "Options": {"Label": "Description", "Width": 240, "Height": 60}})" +
         otherKinds + R"(
  ],
  "Schema": {
    "Kind": "$Const:)" +
         id + R"(",
    "Name": "Name", "Tag": "Tag", "Count": "Count", "Priority": "Priority", "Weight": "Weight", "Delay": "Delay",
    "Enabled": "Enabled", "Rarity": "Rarity", "Value": "Value", "Description": "Description",)" +
         otherKeys + "\n    " + childKey +
         R"(
  }
}
)";
}

void WriteWorkspace(const std::filesystem::path& directory, BranchFields branchFields) {
  const std::filesystem::path workspace = directory / "Workspaces" / "Benchmark";
  std::filesystem::create_directories(workspace);
  WriteFile(workspace / "_Workspace.json", R"({
  "WorkspaceName": "Benchmark",
  "Roots": {"Tree": {"RootNodeType": "Branch", "MenuName": "Benchmark tree"}},
  "NodeCategories": {"Steps": ["Branch", "Leaf"]},
  "Variants": {
    "Step": {"VariantFieldName": "Kind", "Variants": {"Branch": "Branch", "Leaf": "Leaf", "": "Leaf"}}
  }
}
)");
  WriteFile(workspace / "Branch.json", NodeSchema("Branch", true, branchFields));
  WriteFile(workspace / "Leaf.json", NodeSchema("Leaf", false, branchFields));
}

/// Grows the tree in the order of the file and, along with it, the metadata's table of places.
class TreeWriter {
public:
  enum class Shape { Tree, Flat };
  TreeWriter(uint32_t nodes, uint64_t seed, BranchFields branchFields, Shape shape)
      : nodes(nodes), branches(nodes < 5 || shape == Shape::Flat ? 1 : nodes / 5), branchFields(branchFields),
        shape(shape), random(seed) {}

  Json Write(bool withLayout) {
    places.reset(cJSON_CreateObject());
    Json root(Branch(0, 0));
    cJSON* metadata = cJSON_AddObjectToObject(root.get(), "$NodeEditorMetadata");
    if (withLayout) {
      cJSON_AddItemToObject(metadata, "$Nodes", places.release());
    } else {
      cJSON_AddObjectToObject(metadata, "$Nodes");
    }
    cJSON_AddArrayToObject(metadata, "$FloatingNodes");
    cJSON_AddObjectToObject(metadata, "$Links");
    cJSON_AddArrayToObject(metadata, "$Groups");
    cJSON_AddArrayToObject(metadata, "$Comments");
    cJSON_AddStringToObject(metadata, "$WorkspaceID", "Benchmark tree");
    return root;
  }

  uint32_t Written() const { return written; }
  uint32_t Fields() const { return fields; }

private:
  cJSON* Branch(uint32_t branch, int depth) {
    cJSON* node = Node("Branch", depth);
    if (branchFields == BranchFields::AllKinds) AddOtherKinds(node);
    cJSON* steps = cJSON_AddArrayToObject(node, "Steps");
    for (uint32_t child = 3 * branch + 1; child <= 3 * branch + 3 && child < branches; ++child)
      cJSON_AddItemToArray(steps, Branch(child, depth + 1));
    // What the division by five left over hangs on the first branch.
    uint32_t leaves = 4 + (branch == 0 ? nodes - branches * 5 : 0);
    if (nodes < 5 || shape == Shape::Flat) leaves = nodes - 1;
    for (; leaves > 0; --leaves) {
      cJSON* leaf = Node("Leaf", depth + 1);
      if (leaves == 2 && shape == Shape::Tree) {
        --leaves;
        cJSON_AddItemToObject(leaf, "Outcome", Node("Leaf", depth + 2));
      }
      cJSON_AddItemToArray(steps, leaf);
    }
    return node;
  }

  void AddOtherKinds(cJSON* node) {
    cJSON_AddNumberToObject(node, "Order", random.Below(50));
    cJSON_AddStringToObject(node, "Mood", rarities[random.Below(std::size(rarities))]);
    cJSON_AddStringToObject(node, "Voice", Uuid(random).c_str());
    cJSON_AddStringToObject(node, "$Voice_FileName", Words(random, 1).c_str());
    cJSON_AddNumberToObject(cJSON_AddObjectToObject(node, "Extra"), "level", random.Below(10));
    cJSON_AddStringToObject(node, "Remark", Words(random, 2).c_str());
    cJSON* tags = cJSON_AddArrayToObject(node, "Tags");
    for (uint32_t i = Rows(); i > 0; --i) cJSON_AddItemToArray(tags, cJSON_CreateString(Words(random, 1).c_str()));
    cJSON* scores = cJSON_AddArrayToObject(node, "Scores");
    for (uint32_t i = Rows(); i > 0; --i) cJSON_AddItemToArray(scores, cJSON_CreateNumber(random.Below(1000)));
    cJSON* limits = cJSON_AddObjectToObject(node, "Limits");
    for (uint32_t i = Rows(); i > 0; --i)
      cJSON_AddNumberToObject(limits, (Words(random, 1) + std::to_string(i)).c_str(), random.Below(100));
    cJSON* place = cJSON_AddObjectToObject(node, "Place");
    cJSON_AddNumberToObject(place, "X", random.Below(400) / 4.0);
    cJSON_AddNumberToObject(place, "Y", random.Below(400) / 4.0);
    cJSON_AddStringToObject(place, "Note", Words(random, 2).c_str());
    // Seven single ones, the heading among them, three with rows and three in the object.
    fields += 13;
  }

  /// How many rows the next list or dictionary has.
  uint32_t Rows() {
    const uint32_t count = 2 + random.Below(3);
    fields += count;
    return count;
  }

  cJSON* Node(const std::string& type, int depth) {
    const std::string id = type + "-" + Uuid(random);
    cJSON* node = cJSON_CreateObject();
    cJSON_AddStringToObject(node, "$NodeId", id.c_str());
    cJSON_AddStringToObject(node, "Kind", type.c_str());
    cJSON_AddStringToObject(node, "Name", (Words(random, 2) + " " + std::to_string(written)).c_str());
    cJSON_AddStringToObject(node, "Tag", words[random.Below(std::size(words))]);
    cJSON_AddNumberToObject(node, "Count", random.Below(1000));
    cJSON_AddNumberToObject(node, "Priority", random.Below(10));
    // Quarters have an exact form in text and in both kinds of floating-point number.
    cJSON_AddNumberToObject(node, "Weight", random.Below(400) / 4.0);
    cJSON_AddNumberToObject(node, "Delay", random.Below(40) / 4.0);
    cJSON_AddBoolToObject(node, "Enabled", random.Below(4) != 0);
    cJSON_AddStringToObject(node, "Rarity", rarities[random.Below(std::size(rarities))]);
    switch (random.Below(3)) {
    case 0: cJSON_AddNumberToObject(node, "Value", random.Below(100000)); break;
    case 1: cJSON_AddBoolToObject(node, "Value", random.Below(2) != 0); break;
    default: cJSON_AddStringToObject(node, "Value", words[random.Below(std::size(words))]);
    }
    cJSON_AddStringToObject(node, "Description", Words(random, 18).c_str());

    cJSON* place = cJSON_AddObjectToObject(places.get(), id.c_str());
    cJSON* position = cJSON_AddObjectToObject(place, "$Position");
    // A column of the canvas has room for a thousand rows; larger trees go on beside it.
    cJSON_AddNumberToObject(position, "$x", depth * 600 + written / rowsPerColumn * 8000.0);
    cJSON_AddNumberToObject(position, "$y", written % rowsPerColumn * 600.0);
    if (written == 0) cJSON_AddStringToObject(place, "$Title", ("[ROOT] " + type).c_str());
    ++written;
    fields += 10;
    return node;
  }

  static constexpr uint32_t rowsPerColumn = 1000;

  uint32_t nodes;
  uint32_t branches;
  BranchFields branchFields;
  Shape shape;
  RandomNumbers random;
  Json places;
  uint32_t written = 0;
  uint32_t fields = 0;
};

} // namespace

int main(int argc, char** argv) {
  uint64_t seed = 1;
  bool withLayout = true;
  BranchFields branchFields = BranchFields::AllKinds;
  TreeWriter::Shape shape = TreeWriter::Shape::Tree;
  std::vector<std::string> plain;
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument.starts_with("--seed=")) {
      seed = std::strtoull(argument.c_str() + 7, nullptr, 10);
    } else if (argument == "--no-layout") {
      withLayout = false;
    } else if (argument == "--plain") {
      branchFields = BranchFields::Plain;
    } else if (argument == "--flat") {
      shape = TreeWriter::Shape::Flat;
    } else {
      plain.push_back(argument);
    }
  }
  const long nodes = plain.size() == 2 ? std::strtol(plain[1].c_str(), nullptr, 10) : 0;
  if (nodes <= 0) {
    std::cerr << "Usage: GenerateAsset <directory> <nodes> [--seed=<number>] [--no-layout] [--plain] [--flat]\n";
    return 1;
  }
  const std::filesystem::path directory = plain[0];
  WriteWorkspace(directory, branchFields);
  TreeWriter writer(static_cast<uint32_t>(nodes), seed, branchFields, shape);
  const Json root = writer.Write(withLayout);
  char* text = cJSON_Print(root.get());
  const std::filesystem::path path = directory / ("asset-" + plain[1] + ".json");
  WriteFile(path, text);
  std::cout << path.string() << ": " << writer.Written() << " nodes, " << writer.Fields() << " fields, "
            << std::string_view(text).size() << " bytes\n";
  cJSON_free(text);
  return writer.Written() == nodes ? 0 : 1;
}
