#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// A filled text, and where in it the produced values are, which nothing may take for directives.
struct TemplateText {
  struct Range {
    std::size_t start;
    std::size_t length;
  };
  std::string text;
  std::vector<Range> values;  ///< In order; not kept unless asked for.
};

/// Gathers the output of a template. Values may come later than the text after them. Raises the
/// fault of a template beyond its bounds when the output passes `mostBytes`.
class TemplateOutput {
 public:
  TemplateOutput(std::size_t mostBytes, bool keepRanges)
      : mostBytes_(mostBytes), keepRanges_(keepRanges) {}

  void AddText(std::string_view text) {
    Count(text.size());
    text_ += text;
  }

  /// Keeps a place at the end of the text open for a value, to be filled once. A place costs 24
  /// bytes as long as it or one after it is open or holds something.
  std::size_t AddHole();
  static constexpr std::size_t kAtEnd = static_cast<std::size_t>(-1);

  /// Puts what `append(std::string&)` appends to a text into a hole, or at the end of the text.
  template <typename Append>
  void AddValue(std::size_t hole, Append append) {
    std::string& text = hole == kAtEnd ? text_ : lateValues_;
    const std::size_t start = text.size();
    append(text);
    const std::size_t length = text.size() - start;
    Count(length);
    if (hole != kAtEnd) {
      FillHole(hole, start, length);
    } else if (keepRanges_ && length > 0) {
      values_.push_back({start, length});
    }
  }

  /// Holes that are kept at this moment.
  std::size_t HoleCount() const { return holes_.size(); }

  /// The whole output; to be called once, at the end, when no hole is open.
  TemplateText Take();

 private:
  static constexpr std::size_t kOpen = static_cast<std::size_t>(-1);
  struct Hole {
    std::size_t position;       // in text_
    std::size_t start = kOpen;  // in lateValues_
    std::size_t length = 0;
  };

  void Count(std::size_t more) {
    if (more > mostBytes_ - bytes_) RaiseTooLong();
    bytes_ += more;
  }
  [[noreturn]] void RaiseTooLong() const;
  void FillHole(std::size_t hole, std::size_t start, std::size_t length);

  const std::size_t mostBytes_;
  const bool keepRanges_;
  std::size_t bytes_ = 0;
  std::string text_;                         // without the values of holes
  std::vector<TemplateText::Range> values_;  // in text_
  std::deque<Hole> holes_;                   // in the order of their positions
  std::string lateValues_;
};

}  // namespace tarvo
