#pragma once

#include "nodes/NodeMouseEventArgs.h"
#include "toolkit/controls/UserControl.h"
#include "toolkit/visual/InputEvents.h"
#include "values/FieldTextData.h"

#include <cstdint>
#include <string_view>

namespace Toolkit {
class TextBox;
}

namespace Tesselor {

/// What stands on the canvas: content nodes, groups and comments. Owns the title and the selected state, and tells
/// with two routed events that it was pressed and released; what follows is the view's business. Where it stands is
/// the attached `Canvas.Left` and `Canvas.Top`.
class BaseNode : public Toolkit::UserControl {
  TOOLKIT_TYPE(BaseNode)
public:
  /// Written by the view only; a node never selects itself.
  static inline const Toolkit::DependencyProperty* IsSelectedProperty = nullptr;
  /// Bubbling; the arguments are of the classes of NodeMouseEventArgs.h.
  static const Toolkit::RoutedEvent NodeMouseDownEvent, NodeMouseUpEvent;

  FieldTextData* GetTitleData() const { return titleData.Get(); }
  std::string_view Title() const { return titleData->GetValue(); }
  void SetTitle(std::string_view title);

  /// The node's place among those of its document, which its graph gives it when it first joins and which stays when it
  /// leaves, so that it comes back to where it was. 0 before.
  uint64_t DocumentOrder() const { return documentOrder; }
  void SetDocumentOrder(uint64_t order) { documentOrder = order; }

  /// Where the node stands and how large it is, in the coordinates of its panel. Without a size before layout.
  Toolkit::Rect Bounds() const;
  Toolkit::Point Middle() const;

  /// Roughly how much memory the node takes with all that it shows. Walks all of that.
  size_t EstimateBytes() const;

  bool IsSelected() const { return Get<bool>(IsSelectedProperty); }
  void SetSelected(bool value) { SetValue(IsSelectedProperty, value); }

  /// Puts the focus into the title's box, with the whole title selected. A press elsewhere and Return end the edit;
  /// Escape gives the title back that it had.
  virtual void BeginTitleEdit();

  virtual void Node_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  virtual void Node_MouseUp(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);

protected:
  BaseNode();
  /// The node's own size, whatever else its document draws around it.
  virtual Toolkit::Size OwnSize() const { return RenderSize(); }
  /// The name of the box in the class's document in which the title is edited.
  virtual std::string_view TitleBoxName() const = 0;
  /// Null in a document without one.
  Toolkit::TextBox* TitleBox() const;
  /// Hands the focus on from the title's box, if it has it, to what lies around the node.
  void LeaveTitle();
  /// Return went down in the title's box.
  virtual void OnTitleReturn() { LeaveTitle(); }

private:
  void Header_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void TitleTextBox_KeyDown(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void TitleTextBox_GotFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  /// Loads the class's document; called once, from the constructor.
  virtual void InitializeComponent() = 0;

  Toolkit::Ptr<FieldTextData> titleData;
  /// When its box last got the focus.
  Toolkit::SharedString titleBefore;
  uint64_t documentOrder = 0;
};

} // namespace Tesselor
