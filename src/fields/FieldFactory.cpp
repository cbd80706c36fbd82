#include "fields/FieldFactory.h"

#include "fields/FieldCheckbox.h"
#include "fields/FieldDictionary.h"
#include "fields/FieldEnum.h"
#include "fields/FieldEnumFilterable.h"
#include "fields/FieldFilePath.h"
#include "fields/FieldFloat.h"
#include "fields/FieldInt.h"
#include "fields/FieldIntSlider.h"
#include "fields/FieldLabel.h"
#include "fields/FieldList.h"
#include "fields/FieldMixed.h"
#include "fields/FieldObject.h"
#include "fields/FieldRawJson.h"
#include "fields/FieldSmallText.h"
#include "fields/FieldText.h"
#include "toolkit/application/MessageBox.h"
#include "workspace/NodeFieldBlueprint.h"

#include <cjson/cJSON.h>
#include <unordered_map>

namespace Tesselor {

namespace {

using Factory = Toolkit::Ptr<BaseField> (*)();

template <class T> Toolkit::Ptr<BaseField> Make() { return Toolkit::MakePtr<T>(); }

const std::unordered_map<std::string_view, Factory> factories = {
    {"SmallString", &Make<FieldSmallText>},
    {"String", &Make<FieldText>},
    {"Checkbox", &Make<FieldCheckbox>},
    {"Dictionary", &Make<FieldDictionary>},
    {"Int", &Make<FieldInt>},
    {"IntSlider", &Make<FieldIntSlider>},
    {"Float", &Make<FieldFloat>},
    {"RawJson", &Make<FieldRawJson>},
    {"Label", &Make<FieldLabel>},
    {"Mixed", &Make<FieldMixed>},
    {"Spacer", &Make<FieldSmallText>},
    {"FilePath", &Make<FieldFilePath>},
    {"List", &Make<FieldList>},
    {"Enum", &Make<FieldEnum>},
    {"EnumFilterable", &Make<FieldEnumFilterable>},
    {"Object", &Make<FieldObject>},
};

} // namespace

Toolkit::Ptr<BaseField> sCreateField(const NodeFieldBlueprint* blueprint, bool applyDefaults) {
  Toolkit::Ptr<BaseField> field = CreateField(blueprint->Type, blueprint->Options.get(), applyDefaults);
  if (field) field->ShareSize(blueprint->size);
  return field;
}

Toolkit::Ptr<BaseField> CreateField(std::string_view type, const cJSON* options, bool applyDefaults) {
  const auto found = factories.find(type);
  if (found == factories.end()) {
    Toolkit::MessageBox::Show("Unable to create Field: " + std::string(type), "Error");
    return nullptr;
  }
  Toolkit::Ptr<BaseField> field = found->second();
  if (cJSON_IsObject(options)) field->DeserializeOptions(options, applyDefaults);
  return field;
}

bool IsFieldType(std::string_view type) { return factories.contains(type); }

} // namespace Tesselor
