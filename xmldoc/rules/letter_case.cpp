#include "xmldoc/rules/letter_case.h"

#include <algorithm>

namespace tarvo {
namespace {

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }
bool IsAscii(char c) { return Byte(c) < 128; }

constexpr Letters OnlyAToZ() {
  Letters letters{};
  for (unsigned i = 0; i < 256; ++i) {
    letters.upper[i] = letters.lower[i] = static_cast<unsigned char>(i);
  }
  for (unsigned char c = 'A'; c <= 'Z'; ++c) {
    const auto small = static_cast<unsigned char>(c - 'A' + 'a');
    letters.upper[small] = c;
    letters.lower[c] = small;
  }
  return letters;
}

constexpr Letters kOnlyAToZ = OnlyAToZ();
LettersInUse* top = nullptr;
const Letters* letters = &kOnlyAToZ;

Letters LettersOf(CodePage& codePage) {
  Letters all = kOnlyAToZ;
  if (!codePage.HasOneByteCharacters()) {
    all.severalBytes = &codePage;
    return all;
  }
  for (unsigned i = 128; i < 256; ++i) {
    const std::string one(1, static_cast<char>(i));
    all.upper[i] = Byte(codePage.Raised(one).front());
    all.lower[i] = Byte(codePage.Lowered(one).front());
  }
  return all;
}

bool NeedsCodePage(std::string_view text) {
  return letters->severalBytes != nullptr && !std::all_of(text.begin(), text.end(), IsAscii);
}

std::string Mapped(std::string_view text, const std::array<unsigned char, 256>& map) {
  std::string mapped(text);
  for (char& c : mapped) c = static_cast<char>(map[Byte(c)]);
  return mapped;
}

/// A name differs from another one mostly in its ASCII letters: the code page is asked only for
/// what comes after them.
bool EqualByCodePage(std::string_view a, std::string_view b) {
  std::size_t i = 0;
  for (; i < a.size() && IsAscii(a[i]) && IsAscii(b[i]); ++i) {
    if (letters->upper[Byte(a[i])] != letters->upper[Byte(b[i])]) return false;
  }
  a.remove_prefix(i);
  b.remove_prefix(i);
  return a == b || UpperCased(a) == UpperCased(b);
}

}  // namespace

LettersInUse::LettersInUse(CodePage& codePage) : letters_(LettersOf(codePage)), below_(top) {
  Use(this);
}

LettersInUse::~LettersInUse() {
  if (top == this) {
    Use(below_);
    return;
  }
  LettersInUse* above = top;
  while (above->below_ != this) above = above->below_;
  above->below_ = below_;
}

void LettersInUse::Use(LettersInUse* newTop) {
  top = newTop;
  letters = newTop == nullptr ? &kOnlyAToZ : &newTop->letters_;
}

std::string LowerCased(std::string_view text) {
  if (NeedsCodePage(text)) return letters->severalBytes->Lowered(std::string(text));
  return Mapped(text, letters->lower);
}

std::string UpperCased(std::string_view text) {
  if (NeedsCodePage(text)) return letters->severalBytes->Raised(std::string(text));
  return Mapped(text, letters->upper);
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  if (letters->severalBytes != nullptr) return EqualByCodePage(a, b);
  const auto& upper = letters->upper;
  return std::equal(a.begin(), a.end(), b.begin(),
                    [&upper](char x, char y) { return upper[Byte(x)] == upper[Byte(y)]; });
}

bool LessIgnoringCase(std::string_view a, std::string_view b) {
  if (NeedsCodePage(a) || NeedsCodePage(b)) return LowerCased(a) < LowerCased(b);
  const auto& lower = letters->lower;
  return std::lexicographical_compare(
      a.begin(), a.end(), b.begin(), b.end(),
      [&lower](char x, char y) { return lower[Byte(x)] < lower[Byte(y)]; });
}

std::size_t CasedLength(std::string_view text, std::size_t position) {
  const char c = text[position];
  if (letters->severalBytes == nullptr || IsAscii(c)) return 1;
  const bool isPair = letters->severalBytes->IsLeadByte(Byte(c)) && position + 1 < text.size();
  return isPair ? 2 : 0;
}

std::size_t FindText(std::string_view text, std::string_view wanted, std::size_t from) {
  if (letters->severalBytes == nullptr) return text.find(wanted, from);
  for (; from + wanted.size() <= text.size(); from += CharacterLength(text, from)) {
    if (text.substr(from).starts_with(wanted)) return from;
  }
  return std::string_view::npos;
}

}  // namespace tarvo
