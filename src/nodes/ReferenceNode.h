#pragma once

#include "nodes/ContentNode.h"
#include "platform/JsonFile.h"

#include <vector>

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

  void Serialize(cJSON* json, bool writeNodeId, bool saveAllFields) override;
  void Deserialize(const cJSON* json, const Workspace& workspace, Graph& view, bool selectNewNodes) override;

  /// Takes the identifying value and the parameters from a file. What is wrong with it is told to the user.
  void LoadFileParameters(const std::string& path, const std::string& fileName);

private:
  /// Whether a value comes from the asset itself, and so goes back into it.
  enum class ValueOrigin { ReferencedFile, Asset };

  void InitializeComponent() override;
  void SelectFile(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void AddReferenceField();
  void AddParameterField(const char* name, const char* type, JsonPtr defaultValue, ValueOrigin origin);
  Toolkit::Ptr<BaseField> AddField(const char* name, const char* type, int width, JsonPtr defaultValue,
                                   Toolkit::StackPanel* panel);

  Toolkit::StackPanel* nodeReference = nullptr;
  Toolkit::StackPanel* nodeParameters = nullptr;
  /// Every field made so far in either panel, hidden ones too.
  std::vector<Toolkit::Ptr<BaseField>> referenceFields;
  /// A value as it stands in the asset, and what its field shows of it: less for a number with many digits, nothing for
  /// what is neither number nor text. As long as the field shows that, the value goes back as it came.
  struct KeptValue {
    std::string json;
    std::string shownText;
  };
  /// By parameter name.
  std::map<std::string, KeptValue, std::less<>> keptValues;
};

} // namespace Tesselor
