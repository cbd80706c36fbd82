#pragma once

#include "toolkit/application/MessageBox.h"
#include "toolkit/base/Object.h"

#include <deque>
#include <memory>

namespace Toolkit {

struct MessageBoxAnswer;
class Popup;
class UIElement;
class Window;

/// Shows message boxes in a window while it exists. Requests that come while a box is shown wait for their turn; those
/// that are left when the presenter goes are never answered.
class MessageBoxPresenter {
public:
  /// The window owns the presenter.
  explicit MessageBoxPresenter(Window& window);
  ~MessageBoxPresenter();
  MessageBoxPresenter(const MessageBoxPresenter&) = delete;
  MessageBoxPresenter& operator=(const MessageBoxPresenter&) = delete;

private:
  void ShowNext();
  void Answer(const MessageBoxAnswer& answer);
  void TakeDown();

  Window& window;
  MessageBox::Presenter former;
  /// The first is the one that is shown.
  std::deque<MessageBox::Request> requests;
  Ptr<Popup> popup;
  WeakPtr<UIElement> formerFocus, formerScope;
  std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

} // namespace Toolkit
