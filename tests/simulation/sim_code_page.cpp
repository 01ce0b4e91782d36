#include "tests/simulation/sim_code_page.h"

#include <iconv.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarvo {
namespace {

constexpr std::string_view kNoCharacter = "\xEF\xBF\xBD";

/// Capitals that follow each other, and how far behind each its small letter is.
struct Capitals {
  int codePage;
  unsigned first;
  unsigned last;
  unsigned distance;
};

constexpr Capitals kCapitals[] = {
    {1252, 0x8A, 0x8A, 0x10},    {1252, 0x8C, 0x8C, 0x10},    {1252, 0x8E, 0x8E, 0x10},
    {1252, 0x9F, 0x9F, 0x60},    {1252, 0xC0, 0xD6, 0x20},    {1252, 0xD8, 0xDE, 0x20},
    {1251, 0x80, 0x80, 0x10},    {1251, 0x81, 0x81, 0x02},    {1251, 0x8A, 0x8A, 0x10},
    {1251, 0x8C, 0x8F, 0x10},    {1251, 0xA1, 0xA1, 0x01},    {1251, 0xA3, 0xA3, 0x19},
    {1251, 0xA5, 0xA5, 0x0F},    {1251, 0xA8, 0xA8, 0x10},    {1251, 0xAA, 0xAA, 0x10},
    {1251, 0xAF, 0xAF, 0x10},    {1251, 0xB2, 0xB2, 0x01},    {1251, 0xBD, 0xBD, 0x01},
    {1251, 0xC0, 0xDF, 0x20},    {932, 0x8260, 0x8279, 0x21}, {932, 0x839F, 0x83B6, 0x20},
    {932, 0x8440, 0x844E, 0x30}, {932, 0x844F, 0x8460, 0x31}, {936, 0xA3C1, 0xA3DA, 0x20},
    {936, 0xA6A1, 0xA6B8, 0x20}, {936, 0xA7A1, 0xA7C1, 0x30}, {949, 0xA3C1, 0xA3DA, 0x20},
    {949, 0xA5C1, 0xA5D8, 0x20}, {949, 0xACA1, 0xACC1, 0x30}, {950, 0xA2CF, 0xA2E4, 0x1A},
    {950, 0xA2E5, 0xA2E8, 0x5B}, {950, 0xA344, 0xA35B, 0x18}};

}  // namespace

bool SimCodePage::IsLeadByte(unsigned char byte) {
  if (number_ == 932) return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return number_ < 1000 && byte >= 0x81 && byte <= 0xFE;
}

std::string SimCodePage::Lowered(std::string text) {
  return Changed(std::move(text), &SimCodePage::LoweredCharacter);
}

std::string SimCodePage::Raised(std::string text) {
  return Changed(std::move(text), &SimCodePage::RaisedCharacter);
}

std::string SimCodePage::ToUtf8(std::string_view text) {
  const iconv_t conversion = iconv_open("UTF-8", ("CP" + std::to_string(number_)).c_str());
  if (conversion == reinterpret_cast<iconv_t>(-1)) throw std::logic_error("no such code page");
  std::string from(text);
  std::string to(text.size() * 3, '\0');
  char* in = from.data();
  char* out = to.data();
  std::size_t left = from.size();
  std::size_t room = to.size();
  while (left > 0 && iconv(conversion, &in, &left, &out, &room) == static_cast<std::size_t>(-1)) {
    out = std::copy_n(kNoCharacter.data(), kNoCharacter.size(), out);
    room -= kNoCharacter.size();
    ++in;
    --left;
  }
  iconv_close(conversion);
  to.resize(to.size() - room);
  return to;
}

std::string SimCodePage::Changed(std::string text, Change change) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (!IsLeadByte(byte) || i + 1 == text.size()) {
      text[i] = static_cast<char>((this->*change)(byte));
      continue;
    }
    const unsigned pair = (this->*change)(byte * 0x100U + static_cast<unsigned char>(text[i + 1]));
    text[i] = static_cast<char>(pair / 0x100);
    text[++i] = static_cast<char>(pair % 0x100);
  }
  return text;
}

unsigned SimCodePage::LoweredCharacter(unsigned character) const {
  if (character >= 'A' && character <= 'Z') return character + 0x20;
  if (character < 0x80) return character;
  for (const Capitals& run : kCapitals) {
    const bool isIn = character >= run.first && character <= run.last;
    if (run.codePage == number_ && isIn) return character + run.distance;
  }
  return character;
}

unsigned SimCodePage::RaisedCharacter(unsigned character) const {
  if (character >= 'a' && character <= 'z') return character - 0x20;
  if (character < 0x80) return character;
  for (const Capitals& run : kCapitals) {
    const bool isIn = character >= run.first + run.distance && character <= run.last + run.distance;
    if (run.codePage == number_ && isIn) return character - run.distance;
  }
  return character;
}

}  // namespace tarvo
