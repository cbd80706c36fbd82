#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace Toolkit {

/// An interned name: equal texts give equal symbols, so that comparing costs one pointer. Symbols live as long as the
/// process; only names of code and documents are interned, never user data.
class Symbol {
public:
  Symbol() = default;
  explicit Symbol(std::string_view text);
  const std::string& Text() const;
  bool IsEmpty() const { return text == nullptr; }
  friend bool operator==(Symbol a, Symbol b) = default;
  friend bool operator<(Symbol a, Symbol b) { return std::less<>()(a.text, b.text); }
  size_t Hash() const { return std::hash<const void*>()(text); }

private:
  const std::string* text = nullptr;
};

} // namespace Toolkit

template <> struct std::hash<Toolkit::Symbol> {
  size_t operator()(Toolkit::Symbol symbol) const { return symbol.Hash(); }
};
