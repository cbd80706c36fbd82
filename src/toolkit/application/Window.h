#pragma once

#include "toolkit/controls/ContentControl.h"

#include <memory>

namespace Toolkit {

class MessageBoxPresenter;
class PopupLayer;

/// The root of a visual tree that a display shows. The launcher's loop ends when its window is closed. Above its
/// content lies the layer of its popups.
class Window : public ContentControl {
  TOOLKIT_TYPE(Window)
public:
  static inline const DependencyProperty* TitleProperty = nullptr;

  Window();
  ~Window() override;
  std::string_view GetTitle() const { return GetString(TitleProperty); }
  void SetTitle(std::string_view title) { SetValue(TitleProperty, title); }
  /// Ends the window; the display takes it down in its next turn.
  void Close() { closed = true; }
  /// The user wants to close the window. One that has something to ask first closes itself later, or never.
  virtual void RequestClose() { Close(); }
  bool IsClosed() const { return closed; }
  /// Lays the window out in `size`; called by the display when it opens and when its size changes.
  void SetClientSize(Size size);
  PopupLayer& Popups() const { return *popups; }
  /// From now on message boxes are shown in this window, one after the other, until it leaves the display. For windows
  /// that a user sees.
  void PresentMessageBoxes();

  size_t VisualChildCount() const override { return ContentControl::VisualChildCount() + 1; }
  UIElement* VisualChild(size_t index) const override;

protected:
  Size MeasureOverride(Size available) override;
  Size ArrangeOverride(Size finalSize) override;
  void OnRoutedEvent(const RoutedEventArgs& args) override;
  void OnDetached() override;
  /// A user sees the window from now on.
  virtual void OnPresented() {}

private:
  Ptr<PopupLayer> popups;
  std::unique_ptr<MessageBoxPresenter> messageBoxes;
  bool closed = false;
};

} // namespace Toolkit
