#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Toolkit {

enum class MessageBoxButton { OK = 0, OKCancel = 1 };
enum class MessageBoxImage { None = 0, Error = 16, Warning = 48 };
enum class MessageBoxResult { None = 0, OK = 1, Cancel = 2 };

/// A box with a text, a caption and buttons. `Show` returns at once; the answer comes to the callback, later or never.
/// Only the answer OK means that the user agreed.
class MessageBox {
public:
  using Callback = std::function<void(MessageBoxResult)>;
  /// Gets the index of the caption that was chosen; nothing if none was, as by Escape.
  using ChoiceCallback = std::function<void(std::optional<size_t>)>;

  struct Request {
    std::string text;
    std::string caption;
    MessageBoxButton buttons = MessageBoxButton::OK;
    MessageBoxImage image = MessageBoxImage::None;
    Callback callback;
    /// The captions of the buttons, from left to right, that take the place of `buttons`. Empty for an ordinary box.
    std::vector<std::string> choices = {};
    ChoiceCallback chosen = {};
    /// The index of the choice that Return means until another one gets the focus.
    size_t defaultChoice = 0;
  };
  /// Shows requests. The display installs one; tests install their own.
  using Presenter = std::function<void(Request)>;

  static void Show(std::string text, std::string caption, MessageBoxButton buttons = MessageBoxButton::OK,
                   MessageBoxImage image = MessageBoxImage::None, Callback callback = {});

  /// A box whose buttons are the question's own. Return means the default one unless another one has the focus.
  static void Ask(std::string text, std::string caption, std::vector<std::string> choices, ChoiceCallback chosen,
                  size_t defaultChoice = 0);

  /// Replaces the presenter and returns the former one. An empty presenter writes each box to the toolkit's log at
  /// level Warning (caption and text) and answers it with None or no choice, so nothing that needs a user's consent
  /// goes on.
  static Presenter SetPresenter(Presenter presenter);
  /// Somebody is there to be told and to answer.
  static bool HasPresenter();
};

} // namespace Toolkit
