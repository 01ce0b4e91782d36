#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarvo {

/// The text of a node, in 16 bytes: up to 12 characters themselves, or where more of them are,
/// which is in the node's own block of memory, as an import puts them, or on the heap, once they
/// have been set. Up to 4,294,967,295 bytes.
class CompactText {
 public:
  CompactText() = default;
  ~CompactText() { FreeOwned(); }
  CompactText(const CompactText&) = delete;
  CompactText& operator=(const CompactText&) = delete;

  /// Valid until the text changes.
  std::string_view View() const {
    return {near_.size <= kMostNear ? near_.characters : far_.characters, near_.size};
  }
  bool Empty() const { return near_.size == 0; }

  /// Keeps a copy of `text`, which may be a part of this one. Raises std::length_error or
  /// std::bad_alloc, and is as before then.
  void Assign(std::string_view text);

  /// Bytes that Put takes of the memory that it is given.
  static std::size_t BytesOutside(std::string_view text) {
    return text.size() <= kMostNear ? 0 : text.size();
  }
  /// Keeps a copy of `text`, which is no part of this one and not too long, and frees nothing. What
  /// it takes of `memory`, which it moves on, has to live at least as long as this object.
  void Put(std::string_view text, char*& memory) {
    const auto size = static_cast<std::uint32_t>(text.size());
    if (size <= kMostNear) return PutNear(text);
    std::memcpy(memory, text.data(), size);
    far_ = {size, 0, memory};
    memory += size;
  }

 private:
  struct Near {
    std::uint32_t size;
    char characters[12];
  };
  static constexpr std::size_t kMostNear = sizeof(Near::characters);
  struct Far {
    std::uint32_t size;  // more than kMostNear
    std::uint32_t owned;
    const char* characters;
  };

  /// By pieces of one length, which are single instructions and may overlap.
  void PutNear(std::string_view text) {
    const std::size_t size = text.size();
    near_ = {static_cast<std::uint32_t>(size), {}};
    if (size >= 4) {
      std::memcpy(near_.characters, text.data(), 4);
      if (size > 8) std::memcpy(near_.characters + 4, text.data() + 4, 4);
      std::memcpy(near_.characters + size - 4, text.data() + size - 4, 4);
    } else {
      for (std::size_t i = 0; i < size; ++i) near_.characters[i] = text[i];
    }
  }
  void FreeOwned() {
    if (near_.size > kMostNear && far_.owned != 0) delete[] far_.characters;
  }

  union {
    Near near_{};
    Far far_;
  };
};

}  // namespace tarvo
