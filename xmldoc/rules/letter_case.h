#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace tarvo {

/// The letters of a code page: the other case of each byte. A to Z are those of a to z in all.
struct Letters {
  std::array<unsigned char, 256> upper;
  std::array<unsigned char, 256> lower;
  /// Where a character may have several bytes: asked for all texts with other than ASCII bytes.
  CodePage* severalBytes = nullptr;
};

/// While it exists, the library compares by the letters of this code page, which has to outlive it;
/// without one by A to Z alone. It applies to the whole program, as the system has one such code
/// page; of several, the one made last applies. To be made before there are texts in order: a
/// sorted list is not sorted again.
class LettersInUse {
 public:
  explicit LettersInUse(CodePage& codePage);
  ~LettersInUse();
  LettersInUse(const LettersInUse&) = delete;
  LettersInUse& operator=(const LettersInUse&) = delete;

 private:
  static void Use(LettersInUse* top);

  Letters letters_;
  LettersInUse* below_;
};

/// The text in lower or upper case; a code page may change its length.
std::string LowerCased(std::string_view text);
std::string UpperCased(std::string_view text);

/// Whether the two are the same in upper case. Texts of different lengths never are.
bool EqualIgnoringCase(std::string_view a, std::string_view b);
/// Whether `a` comes before `b` when both are in lower case; bytes compare as unsigned numbers.
bool LessIgnoringCase(std::string_view a, std::string_view b);

/// The text in lower case but for some characters: `isCapital(lowerText, position)` is asked for
/// each one, in order.
template <typename IsCapital>
std::string LowerCasedBut(std::string_view text, IsCapital isCapital);

/// Bytes of the character that begins at `position`: 1 or 2, never beyond the end of the text. 0
/// for a byte that has no case by itself.
std::size_t CasedLength(std::string_view text, std::size_t position);
/// The same, but 1 for such a byte, and for one before a byte that is no second one in any code
/// page of Windows (below 40 hexadecimal).
inline std::size_t CharacterLength(std::string_view text, std::size_t position) {
  const bool isPair = CasedLength(text, position) == 2;
  return isPair && static_cast<unsigned char>(text[position + 1]) >= 0x40 ? 2 : 1;
}

/// The first place from that character on where `wanted` begins, npos when there is none. What
/// begins in the middle of a character, whose second byte may look like a letter or a sign, is
/// none.
std::size_t FindText(std::string_view text, std::string_view wanted, std::size_t from = 0);

template <typename IsCapital>
std::string LowerCasedBut(std::string_view text, IsCapital isCapital) {
  std::string cased = LowerCased(text);
  const std::string upper = UpperCased(text);
  for (std::size_t i = 0; i < cased.size() && i < upper.size();) {
    const std::size_t length = CasedLength(cased, i);
    if (isCapital(cased, i)) cased.replace(i, length, upper, i, length);
    i += std::max<std::size_t>(length, 1);
  }
  return cased;
}

}  // namespace tarvo
