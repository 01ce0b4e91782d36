#include "platform/fault_text.h"

namespace tarvo {

void FixedText::Put(char character) {
  if (length_ + 1 < kRoom) text_[length_++] = character;
}

FixedText& FixedText::Add(const char* text) {
  for (; *text != '\0'; ++text) Put(*text);
  return *this;
}

FixedText& FixedText::AddNumber(std::uint32_t number, int leastDigits) {
  AddDigits(number, 10, leastDigits);
  return *this;
}

FixedText& FixedText::AddHex(std::uint64_t number, int leastDigits) {
  Add("0x");
  AddDigits(number, 16, leastDigits);
  return *this;
}

void FixedText::AddDigits(std::uint64_t number, unsigned base, int leastDigits) {
  char digits[20];
  int count = 0;
  for (; number != 0; number /= base) digits[count++] = "0123456789ABCDEF"[number % base];
  for (int zeros = leastDigits - count; zeros > 0; --zeros) Put('0');
  while (count > 0) Put(digits[--count]);
}

void AddFaultText(FixedText& text, const FaultFacts& facts) {
  text.Add("Tarvo Launcher v.").Add(facts.version).Add(" crashed! [").AddHex(facts.code, 8);
  if (facts.address == 0) {
    text.Add(" at an unknown address");
  } else {
    text.Add(" at ").AddHex(facts.address, 8);
  }
  if (facts.offset != 0) text.Add(", launcher + ").AddHex(facts.offset, 1);
  text.Add(facts.startsAgain ? "], restarting..." : "], not restarted!");
}

void AddFaultLine(FixedText& text, const FaultMoment& moment, const FaultFacts& facts) {
  text.AddNumber(moment.year, 4).Add("-").AddNumber(moment.month, 2).Add("-");
  text.AddNumber(moment.day, 2).Add(" ").AddNumber(moment.hour, 2).Add(":");
  text.AddNumber(moment.minute, 2).Add(":").AddNumber(moment.second, 2).Add(": ");
  AddFaultText(text, facts);
  text.Add("\r\n");
}

void AddDayFile(FixedText& text, const char* folder, const FaultMoment& moment) {
  text.Add(folder).Add("\\").AddNumber(moment.year, 4).AddNumber(moment.month, 2);
  text.AddNumber(moment.day, 2).Add(".log");
}

}  // namespace tarvo
