#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/runtime_error.h"

namespace tarvo {

/// Gathers a long text from many small pieces without copying the whole text at every append.
///
/// The buffer grows by steps of kStepCharacters characters, never by doubling, and as many steps at
/// once as a piece needs. Growing does not move what is already there: the buffer is a chain of
/// blocks, so gathering N characters costs time in proportion to N, whatever N is.
///
/// Lengths are counted in bytes, sizeof(Character) for a character, in 32 signed bits: a text that
/// would pass kMostBytes, 2,147,483,647 bytes, raises RuntimeError "Overflow" and leaves the
/// builder as it was.
template <typename Character, std::int32_t kMostBytes = std::numeric_limits<std::int32_t>::max()>
class BasicAppendString {
 public:
  using View = std::basic_string_view<Character>;
  using String = std::basic_string<Character>;

  static constexpr std::size_t kStepCharacters = 196608;

  /// Appends `text`, which may be empty. It must not lie in the builder itself.
  void AddToString(View text) {
    if (text.size() <= room_) {
      Put(text);
    } else {
      AddBeyondBlock(text);
    }
  }

  /// The text gathered so far. Cuts the buffer down to its used part, so that the next append
  /// extends it again and goes on behind this text.
  String ReturnString() {
    String text = Joined();
    Adopt(text);
    return text;
  }

  /// As ReturnString, and leaves the builder empty: for the last call, it saves one copy.
  String TakeString() {
    String text = Joined();
    *this = BasicAppendString();
    return text;
  }

  /// Bytes of the text gathered so far.
  std::int32_t UsedBytes() const {
    return static_cast<std::int32_t>((UsedCharacters()) * sizeof(Character));
  }
  /// Bytes that the buffer can hold before it is extended.
  std::int64_t CapacityBytes() const {
    return static_cast<std::int64_t>(capacity_ * sizeof(Character));
  }

 private:
  struct Block {
    std::unique_ptr<Character[]> characters;
    std::size_t size;
  };
  static constexpr std::size_t kMostCharacters =
      static_cast<std::size_t>(kMostBytes) / sizeof(Character);

  std::size_t UsedCharacters() const { return before_ + used_; }

  void Put(View text) {
    if (text.empty()) return;
    std::memcpy(end_, text.data(), text.size() * sizeof(Character));
    end_ += text.size();
    used_ += text.size();
    room_ -= text.size();
  }

  void AddBeyondBlock(View text) {
    Extend(text.size());
    while (!text.empty()) {
      if (room_ == 0) Open(current_ + 1);
      const View part = text.substr(0, room_);
      Put(part);
      text.remove_prefix(part.size());
    }
  }

  /// Makes the capacity suffice for so many more characters.
  void Extend(std::size_t more) {
    if (more > kMostCharacters - UsedCharacters()) throw RuntimeError(Fault::Overflow);
    while (UsedCharacters() + more > capacity_) {
      // Not value-initialised: nobody reads the filler behind the used part.
      blocks_.push_back(
          {std::unique_ptr<Character[]>(new Character[kStepCharacters]), kStepCharacters});
      capacity_ += kStepCharacters;
      if (blocks_.size() == 1) Open(0);
    }
  }

  void Open(std::size_t block) {
    before_ += used_;
    current_ = block;
    used_ = 0;
    end_ = blocks_[block].characters.get();
    room_ = std::min(blocks_[block].size, kMostCharacters - before_);
  }

  String Joined() const {
    String text;
    text.reserve(UsedCharacters());
    for (std::size_t i = 0; i < current_; ++i)
      text.append(blocks_[i].characters.get(), blocks_[i].size);
    if (!blocks_.empty()) text.append(blocks_[current_].characters.get(), used_);
    return text;
  }

  /// Becomes a single full block that holds `text`.
  void Adopt(const String& text) {
    BasicAppendString cut;
    if (!text.empty()) {
      cut.blocks_.push_back(
          {std::unique_ptr<Character[]>(new Character[text.size()]), text.size()});
      cut.capacity_ = text.size();
      cut.Open(0);
      cut.Put(text);
    }
    *this = std::move(cut);
  }

  std::vector<Block> blocks_;
  std::size_t capacity_ = 0;  // characters in all blocks
  std::size_t current_ = 0;   // the block being filled; those before it are full
  std::size_t before_ = 0;    // characters in the full blocks
  std::size_t used_ = 0;      // characters in the current block
  std::size_t room_ = 0;      // characters that still go into the current block
  Character* end_ = nullptr;  // where the next character goes
};

/// The builder for the program's own 8-bit text, and the one for UTF-16.
using AppendString = BasicAppendString<char>;
using WideAppendString = BasicAppendString<char16_t>;

}  // namespace tarvo
