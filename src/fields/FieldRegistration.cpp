#include "fields/FieldRegistration.h"

#include "fields/CheckBoxSaveStateActionCommandBehavior.h"
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
#include "fields/SliderIntSaveStateActionCommandBehavior.h"
#include "fields/TextBoxSaveStateActionCommandBehavior.h"

namespace Tesselor {

void RegisterFieldTypes() {
  FieldTextData::StaticType();
  FieldIntData::StaticType();
  FieldCheckboxData::StaticType();
  EnumItemData::StaticType();
  FieldListStringData::StaticType();
  FieldDictionaryStringData::StaticType();

  FieldSmallText::StaticType();
  FieldText::StaticType();
  FieldCheckbox::StaticType();
  FieldDictionary::StaticType();
  FieldInt::StaticType();
  FieldList::StaticType();
  FieldMixed::StaticType();
  FieldEnum::StaticType();
  FieldEnumFilterable::StaticType();
  FieldObject::StaticType();
  FieldIntSlider::StaticType();
  FieldFloat::StaticType();
  FieldRawJson::StaticType();
  FieldLabel::StaticType();
  FieldFilePath::StaticType();

  TextBoxSaveStateActionCommandBehavior::StaticType();
  CheckBoxSaveStateActionCommandBehavior::StaticType();
  SliderIntSaveStateActionCommandBehavior::StaticType();
}

} // namespace Tesselor
