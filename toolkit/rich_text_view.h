#pragma once

#include <functional>
#include <string>
#include <vector>

#include "toolkit/colour.h"
#include "toolkit/control.h"

namespace tarvo {

/// A piece of text in one colour.
struct ColouredText {
  Colour colour = 0;
  std::string text;
};

/// What shows a rich-text view: appending must not make it draw the rest again.
class RichTextMirror {
 public:
  virtual ~RichTextMirror() = default;
  virtual void Appended(const ColouredText& piece) = 0;
  /// The whole content is another.
  virtual void Replaced() = 0;
};

/// A read-only view of coloured text that keeps its content as Rich Text Format source.
///
/// The source is made of a header of exactly six lines (`kHeaderLines`: version and font, a table
/// of the colours, the paragraph's defaults), one source line for each line of text, and a closing
/// line
/// "}"; every line ends with CR LF. A line of text carries its own colours, so a line that is taken
/// out leaves the others as they were. Bytes above 127 and RTF's own signs are escaped.
class RichTextView : public Control {
 public:
  static constexpr int kHeaderLines = 6;

  /// The colours that the view can show, in the order of its table; any other is shown as black.
  explicit RichTextView(std::vector<Colour> palette);

  /// Puts the text behind all that is there, in that colour. CR LF ends the line.
  void Append(const ColouredText& piece);

  /// The whole source, its closing line included.
  std::string Source() const { return source_ + kClosing; }
  std::size_t SourceLength() const { return source_.size() + kClosing.size(); }
  /// Replaces all content by a source of the form above, as `Source` gives it.
  void SetSource(std::string source);

  /// The text in the order of its colours; one line has one piece or more.
  std::vector<ColouredText> Pieces() const;

  /// The text without its colours, lines ended by CR LF.
  std::string Text() const;

  /// The operator asks for the file that keeps the text.
  void OpenFile() { Raise(onOpenFile); }
  std::function<void()> onOpenFile;

  void SetRichTextMirror(RichTextMirror* mirror) { richMirror_ = mirror; }

 private:
  static const std::string kClosing;

  Colour ColourOf(std::size_t entry) const;

  std::vector<Colour> palette_;
  std::string source_;
  RichTextMirror* richMirror_ = nullptr;
};

}  // namespace tarvo
