// Which bytes of a mail's text belong together, so that no header line cuts a character.
#include "xmldoc/mail/mail_charset.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(MailCharset, KnowsTheFormOfEveryNameInAnyLetterCase) {
  const struct {
    const char* name;
    CharacterForm form;
  } table[] = {{"utf-8", CharacterForm::Utf8},
               {"UTF8", CharacterForm::Utf8},
               {"Shift_JIS", CharacterForm::ShiftJis},
               {"windows-31j", CharacterForm::ShiftJis},
               {"windows-932", CharacterForm::ShiftJis},
               {"cp932", CharacterForm::ShiftJis},
               {"gb2312", CharacterForm::DoubleByte},
               {"GBK", CharacterForm::DoubleByte},
               {"windows-936", CharacterForm::DoubleByte},
               {"cp936", CharacterForm::DoubleByte},
               {"ks_c_5601-1987", CharacterForm::DoubleByte},
               {"EUC-KR", CharacterForm::DoubleByte},
               {"windows-949", CharacterForm::DoubleByte},
               {"cp949", CharacterForm::DoubleByte},
               {"Big5", CharacterForm::DoubleByte},
               {"windows-950", CharacterForm::DoubleByte},
               {"cp950", CharacterForm::DoubleByte},
               {"GB18030", CharacterForm::Gb18030},
               {"windows-1252", CharacterForm::SingleByte},
               {"iso-8859-1", CharacterForm::SingleByte},
               {"utf-16", CharacterForm::SingleByte},
               {"", CharacterForm::SingleByte}};
  for (const auto& row : table) EXPECT_EQ(CharacterFormOf(row.name), row.form) << row.name;
}

TEST(MailCharset, MeasuresTheFirstCharacter) {
  const struct {
    CharacterForm form;
    const char* text;
    std::size_t size;
  } table[] = {
      {CharacterForm::SingleByte, "\xC3\xA9", 1},
      {CharacterForm::Utf8, "a\xC3", 1},
      {CharacterForm::Utf8, "\xC1\x80", 1},
      {CharacterForm::Utf8, "\xC2\x80", 2},
      {CharacterForm::Utf8, "\xDF\xBF", 2},
      {CharacterForm::Utf8, "\xC2", 1},
      {CharacterForm::Utf8, "\xC2\x7F", 1},
      {CharacterForm::Utf8, "\xC2\xC0", 1},
      {CharacterForm::Utf8, "\xE0\x80\xBF", 3},
      {CharacterForm::Utf8, "\xEF\xBF\x80", 3},
      {CharacterForm::Utf8, "\xE0\x80", 1},
      {CharacterForm::Utf8, "\xF0\x80\x80\x80", 4},
      {CharacterForm::Utf8, "\xF4\xBF\xBF\xBF", 4},
      {CharacterForm::Utf8, "\xF5\x80\x80\x80", 1},
      {CharacterForm::Utf8,
       "\xF0\x80\x80"
       "a",
       1},
      {CharacterForm::ShiftJis, "\x80\x40", 1},
      {CharacterForm::ShiftJis, "\x81\x40", 2},
      {CharacterForm::ShiftJis, "\x9F\x40", 2},
      {CharacterForm::ShiftJis, "\xA0\x40", 1},
      {CharacterForm::ShiftJis, "\xDF\x40", 1},
      {CharacterForm::ShiftJis, "\xE0\x40", 2},
      {CharacterForm::ShiftJis, "\xFC\x40", 2},
      {CharacterForm::ShiftJis, "\xFD\x40", 1},
      {CharacterForm::ShiftJis, "\x81\x3F", 1},
      {CharacterForm::ShiftJis, "\x81", 1},
      {CharacterForm::DoubleByte, "\x80\x40", 1},
      {CharacterForm::DoubleByte, "\x81\x40", 2},
      {CharacterForm::DoubleByte, "\xFE\xFE", 2},
      {CharacterForm::DoubleByte, "\xFF\x40", 1},
      {CharacterForm::DoubleByte, "\x81\x3F", 1},
      {CharacterForm::Gb18030, "\x81\x30\x81\x30", 4},
      {CharacterForm::Gb18030, "\xFE\x39\xFE\x39", 4},
      {CharacterForm::Gb18030, "\x81\x2F\x81\x30", 1},
      {CharacterForm::Gb18030, "\x81\x3A\x81\x30", 1},
      {CharacterForm::Gb18030, "\x81\x30\x80\x30", 1},
      {CharacterForm::Gb18030, "\x81\x30\x81\x2F", 1},
      {CharacterForm::Gb18030, "\x81\x30\x81\x3A", 1},
      {CharacterForm::Gb18030, "\x80\x30\x81\x30", 1},
      {CharacterForm::Gb18030, "\x81\x40\x81\x30", 2},
      {CharacterForm::Gb18030, "\xFF\x40", 1},
      {CharacterForm::Gb18030, "a", 1},
  };
  for (const auto& row : table) EXPECT_EQ(CharacterSize(row.text, row.form), row.size) << row.text;
}

}  // namespace
}  // namespace tarvo
