#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// A filled text, and where in it produced values stand, which nothing may take for directives.
struct TemplateText {
  struct Range {
    std::size_t start;
    std::size_t length;
  };
  std::string text;
  std::vector<Range> values;  ///< In order; not kept unless asked for.
};

/// Gathers the output of a template. Values may come later than the text behind them. Raises the
/// fault of a template beyond its bounds when the output passes `mostBytes`.
class TemplateOutput {
 public:
  TemplateOutput(std::size_t mostBytes, bool keepRanges)
      : mostBytes_(mostBytes), keepRanges_(keepRanges) {}

  void AddText(std::string_view text) {
    Count(text.size());
    text_ += text;
  }
  /// The text to which a value may be appended in place, and what must be called afterwards with
  /// the size that it had.
  std::string& Text() { return text_; }
  void ValueAdded(std::size_t sizeBefore);

  /// Keeps a place open for a value; filled once, by its number.
  std::size_t AddHole();
  void FillHole(std::size_t hole, std::string value);

  /// The whole output; to be called once, at the end.
  TemplateText Take();

 private:
  struct Hole {
    std::size_t position;
    std::string value;
  };

  void Count(std::size_t more) {
    if (more > mostBytes_ - bytes_) RaiseTooLong();
    bytes_ += more;
  }
  [[noreturn]] void RaiseTooLong() const;

  const std::size_t mostBytes_;
  const bool keepRanges_;
  std::size_t bytes_ = 0;
  std::string text_;
  std::vector<TemplateText::Range> values_;
  std::vector<Hole> holes_;
};

}  // namespace tarvo
