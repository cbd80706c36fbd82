#pragma once

#include "nodes/ContentNode.h"
#include "platform/JsonFile.h"

#include <map>
#include <string>
#include <string_view>

namespace Tesselor {

/// Stands in an asset for another asset file: holds that file's identifying value and short name, and those of its
/// parameters that differ. The other file is read when the user picks it, never when an asset is loaded.
class ReferenceNode : public ContentNode {
  TOOLKIT_TYPE(ReferenceNode)
public:
  static inline const Toolkit::DependencyProperty* FileNameProperty = nullptr;
  static inline const Toolkit::DependencyProperty* FileIdProperty = nullptr;

  ReferenceNode(std::string typeId, const NodeBlueprint& blueprint);

  std::string_view FileName() const { return GetString(FileNameProperty); }
  std::string_view FileId() const { return GetString(FileIdProperty); }
  void SetFileName(std::string_view name) { SetValue(FileNameProperty, name); }
  void SetFileId(std::string_view id) { SetValue(FileIdProperty, id); }

  void Serialize(cJSON* json, NodeWriter& writer, NodeIdMember nodeId) override;
  void SerializeForCopy(cJSON* json, NodeWriter& writer, NodeLayout position) override;
  void Deserialize(const cJSON* json, NodeReader& reader) override;

  /// Takes the identifying value and the parameters from a file. What is wrong with it is told to the user.
  void LoadFileParameters(const std::string& path, const std::string& fileName);

  /// The field that shows the identifying value.
  void AddReferenceField();
  /// A parameter that stands in the asset itself, and so goes back into it: the type and the default of its field, and
  /// the JSON as it came. Of equal names the first has the field.
  void AddAssetParameter(const char* name, const char* type, JsonPtr defaultValue, std::string json);
  /// The JSON of a parameter as it came, as long as its field shows what it showed then; else null.
  const std::string* UnchangedJson(const std::string& name) const;

private:
  void InitializeComponent() override;
  void WriteFile(cJSON* json, const NodeWriter& writer) const;
  void SelectFile(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  Toolkit::Ptr<BaseField> AddParameterField(const char* name, const char* type, JsonPtr defaultValue);
  Toolkit::Ptr<BaseField> AddField(const char* name, const char* type, int width, JsonPtr defaultValue,
                                   Toolkit::StackPanel* panel);

  Toolkit::StackPanel* nodeReference = nullptr;
  Toolkit::StackPanel* nodeParameters = nullptr;
  /// A value as it stands in the asset, and what its field shows of it: less for a number with many digits, nothing for
  /// what is neither number nor text.
  struct KeptValue {
    std::string json;
    std::string shownText;
  };
  /// By parameter name.
  std::map<std::string, KeptValue, std::less<>> keptValues;
};

} // namespace Tesselor
