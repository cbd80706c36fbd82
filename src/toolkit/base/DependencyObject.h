#pragma once

#include "toolkit/base/Observable.h"
#include "toolkit/base/PropertySet.h"

#include <memory>

namespace Toolkit {

class DependencyObject;

/// Where a value of an object's own comes from, weakest first. Between `StyleTrigger` and `TemplateTrigger` lie the
/// constants of a template, above which lie those of a document; below all of them lie style, theme, inheritance and
/// default, which are not stored in the object.
enum class ValueLevel : uint8_t { StyleTrigger = 1, TemplateTrigger = 2, Local = 3, Animation = 4 };

/// Supplies a property of one object from elsewhere, as a binding does. Owned by its target.
class ValueExpression {
public:
  virtual ~ValueExpression() = default;
  /// The target has just got a local value from other code. Returns false if this expression ends by that.
  virtual bool OnTargetSet() = 0;
  /// The target's data context changed.
  virtual void OnDataContextChanged() = 0;
  /// The target is complete (its document is loaded): take the first value.
  virtual void Activate() = 0;

  const DependencyProperty* property = nullptr;
  DependencyObject* target = nullptr;
  std::unique_ptr<ValueExpression> next;
};

/// An object with dependency properties. Values of its own are stored sparsely; constants, style and theme values are
/// shared tables that it only points to.
class DependencyObject : public Observable {
  TOOLKIT_TYPE(DependencyObject)
public:
  ~DependencyObject() override;

  /// The effective value. The reference holds until a property of this object or of an ancestor changes.
  const Value& GetValue(const DependencyProperty* property) const {
    // Most properties of most objects were never set anywhere; one test tells.
    if (!(anyMask & property->MaskBit()) && !property->IsInherited()) return property->defaultValue;
    return FindValue(*property);
  }
  template <class T> T Get(const DependencyProperty* property) const { return GetValue(property).As<T>(); }
  std::string_view GetString(const DependencyProperty* property) const { return GetValue(property).AsStringView(); }

  /// Sets the local value. Setting the value that is there raises nothing. A one-way binding on the property ends; a
  /// two-way binding carries the value to its source.
  void SetValue(const DependencyProperty* property, Value value);
  /// As `SetValue`, for the expression that owns the property: the expression stays as it is.
  void SetFromExpression(const DependencyProperty* property, Value value);
  void SetValueAt(ValueLevel level, const DependencyProperty* property, Value value);
  void ClearValue(const DependencyProperty* property) { ClearValueAt(ValueLevel::Local, property); }
  void ClearValueAt(ValueLevel level, const DependencyProperty* property);
  /// True if any layer of this object itself gives a value (not inheritance, not the default).
  bool HasOwnValue(const DependencyProperty* property) const;

  /// Gives the object the constants of its place in a compiled document. Only once, before anything else is set.
  void SetConstants(const PropertySet* constants, bool fromTemplate);

  /// False for a class that has to see each value set, because it keeps something in step with it.
  virtual bool AcceptsConstants() const { return true; }

  /// Attaches an expression, replacing one on the same property. It takes effect by its `Activate`.
  void SetExpression(std::unique_ptr<ValueExpression> expression);
  ValueExpression* FindExpression(const DependencyProperty* property) const;
  void ActivateExpressions();

  /// Where inherited values come from; null at the top.
  virtual DependencyObject* InheritanceParent() const { return nullptr; }

protected:
  DependencyObject() = default;

  /// An effective value changed. Overrides call the base.
  virtual void OnPropertyChanged(const PropertyChange& change);
  /// Inherited values in `bits` changed above this object, which has none of its own. Overrides call the base.
  virtual void OnInheritedChanged(uint16_t bits);
  /// Calls `RefreshInheritance` on everything that inherits from this object.
  virtual void RefreshInheritanceOfChildren(uint16_t changedBits) {}
  /// The tables of the style layers, in order of strength. Owned by styles that outlive their use here. An object that
  /// is still being made is not told of changes by them.
  enum class StyleChange { Silent, Notify };
  void SetStyleValues(const PropertySet* style, const PropertySet* theme, StyleChange change);

public:
  /// The inheritance parent changed, or one of its inherited properties in `changedBits` did.
  void RefreshInheritance(uint16_t changedBits);

private:
  struct Entry {
    uint16_t propertyIndex;
    ValueLevel level;
    Value value;
  };
  const Value& FindValue(const DependencyProperty& property) const;
  const Entry* FindEntry(const DependencyProperty& property) const;
  void UpdateMasks();
  Entry* FindEntryAt(ValueLevel level, const DependencyProperty& property);
  uint16_t OwnInheritedBits() const;
  void Store(ValueLevel level, const DependencyProperty* property, Value value);
  void RaiseChange(const DependencyProperty& property, const Value& oldValue, const Value& newValue);
  void InsertEntry(Entry entry);

  /// With room for the next power of two of `entryCount`, and for two at least.
  Entry* entries = nullptr;
  // There are very many objects: these four fill eight bytes.
  uint16_t entryCount = 0;
  /// The inherited properties that own values give.
  uint16_t entryInheritedBits = 0;
  /// The inherited properties that are set at or above this object.
  uint16_t inheritedMask = 0;
  bool constantsFromTemplate = false;
  uint64_t entryMask = 0;
  /// The masks of all layers together.
  uint64_t anyMask = 0;
  const PropertySet* constants = nullptr;
  const PropertySet* styleValues = nullptr;
  const PropertySet* themeValues = nullptr;
  std::unique_ptr<ValueExpression> expressions;
};

} // namespace Toolkit
