#pragma once

#include "toolkit/base/DependencyObject.h"
#include "toolkit/text/TextCache.h"

namespace Toolkit {

class Brush;

const EnumDescription& DescribeEnum(FontWeight);
const EnumDescription& DescribeEnum(FontStyle);
const EnumDescription& DescribeEnum(TextWrapping);
const EnumDescription& DescribeEnum(TextTrimming);
const EnumDescription& DescribeEnum(TextAlignment);

/// The inherited properties of text: every element hands them down, those that show text use them.
class TextElement : public DependencyObject {
  TOOLKIT_TYPE(TextElement)
public:
  static inline const DependencyProperty* FontFamilyProperty = nullptr;
  static inline const DependencyProperty* FontSizeProperty = nullptr;
  static inline const DependencyProperty* FontWeightProperty = nullptr;
  static inline const DependencyProperty* FontStyleProperty = nullptr;
  static inline const DependencyProperty* ForegroundProperty = nullptr;

  /// The style of text in an element, from the properties above.
  static TextStyle StyleOf(const DependencyObject& object);
  /// Makes the properties members of another class.
  template <class C> static void DeclareOn(TypeBuilder<C>& type) {
    StaticType();
    for (const DependencyProperty* property :
         {FontFamilyProperty, FontSizeProperty, FontWeightProperty, FontStyleProperty, ForegroundProperty})
      type.Declare(property);
  }
};

} // namespace Toolkit
