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

  /// Appends `text`, which may be empty. It must not be part of the builder itself.
  void AddToString(View text) {
    if (text.size() <= Room()) {
      end_ = Copied(end_, text);
    } else {
      AddBeyondBlock(text);
    }
  }

  /// Appends texts and literals one after the other: as AddToString for each, with one check of the
  /// room for all of them.
  template <typename... Pieces>
  void AddPieces(const Pieces&... pieces) {
    if ((AsView(pieces).size() + ...) <= Room()) {
      Character* to = end_;
      ((to = Copied(to, AsView(pieces))), ...);
      end_ = to;
    } else {
      (AddToString(AsView(pieces)), ...);
    }
  }

  /// Extends an empty buffer at once by as many steps as so many characters take. A text that stays
  /// within them is in one block, and TakeString returns that block instead of a copy.
  ///
  /// More than kStepsOnTrust steps are taken only when a kProofParts-th of what is expected has
  /// been gathered, which is moved once then: a text that turns out short does not fill what a long
  /// one would.
  void Expect(std::size_t characters) {
    if (!blocks_.empty() || characters > kMostCharacters) return;
    const std::size_t steps = (characters + kStepCharacters - 1) / kStepCharacters;
    if (steps > kStepsOnTrust) {
      unproved_ = steps * kStepCharacters;
    } else {
      TakeExpected(steps * kStepCharacters);
    }
  }
  static constexpr std::size_t kStepsOnTrust = 16;
  static constexpr std::size_t kProofParts = 32;

  /// The text gathered so far. Cuts the buffer down to its used part, so that the next append
  /// extends it again and continues after this text.
  String ReturnString() {
    String text = Joined();
    Adopt(text);
    return text;
  }

  /// As ReturnString, and leaves the builder empty: for the last call, it saves one copy.
  String TakeString() {
    String text = LiesInExpected() ? Cut(std::move(expected_)) : Joined();
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
    Character* characters;
    std::size_t size;
    std::unique_ptr<Character[]> own;  // none for the block that was expected
  };
  static constexpr std::size_t kMostCharacters =
      static_cast<std::size_t>(kMostBytes) / sizeof(Character);

  static View AsView(View text) { return text; }
  template <std::size_t kSize>
  static View AsView(const Character (&literal)[kSize]) {
    return {literal, kSize - 1};
  }

  std::size_t Room() const { return static_cast<std::size_t>(limit_ - end_); }
  std::size_t Used() const { return static_cast<std::size_t>(end_ - begin_); }
  std::size_t UsedCharacters() const { return before_ + Used(); }

  static Character* Copied(Character* to, View text) {
    if (!text.empty()) std::memcpy(to, text.data(), text.size() * sizeof(Character));
    return to + text.size();
  }

  bool LiesInExpected() const { return !expected_.empty() && current_ == 0; }
  String Cut(String text) const {
    text.resize(UsedCharacters());
    return text;
  }

  /// Adds a block to the chain, its characters not initialised: nobody reads beyond the used part.
  void AddBlock(std::size_t size) {
    std::unique_ptr<Character[]> own(new Character[size]);
    Character* const characters = own.get();
    blocks_.push_back({characters, size, std::move(own)});
    capacity_ += size;
  }

  void AddBeyondBlock(View text) {
    Extend(text.size());
    while (!text.empty()) {
      if (Room() == 0) Open(current_ + 1);
      const View part = text.substr(0, Room());
      end_ = Copied(end_, part);
      text.remove_prefix(part.size());
    }
  }

  /// Makes one block of so many characters, with the text gathered so far at its beginning.
  void TakeExpected(std::size_t characters) {
    const std::size_t used = UsedCharacters();
    String text;
    text.reserve(characters);
    AppendTo(text);
    text.resize(characters);
    *this = BasicAppendString();
    expected_ = std::move(text);
    blocks_.push_back({expected_.data(), expected_.size(), nullptr});
    capacity_ = expected_.size();
    Open(0);
    end_ += used;
  }

  /// Makes the capacity suffice for so many more characters.
  void Extend(std::size_t more) {
    if (more > kMostCharacters - UsedCharacters()) throw RuntimeError(Fault::Overflow);
    if (unproved_ > 0 && UsedCharacters() >= unproved_ / kProofParts) TakeExpected(unproved_);
    while (UsedCharacters() + more > capacity_) {
      AddBlock(kStepCharacters);
      if (blocks_.size() == 1) Open(0);
    }
  }

  void Open(std::size_t block) {
    before_ += Used();
    current_ = block;
    begin_ = end_ = blocks_[block].characters;
    limit_ = begin_ + std::min(blocks_[block].size, kMostCharacters - before_);
  }

  String Joined() const {
    String text;
    text.reserve(UsedCharacters());
    AppendTo(text);
    return text;
  }

  void AppendTo(String& text) const {
    for (std::size_t i = 0; i < current_; ++i) {
      text.append(blocks_[i].characters, blocks_[i].size);
    }
    if (!blocks_.empty()) text.append(begin_, Used());
  }

  /// Becomes a single full block that holds `text`.
  void Adopt(const String& text) {
    BasicAppendString cut;
    if (!text.empty()) {
      cut.AddBlock(text.size());
      cut.Open(0);
      cut.end_ = Copied(cut.end_, text);
    }
    *this = std::move(cut);
  }

  String expected_;           // the first block, when there was something to expect
  std::size_t unproved_ = 0;  // characters that are expected when the text proves long
  std::vector<Block> blocks_;
  std::size_t capacity_ = 0;    // characters in all blocks
  std::size_t current_ = 0;     // the block being filled; those before it are full
  std::size_t before_ = 0;      // characters in the full blocks
  Character* begin_ = nullptr;  // of the current block
  Character* end_ = nullptr;    // where the next character goes
  Character* limit_ = nullptr;  // after the last character that the block takes
};

/// The builder for the program's own 8-bit text.
using AppendString = BasicAppendString<char>;

}  // namespace tarvo
