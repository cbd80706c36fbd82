#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Toolkit {

/// An immutable text whose copies share one block of memory. A carrier, the property bound to it and the undo step
/// that remembers it all hold the same bytes.
class SharedString {
public:
  SharedString() = default;
  SharedString(std::string_view text);
  SharedString(const std::string& text) : SharedString(std::string_view(text)) {}
  SharedString(const char* text) : SharedString(std::string_view(text ? text : "")) {}
  SharedString(const SharedString& other) : block(other.block) {
    if (block) ++block->references;
  }
  SharedString(SharedString&& other) noexcept : block(other.block) { other.block = nullptr; }
  SharedString& operator=(SharedString other) noexcept {
    std::swap(block, other.block);
    return *this;
  }
  ~SharedString() { Release(block); }

  std::string_view View() const { return block ? std::string_view(block->Text(), block->length) : std::string_view(); }
  /// Ends with a zero byte.
  const char* CString() const { return block ? block->Text() : ""; }
  std::string ToString() const { return std::string(View()); }
  size_t Length() const { return block ? block->length : 0; }
  bool IsEmpty() const { return !block; }
  operator std::string_view() const { return View(); }
  friend bool operator==(const SharedString& a, const SharedString& b) {
    return a.block == b.block || a.View() == b.View();
  }

private:
  friend class Value;
  struct Block {
    uint32_t references;
    uint32_t length;
    char* Text() { return reinterpret_cast<char*>(this + 1); }
  };
  static void Release(Block* block);
  Block* block = nullptr;
};

} // namespace Toolkit
