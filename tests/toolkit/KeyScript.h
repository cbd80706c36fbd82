#pragma once

#include "Stage.h"

#include <map>
#include <sstream>
#include <string>

namespace Toolkit {

inline Key LetterKey(int index) { return static_cast<Key>(static_cast<int>(Key::A) + index); }

/// Plays words: keys by name, chords as "Ctrl+Shift+Left"; 'a_b' types its letters, with "_" for a blank, each as a key
/// and a text, as a display sends it; "wait" lets a while pass. True if the last key or text was taken.
inline bool RunKeys(TestSupport::Stage& stage, const std::string& script) {
  static const std::map<std::string, Key> keys{
      {"Ctrl", Key::LeftCtrl}, {"Shift", Key::LeftShift},   {"Left", Key::Left},     {"Right", Key::Right},
      {"Up", Key::Up},         {"Down", Key::Down},         {"Home", Key::Home},     {"End", Key::End},
      {"PageUp", Key::PageUp}, {"PageDown", Key::PageDown}, {"Back", Key::Back},     {"Delete", Key::Delete},
      {"Insert", Key::Insert}, {"Return", Key::Return},     {"Escape", Key::Escape}, {"Space", Key::Space},
      {"Tab", Key::Tab},       {"F10", Key::F10},           {"Apps", Key::Apps}};
  std::istringstream words(script);
  bool taken = false;
  for (std::string word; words >> word;) {
    if (word == "wait") {
      stage.Wait(1500);
    } else if (word.starts_with('\'')) {
      const std::string text = word.substr(1, word.find('\'', 1) - 1);
      // A byte of a longer character is no letter of its own.
      for (size_t i = 0, end; i < text.size(); i = end) {
        for (end = i + 1; end < text.size() && (text[end] & 0xc0) == 0x80;) ++end;
        const bool isBlank = text[i] == '_', isLetter = text[i] >= 'a' && text[i] <= 'z';
        stage.Press(isBlank ? Key::Space : isLetter ? LetterKey(text[i] - 'a') : Key::None);
        taken = stage.Type(isBlank ? " " : text.substr(i, end - i));
      }
    } else {
      std::istringstream names(word);
      std::vector<Key> chord;
      for (std::string name; std::getline(names, name, '+');)
        chord.push_back(name.size() == 1 ? LetterKey(name[0] - 'A') : keys.at(name));
      taken = stage.Chord(chord);
    }
  }
  return taken;
}

} // namespace Toolkit
