#pragma once

#include "toolkit/visual/Style.h"

#include <string>
#include <vector>

namespace Toolkit {

enum class BindingMode : uint8_t { Default, OneWay, TwoWay, OneTime, OneWayToSource };
enum class UpdateSourceTrigger : uint8_t { Default, PropertyChanged, LostFocus, Explicit };
enum class RelativeSourceMode : uint8_t { None, Self, TemplatedParent, FindAncestor };

/// Converts a binding's value on its way to the target and back. Named in documents as a resource.
class ValueConverter : public Object {
  TOOLKIT_TYPE(ValueConverter)
public:
  /// False leaves the target as it is.
  virtual bool Convert(const Value& value, const Value& parameter, Value& result) = 0;
  virtual bool ConvertBack(const Value& value, const Value& parameter, Value& result) { return false; }
};

/// A binding as a document describes it: where the value comes from and how it travels. Shared by all instances.
class Binding : public BindingBase {
  TOOLKIT_TYPE(Binding)
public:
  struct Step {
    Symbol name;
    // What the name meant for the last class met here; nearly all instances agree.
    mutable const Type* knownType = nullptr;
    mutable const DependencyProperty* knownProperty = nullptr;
    mutable const ReflectedMember* knownMember = nullptr;
    void Resolve(const Type& type) const;
  };

  /// Names parted by ".". Empty: the source itself.
  void SetPath(std::string_view path);
  const std::vector<Step>& Path() const { return path; }

  BindingMode mode = BindingMode::Default;
  UpdateSourceTrigger updateSourceTrigger = UpdateSourceTrigger::Default;
  RelativeSourceMode relativeSource = RelativeSourceMode::None;
  const Type* ancestorType = nullptr;
  Symbol elementName;
  Ptr<Object> source;
  Ptr<ValueConverter> converter;
  Value converterParameter;
  std::string stringFormat;
  Value fallbackValue;
  /// Milliseconds that a change of the target waits before it goes to the source.
  int delay = 0;

  std::unique_ptr<ValueExpression> CreateExpression(const DependencyProperty* property,
                                                    const NameScope* scope) const override;
  /// Reads the inside of `{Binding ...}`; `types` resolves names of types, `resources` names of resources. False, with
  /// `error` set, if it is malformed.
  struct ParseContext {
    virtual const Type* FindType(std::string_view name) const = 0;
    virtual Object* FindResource(std::string_view key) const = 0;
  };
  bool Parse(std::string_view text, const ParseContext& context, std::string& error);

private:
  std::vector<Step> path;
};

} // namespace Toolkit
