#pragma once

#include "toolkit/application/MessageBox.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace TestSupport {

/// Takes the place of the screen for message boxes: keeps every request and answers it at once with `answer`, or with
/// `choice` if it has buttons of its own.
class CapturedBoxes {
public:
  explicit CapturedBoxes(Toolkit::MessageBoxResult answer = Toolkit::MessageBoxResult::OK) : answer(answer) {
    former = Toolkit::MessageBox::SetPresenter([this](Toolkit::MessageBox::Request request) {
      const auto callback = request.callback;
      const auto chosen = request.chosen;
      boxes.push_back(std::move(request));
      if (callback) callback(this->answer);
      if (chosen) chosen(choice);
    });
  }
  ~CapturedBoxes() { Toolkit::MessageBox::SetPresenter(std::move(former)); }
  CapturedBoxes(const CapturedBoxes&) = delete;
  CapturedBoxes& operator=(const CapturedBoxes&) = delete;

  /// "<caption>: <text>" of each box, in order.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const auto& box : boxes) texts.push_back(box.caption + ": " + box.text);
    return texts;
  }

  Toolkit::MessageBoxResult answer;
  std::optional<size_t> choice;
  std::vector<Toolkit::MessageBox::Request> boxes;

private:
  Toolkit::MessageBox::Presenter former;
};

} // namespace TestSupport
