#pragma once

#include "toolkit/controls/UserControl.h"
#include "workspace/FieldSize.h"

#include <memory>
#include <string>
#include <string_view>

struct cJSON;

namespace Tesselor {

class FieldOwner;

/// One typed editor inside a node: the control that shows and edits one value of an asset, and the code that moves
/// the value from and to JSON. Made by `sCreateField`, owned by the node's field tables or by a `FieldObject`. A field
/// never reaches into its node but through `FieldOwner`, and never keeps the JSON that it is given.
///
/// The controls of most fields are made when somebody first sees them: what a field holds, reads and writes needs none,
/// and neither does the layout where the field's size is known (`ShareSize`).
class BaseField : public Toolkit::UserControl {
  TOOLKIT_TYPE(BaseField)
public:
  static inline const Toolkit::DependencyProperty* LabelProperty = nullptr;
  static inline const Toolkit::DependencyProperty* DescriptionProperty = nullptr;

  /// Writes the value into `object` under exactly this key. A class may write nothing.
  virtual void Serialize(cJSON* object, const std::string& key) = 0;
  /// Takes the value under `key`, in any letter case. A missing key or a type that the field doesn't take leaves the
  /// field as it is.
  virtual void Deserialize(const cJSON* object, const std::string& key) = 0;
  /// Takes the schema's options. With `applyDefaults` a declared default becomes the value. Overrides call this first.
  virtual void DeserializeOptions(const cJSON* options, bool applyDefaults);
  /// Takes the value from `item` itself.
  virtual void DeserializeValue(const cJSON* item) {}
  /// The value equals the declared default. Always false for a class without a comparable default.
  virtual bool IsDefault() const { return false; }
  /// Whether a node offers the value for writing when it does not write all defaults.
  virtual bool ShouldSerialize() const { return required || hasLoadedValue || !IsDefault(); }
  /// The value as plain text, for a search.
  virtual std::string GetValueAsString() const { return {}; }

  std::string_view GetLabel() const { return GetString(LabelProperty); }
  bool IsRequired() const { return required; }
  /// Shown on its node. A hidden field is loaded and written all the same.
  bool IsActive() const { return active; }
  bool HasLoadedValue() const { return hasLoadedValue; }
  /// The value came from a file, so it goes back into it even when it equals the default.
  void MarkLoaded() { hasLoadedValue = true; }

  /// Makes a second control of a field: it shows the value of that one and hands on what is done to it. It has no value
  /// and no options of its own, and keeps the field alive.
  static Toolkit::Ptr<BaseField> MakeSecondControl(BaseField& field);

  /// Makes the controls now, if they still wait. With the same place and size as without.
  void MakeControls();
  bool HasControls() const { return hasControls; }
  /// Until its controls are made, the field takes the room that the first one of its schema entry took, if its class
  /// says that the value doesn't matter for that.
  void ShareSize(std::shared_ptr<FieldSize> size);

  /// The node that holds the field, which outlives this; null for a field nested in another and for a copy.
  FieldOwner* OwnerNode() const { return ownerNode; }
  void SetOwnerNode(FieldOwner* node) { ownerNode = node; }

private:
  /// Loads the class's document; called once, by `MakeControls`.
  virtual void InitializeComponent() = 0;
  /// Whether the options alone decide about the size, so that the controls may wait. The constructors of other classes
  /// make them.
  virtual bool HasSizeOfItsOptions() const { return false; }

protected:
  BaseField() = default;
  /// The bindings of a field's document read the field's own properties, carriers and collections, which must exist
  /// by now.
  void BindToSelf();
  void LoadDocument(std::string_view name);
  /// This control, which is new, becomes a second one of `field`, which is of the same class.
  virtual void ShowValueOf(BaseField& field);
  Toolkit::Size MeasureOverride(Toolkit::Size available) override;
  /// The field whose value this control shows: itself, or the one that it is a second control of. What the user does to
  /// the control is done to it.
  template <class T> T& Subject() { return static_cast<T&>(subject ? *subject : *this); }
  bool IsSecondControl() const { return subject != nullptr; }

  bool hasDefault = false;
  bool required = false;
  bool hasLoadedValue = false;
  bool active = true;
  FieldOwner* ownerNode = nullptr;

private:
  Toolkit::Ptr<BaseField> subject;
  std::shared_ptr<FieldSize> sharedSize;
  bool hasControls = false;
};

} // namespace Tesselor
