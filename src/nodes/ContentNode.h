#pragma once

#include "fields/BaseField.h"
#include "fields/FieldOwner.h"
#include "nodes/BaseNode.h"
#include "nodes/NodePinData.h"
#include "toolkit/base/ObservableCollection.h"
#include "workspace/NodeBlueprint.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

struct cJSON;

namespace Toolkit {
class ItemsControl;
}

namespace Tesselor {

class ContentNode;
class NodeObserver;
class NodePinControl;
class NodeReader;
class NodeWriter;

enum class FieldPlacement { InputPin, Body, OutputPin };

/// Whether a written node says which one it is.
enum class NodeIdMember { Omitted, Written };
/// Whether a written node says where it stands and what its title is.
enum class NodeLayout { Omitted, Written };

/// Marks the title of a document's root.
inline constexpr std::string_view RootTitlePrefix = "[ROOT] ";

using NodeSet = std::unordered_set<const ContentNode*>;

/// The visible form of one JSON object of an asset: a titled box with input pins, fields and output pins, all of
/// which its blueprint decides. Made by `NodeDictionary::CreateNode`; the lists of the view and undo steps own it.
///
/// Its JSON is read and written by `NodeReader` and `NodeWriter`, which call its virtual members for the forms that a
/// class has of its own; these members stand in src/document.
class ContentNode : public BaseNode, public FieldOwner {
  TOOLKIT_TYPE(ContentNode)
public:
  using Pins = Toolkit::ObservableCollection<NodePinData>;
  /// All pins by id. Of two pins with one id the later stays; dynamic pins have keys of their own.
  using PinTable = std::map<std::string, NodePinData*, std::less<>>;
  using FieldTable = std::map<std::string, Toolkit::Ptr<BaseField>, std::less<>>;

  static inline const Toolkit::DependencyProperty* CommentInputVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* CommentTextVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* CommentBlockVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TitleColorGradientProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TitleColorProperty = nullptr;
  static inline const Toolkit::DependencyProperty* IsLinkValidProperty = nullptr;
  static inline const Toolkit::DependencyProperty* ArrayIndexTextProperty = nullptr;
  static inline const Toolkit::DependencyProperty* ArrayIndexVisibilityProperty = nullptr;
  /// Whether the naming field stands beside the title.
  static inline const Toolkit::DependencyProperty* NamingVisibilityProperty = nullptr;

  /// A node without a blueprint, for documents only. Nothing but its look may be used.
  ContentNode();
  ContentNode(std::string typeId, const NodeBlueprint& blueprint);
  ~ContentNode() override;

  const NodeBlueprint& Blueprint() const { return *blueprint; }
  bool HasBlueprint() const { return blueprint != nullptr; }
  bool IsPassthrough() const { return blueprint && blueprint->isPassthrough; }
  const std::string& TypeId() const { return typeId; }
  Pins& Input() const { return *input; }
  Pins& Output() const { return *output; }
  FieldTextData* GetFieldCommentData() const { return fieldCommentData.Get(); }
  /// Sets the comment and shows its block.
  void SetComment(std::string_view text);

  /// The UUID; empty until it is loaded or first written.
  const std::string& NodeId() const { return nodeId; }
  void SetNodeId(std::string id);
  /// The UUID, made now if there is none.
  const std::string& EnsureNodeId();
  /// Who follows this node; null ends that.
  void SetObserver(NodeObserver* value) { observer = value; }
  /// "<typeId>-<nodeId>", or the type id alone for a node without UUID.
  virtual std::string Identity() const;

  // Pins and fields.
  NodePinData* AddPin(bool isInput, const NodePinBlueprint& pinBlueprint);
  /// A further output pin for an object that the schema doesn't know. Its record's id is the same as that of others;
  /// its key in `pins` sorts behind theirs.
  NodePinData* AddDynamicPin(const NodePinBlueprint& pinBlueprint);
  /// Null if there is no such pin.
  NodePinData* FindPin(std::string_view id) const;
  /// The first input pin, in key order, of that declared type; null if there is none.
  NodePinData* FindInputPinOfType(std::string_view type) const;
  /// The key of one of this node's pins in `pins`, which is how files name it.
  const std::string& KeyOf(const NodePinData& pin) const;
  /// The first input pin in key order, gaps left out; null if there is none.
  NodePinData* FirstInputByKey() const;
  /// The first pin of a side; null if there is none.
  NodePinData* FirstInput() const { return input->Count() > 0 ? input->Get(0) : nullptr; }
  NodePinData* FirstOutput() const { return output->Count() > 0 ? output->Get(0) : nullptr; }
  void AddField(const std::string& fieldId, BaseField& field, FieldPlacement placement);
  /// Looks in the fields of the input pins, then of the body, then of the output pins.
  BaseField* FindField(std::string_view id) const;
  /// The field that tells which one of its type the node is: the one that the schema names, else one with the id
  /// "Name", "Title", "Id" or "Label". Null if there is none with a text.
  BaseField* NamingField() const;
  /// How a list calls the node: its title, or while that is its type's, what the naming field says; with neither the
  /// type's.
  std::string DisplayName() const;
  /// Null before layout.
  NodePinControl* FindPinControl(const NodePinData& pin) const;
  /// Where connections end at one of this node's pins, in the coordinates of its panel: the middle of the pin's shape.
  /// The node's corner before layout, or if the pin is not shown.
  Toolkit::Point AnchorOf(const NodePinData& pin) const;
  /// Makes the controls of all pins, and of all fields that show, which still wait to be seen.
  void MakeControls();
  /// Shows or hides the fields of the body, as the compact view does.
  void ShowInFull(bool isFull);
  /// Whether all fields of the body show.
  bool IsShownInFull() const;

  void SetTitleColor(const Toolkit::Color& color);
  /// A negative index means none.
  void SetArrayIndex(int32_t index);
  /// The output pin in whose list this node's index stands: of several `Multiple` ones that it hangs on the last. Null
  /// if there is none.
  NodePinData* NumberingPin() const;
  /// Empties the lists of this node's own pins only: for when the whole document goes, where taking each connection
  /// out of its other end as well would cost a multiple of the nodes.
  void ForgetConnections();
  void ToggleUnusedOutputPins();

  // Pass-through nodes.
  /// Whether what is connected on either side is of one type. True for other nodes.
  bool ComputeLinkValidity() const;
  /// Gives all pins the record of what flows through the node; null means their own again.
  void TakeOverRecord(const NodePinBlueprint* record);

  // The names of nodes, for fields.
  std::string NodeName() const override { return nodeName; }
  void SetNodeName(std::string_view name) override { nodeName = name; }
  std::string FindUpstreamName() override;
  std::string NameForUser() const override;

  // The forms of the node in JSON. Writing adds members to `json`.
  virtual void Serialize(cJSON* json, NodeWriter& writer, NodeIdMember nodeId);
  /// Inside of its parent's object.
  virtual void SerializeChild(cJSON* json, NodeWriter& writer);
  virtual void SerializeWithId(cJSON* json, NodeWriter& writer, NodeLayout layout);
  /// The clipboard's form: the type without the UUID, and the title in any case.
  virtual void SerializeForCopy(cJSON* json, NodeWriter& writer, NodeLayout position);
  /// Children join the reader's graph, their connections its pending ones. `json` is not kept.
  virtual void Deserialize(const cJSON* json, NodeReader& reader);

  std::string nodeName;
  PinTable pins;
  FieldTable inputFields;
  FieldTable outputFields;
  FieldTable contentFields;
  /// The key in the parent's JSON object, below a map pin; else empty.
  std::string mapKey;
  /// The id of a pass-through node in the file's metadata; else empty.
  std::string linkId;
  /// The position in the JSON array that the node came from; -1 otherwise.
  int32_t importIndex = -1;
  /// The index shown in the title bar; -1 if there is none.
  int32_t arrayIndex = -1;

protected:
  struct WithoutDocument {};
  /// For a class with a document of its own, which its constructor loads.
  ContentNode(WithoutDocument, std::string typeId, const NodeBlueprint& blueprint);
  void InitializeComponent() override;
  void PrepareToRender(float detail) override;
  /// What may be hit is there to be hit, also where nobody sees it.
  Toolkit::UIElement* HitTest(Toolkit::Point point) override;
  /// From so far away that no text can be read: a solid box in the title's colour, so that the shape of a graph can.
  void RenderChildren(Toolkit::Painter& painter) override;
  void OnLayoutChanged(Toolkit::LayoutChange change) override;
  std::string_view TitleBoxName() const override { return "TitleTextBlock"; }
  /// Looks up the named parts of the document that this class works with; those that it doesn't have stay empty.
  void FindParts();

private:
  struct TitleObserver : Toolkit::PropertyObserver {
    explicit TitleObserver(ContentNode& node) : node(node) {}
    void OnObservedChange(Toolkit::Observable&, Toolkit::Symbol) override { node.RefreshNaming(); }
    ContentNode& node;
  };
  void RefreshNaming();
  bool HasTitleOfType() const;
  Toolkit::Object* ReflectedNamingField() const { return NamingField(); }
  Toolkit::ObservableCollectionBase* ReflectedInput() const { return input.Get(); }
  Toolkit::ObservableCollectionBase* ReflectedOutput() const { return output.Get(); }
  void ReadAnchors() const;
  void ReadAnchors(const Pins& pins, const Toolkit::ItemsControl* list) const;

  void Comment_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void CommentTextBox_KeyUp(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void CommentToggle_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void OutputPinsToggle_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);

  Toolkit::Ptr<Pins> input;
  Toolkit::Ptr<Pins> output;
  Toolkit::Ptr<FieldTextData> fieldCommentData;
  // Parts of the document, which this node owns as its content.
  Toolkit::StackPanel* nodeContent = nullptr;
  Toolkit::ItemsControl* outputPins = nullptr;
  Toolkit::ItemsControl* inputPins = nullptr;
  const NodeBlueprint* blueprint = nullptr;
  std::string typeId;
  std::string nodeId;
  /// The pins' anchors follow from a layout that has changed since they were read.
  mutable bool areAnchorsDue = true;
  NodeObserver* observer = nullptr;
  TitleObserver titleObserver{*this};
  /// Dynamic pins beyond the first.
  uint32_t dynamicPinCount = 0;
};

} // namespace Tesselor
