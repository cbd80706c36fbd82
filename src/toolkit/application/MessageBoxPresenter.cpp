#include "toolkit/application/MessageBoxPresenter.h"

#include "toolkit/application/MessageBoxView.h"
#include "toolkit/application/Window.h"
#include "toolkit/controls/Popup.h"
#include "toolkit/controls/PopupLayer.h"
#include "toolkit/visual/Input.h"

#include <utility>

namespace Toolkit {

MessageBoxPresenter::MessageBoxPresenter(Window& window)
    : window(window), former(MessageBox::SetPresenter([this](MessageBox::Request request) {
        requests.push_back(std::move(request));
        if (requests.size() == 1) ShowNext();
      })) {}

MessageBoxPresenter::~MessageBoxPresenter() {
  *alive = false;
  MessageBox::SetPresenter(std::move(former));
  TakeDown();
}

void MessageBoxPresenter::ShowNext() {
  const MessageBox::Request& request = requests.front();
  auto view = MakePtr<MessageBoxView>(request, [this](const MessageBoxAnswer& answer) { Answer(answer); });
  popup = MakePtr<Popup>(window, *view, PopupKind::Modal, PopupPlacement::Cover);
  popup->takesText = false;
  popup->keyPressed = [shown = view.Get()](const KeyEventArgs& args) { return shown->OnKey(args); };
  InputState* input = InputState::Current();
  if (input) {
    formerFocus = WeakPtr<UIElement>(input->Focused());
    formerScope = WeakPtr<UIElement>(input->TabScope());
    // A drag that goes on would keep the mouse from the box.
    input->Capture(nullptr);
  }
  window.Popups().Open(*popup);
  view->FocusDefault();
  if (input) input->SetTabScope(popup.Get());
}

void MessageBoxPresenter::TakeDown() {
  const Ptr<Popup> shown = std::exchange(popup, nullptr);
  if (!shown) return;
  shown->Close();
  InputState* input = InputState::Current();
  if (!input) return;
  input->SetTabScope(formerScope.Get());
  input->SetFocus(formerFocus.Get());
}

void MessageBoxPresenter::Answer(const MessageBoxAnswer& answer) {
  if (!popup) return;
  Ptr<Window> keepsWindow(&window);
  const std::shared_ptr<bool> isAlive = alive;
  const MessageBoxAnswer given = answer;
  TakeDown();
  // The request stays the first until its callback is done, so that a box it asks for comes after those that wait.
  const MessageBox::Callback callback = std::move(requests.front().callback);
  const MessageBox::ChoiceCallback chosen = std::move(requests.front().chosen);
  if (callback) callback(given.result);
  if (chosen) chosen(given.choice);
  if (!*isAlive) return;
  requests.pop_front();
  if (!requests.empty()) ShowNext();
}

} // namespace Toolkit
