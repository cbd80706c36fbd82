#pragma once

#include "nodes/FrameNode.h"

namespace Tesselor {

/// A free note on the canvas: a titled, resizable box with a text whose font size the user can change. Unlike a group
/// it takes no nodes along.
class CommentNode : public FrameNode {
  TOOLKIT_TYPE(CommentNode)
public:
  static inline const Toolkit::DependencyProperty* CursorTypeProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TitleInputVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* TitleTextVisibilityProperty = nullptr;
  static inline const Toolkit::DependencyProperty* WidthProperty = nullptr;
  static inline const Toolkit::DependencyProperty* HeightProperty = nullptr;
  static inline const Toolkit::DependencyProperty* BorderThicknessProperty = nullptr;
  static inline const Toolkit::DependencyProperty* CommentTextProperty = nullptr;
  static inline const Toolkit::DependencyProperty* CommentFontSizeProperty = nullptr;
  static inline const Toolkit::DependencyProperty* FontControlsVisibilityProperty = nullptr;
  /// Bubbling, with `GroupResizingEventArgs`.
  static const Toolkit::RoutedEvent CommentResizingEvent;

  CommentNode();

  std::string_view CommentText() const { return GetString(CommentTextProperty); }
  void SetCommentText(std::string_view text) { SetValue(CommentTextProperty, text); }
  float CommentFontSize() const { return Get<float>(CommentFontSizeProperty); }
  /// Sizes outside 8 to 128 are brought to the nearer bound.
  void SetCommentFontSize(float value);

  JsonPtr ToJson() const override;

private:
  static const Properties& FrameProperties();
  void InitializeComponent() override;
  void Comment_MouseMove(Toolkit::Object* sender, const Toolkit::MouseEventArgs& args);
  /// Beside the buttons the row belongs to the text.
  void FontControls_MouseDown(Toolkit::Object* sender, const Toolkit::MouseButtonEventArgs& args);
  void CommentTextBox_GotFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void CommentTextBox_LostFocus(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  /// By the user: an undo step.
  void ChangeFontSize(float step);
  void IncreaseFontSize_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void IncreaseFontSizeBig_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);
  void DecreaseFontSize_Click(Toolkit::Object* sender, const Toolkit::RoutedEventArgs& args);

  /// When the focus came.
  Toolkit::SharedString textBefore;
};

} // namespace Tesselor
