#include "xmldoc/mail/mail_charset.h"

#include <utility>

#include "xmldoc/rules/text_rules.h"

namespace tarvo {
namespace {

constexpr std::pair<std::string_view, CharacterForm> kForms[] = {
    {"utf-8", CharacterForm::Utf8},
    {"utf8", CharacterForm::Utf8},
    {"shift_jis", CharacterForm::ShiftJis},
    {"windows-31j", CharacterForm::ShiftJis},
    {"windows-932", CharacterForm::ShiftJis},
    {"cp932", CharacterForm::ShiftJis},
    {"gb2312", CharacterForm::DoubleByte},
    {"gbk", CharacterForm::DoubleByte},
    {"windows-936", CharacterForm::DoubleByte},
    {"cp936", CharacterForm::DoubleByte},
    {"ks_c_5601-1987", CharacterForm::DoubleByte},
    {"euc-kr", CharacterForm::DoubleByte},
    {"windows-949", CharacterForm::DoubleByte},
    {"cp949", CharacterForm::DoubleByte},
    {"big5", CharacterForm::DoubleByte},
    {"windows-950", CharacterForm::DoubleByte},
    {"cp950", CharacterForm::DoubleByte},
    {"gb18030", CharacterForm::Gb18030},
};

/// A byte of the text as a number, 0 past its end.
unsigned ByteAt(std::string_view text, std::size_t at) {
  return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

bool IsBetween(unsigned byte, unsigned first, unsigned last) {
  return byte >= first && byte <= last;
}

std::size_t Utf8Size(std::string_view text) {
  const unsigned first = ByteAt(text, 0);
  std::size_t size = 1;
  if (IsBetween(first, 0xC2, 0xDF)) size = 2;
  if (IsBetween(first, 0xE0, 0xEF)) size = 3;
  if (IsBetween(first, 0xF0, 0xF4)) size = 4;
  for (std::size_t i = 1; i < size; ++i) {
    if (!IsBetween(ByteAt(text, i), 0x80, 0xBF)) return 1;
  }
  return size;
}

std::size_t DoubleByteSize(std::string_view text, bool hasLead) {
  return hasLead && ByteAt(text, 1) >= 0x40 ? 2 : 1;
}

bool IsShiftJisLead(unsigned byte) {
  return IsBetween(byte, 0x81, 0x9F) || IsBetween(byte, 0xE0, 0xFC);
}

bool IsLead(unsigned byte) { return IsBetween(byte, 0x81, 0xFE); }

std::size_t Gb18030Size(std::string_view text) {
  const bool four = IsLead(ByteAt(text, 0)) && IsBetween(ByteAt(text, 1), '0', '9') &&
                    IsLead(ByteAt(text, 2)) && IsBetween(ByteAt(text, 3), '0', '9');
  return four ? 4 : DoubleByteSize(text, IsLead(ByteAt(text, 0)));
}

}  // namespace

CharacterForm CharacterFormOf(std::string_view charset) {
  for (const auto& [name, form] : kForms) {
    if (IsKeyword(charset, name)) return form;
  }
  return CharacterForm::SingleByte;
}

std::size_t CharacterSize(std::string_view text, CharacterForm form) {
  switch (form) {
    case CharacterForm::SingleByte:
      return 1;
    case CharacterForm::Utf8:
      return Utf8Size(text);
    case CharacterForm::ShiftJis:
      return DoubleByteSize(text, IsShiftJisLead(ByteAt(text, 0)));
    case CharacterForm::DoubleByte:
      return DoubleByteSize(text, IsLead(ByteAt(text, 0)));
    case CharacterForm::Gb18030:
      return Gb18030Size(text);
  }
  return 1;
}

}  // namespace tarvo
