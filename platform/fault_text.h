#pragma once

#include <cstddef>
#include <cstdint>

namespace tarvo {

/// Composes texts in room of its own, for moments when no memory can be had. What does not fit is
/// left away.
class FixedText {
 public:
  FixedText& Add(const char* text);
  /// In decimal digits, zeros before it up to `leastDigits`.
  FixedText& AddNumber(std::uint32_t number, int leastDigits = 1);
  /// "0x" and upper-case hexadecimal digits, zeros before them up to `leastDigits`.
  FixedText& AddHex(std::uint64_t number, int leastDigits);

  const char* Text() const { return text_; }
  std::size_t Length() const { return length_; }

 private:
  void Put(char character);
  void AddDigits(std::uint64_t number, unsigned base, int leastDigits);

  static constexpr std::size_t kRoom = 2048;
  char text_[kRoom] = {};
  std::size_t length_ = 0;
};

/// A fault of the launcher's own, and the moment of it (local time).
struct FaultFacts {
  std::uint32_t code = 0;     ///< The system's number of the exception.
  std::uint64_t address = 0;  ///< Where; 0 for unknown.
  std::uint64_t offset = 0;   ///< The same, relative to the launcher's image base; 0 when
                              ///< it is outside the image.
  const char* version = "";
  bool startsAgain = false;
};

struct FaultMoment {
  std::uint32_t year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
};

/// "Tarvo Launcher v.1.0.0 crashed! [0xC0000005 at 0x00000001400012AB, launcher + 0x12AB], ..." and
/// what comes of it.
void AddFaultText(FixedText& text, const FaultFacts& facts);

/// The line of the status log that reports it: time stamp, text, line end.
void AddFaultLine(FixedText& text, const FaultMoment& moment, const FaultFacts& facts);

/// The status log's file of that day: "<folder>\yyyymmdd.log".
void AddDayFile(FixedText& text, const char* folder, const FaultMoment& moment);

}  // namespace tarvo
