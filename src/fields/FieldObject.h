#pragma once

#include "fields/BaseField.h"
#include "platform/JsonFile.h"

#include <map>
#include <string>
#include <vector>

namespace Toolkit {
class StackPanel;
}

namespace Tesselor {

/// A field that holds fields, written as one nested object. It has no value of its own. Owns its children, which live
/// as long as it does and have no owner node. While the schema has a slip in one of them, the members that no child
/// reads are written again as they came.
class FieldObject : public BaseField {
  TOOLKIT_TYPE(FieldObject)
public:
  FieldObject();

  /// Every child writes itself, whether or not a node would offer it for writing.
  void Serialize(cJSON* object, const std::string& key) override;
  void Deserialize(const cJSON* object, const std::string& key) override;
  void DeserializeOptions(const cJSON* options, bool applyDefaults) override;

  /// The child of that id, or null.
  BaseField* FindField(const std::string& id) const;

private:
  void InitializeComponent() override;
  void ShowValueOf(BaseField& field) override;
  void AddField(const cJSON* description, bool applyDefaults);

  std::map<std::string, Toolkit::Ptr<BaseField>> fields;
  /// The ids in the schema's order; a repeated id stands here twice, and both times means the later child.
  std::vector<std::string> fieldOrder;
  /// An entry of the schema became no child.
  bool lacksFields = false;
  /// What the loaded object holds beyond the children; null if none is missing.
  JsonPtr kept;
  Toolkit::Ptr<Toolkit::StackPanel> fieldsContainer;
};

} // namespace Tesselor
