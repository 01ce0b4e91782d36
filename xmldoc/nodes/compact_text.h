#pragma once

#include <cstdint>
#include <string_view>

namespace tarvo {

/// The text of a node: 16 bytes, and the characters either in the node's own block of memory, as an
/// import puts them, or on the heap, once they have been set. Up to 4,294,967,295 bytes.
class CompactText {
 public:
  CompactText() = default;
  ~CompactText() { FreeOwned(); }
  CompactText(const CompactText&) = delete;
  CompactText& operator=(const CompactText&) = delete;

  std::string_view View() const { return {characters_, size_}; }
  bool Empty() const { return size_ == 0; }

  /// Keeps a copy of `text`, which may be a part of this one. Raises std::length_error or
  /// std::bad_alloc, and is as before then.
  void Assign(std::string_view text);
  /// Shows characters that live at least as long as this object and belong to somebody else.
  void Show(const char* characters, std::uint32_t size) {
    FreeOwned();
    characters_ = characters;
    size_ = size;
  }

 private:
  void FreeOwned() {
    if (owned_ != 0) FreeCharacters();
  }
  void FreeCharacters();

  const char* characters_ = nullptr;
  std::uint32_t size_ = 0;
  std::uint32_t owned_ = 0;
};

}  // namespace tarvo
