#pragma once

#include "nodes/BaseNode.h"
#include "nodes/ResizeEdge.h"
#include "platform/JsonFile.h"

#include <string>

namespace Toolkit {
class Border;
}

namespace Tesselor {

/// What groups and comments share: a titled, resizable frame that stands in the file's metadata. The classes differ
/// in their properties, their parts' names and their least height, which they hand over here.
class FrameNode : public BaseNode {
  TOOLKIT_TYPE(FrameNode)
public:
  /// The properties of a class, each of its own.
  struct Properties {
    const Toolkit::DependencyProperty* cursorType;
    const Toolkit::DependencyProperty* titleInputVisibility;
    const Toolkit::DependencyProperty* titleTextVisibility;
    const Toolkit::DependencyProperty* width;
    const Toolkit::DependencyProperty* height;
    const Toolkit::DependencyProperty* borderThickness;
  };
  struct Names {
    std::string_view border;
    std::string_view titleBox;
  };

  /// The frame's own size, which its border is bound to, in canvas units.
  float FrameWidth() const { return Get<float>(properties->width); }
  float FrameHeight() const { return Get<float>(properties->height); }
  /// Sizes below the class's minimum become the minimum.
  void SetResizeWidth(float value);
  void SetResizeHeight(float value);
  /// A larger frame lies further back, so that a small one within it stays reachable.
  void RefreshZIndex();

  /// The edge under the mouse.
  ResizeEdge HitTestEdge(const Toolkit::Border& border) const;
  /// Drags an edge or a corner of the frame that had `startBounds` by `moved`. A side that is moved beyond the minimum
  /// goes on moving the frame.
  void Resize(const Toolkit::Rect& startBounds, ResizeEdge edge, Toolkit::Point moved);
  /// Place, size and stacking order.
  void SetBounds(const Toolkit::Rect& bounds);
  /// Keeps the border's width on screen; called with the canvas's scale.
  virtual void SetZoom(float zoom);

  /// Shows the title's box instead of the title.
  void BeginTitleEdit() override;
  void EndTitleEdit();

  /// The frame's object for a file or the clipboard.
  virtual JsonPtr ToJson() const;

  /// The frame's own layout has no size: it is as large as what it holds, its resize border and big title included.
  Toolkit::Rect DrawnBounds() const override;
  void Node_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args) override;
  void Node_MouseUp(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args) override;

protected:
  FrameNode(const Properties& properties, const Names& names, const Toolkit::RoutedEvent& resizing, float minimumHeight)
      : properties(&properties), names(&names), resizing(&resizing), minimumHeight(minimumHeight) {}

  Toolkit::Size OwnSize() const override { return {FrameWidth(), FrameHeight()}; }
  std::string_view TitleBoxName() const override { return names->titleBox; }
  /// The edit ends when the key is released.
  void OnTitleReturn() override { endsAtReturn = true; }
  float FrameBorder() const { return Get<float>(properties->borderThickness); }
  void SetCursor(const char* name) { SetValue(properties->cursorType, name); }
  /// The frame itself if the event came from it, not from what it holds.
  const Toolkit::Border* SourceFrame(const Toolkit::RoutedEventArgs& args) const;

private:
  void TitleTextBox_KeyUp(Toolkit::Object* sender, const Toolkit::KeyEventArgs& args);
  void TitleTextBox_LostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  const Properties* properties;
  const Names* names;
  const Toolkit::RoutedEvent* resizing;
  float minimumHeight;
  /// The Return that pressed the button that made the frame does not end the first edit when it is released.
  bool endsAtReturn = false;
};

} // namespace Tesselor
