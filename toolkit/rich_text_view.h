#pragma once

#include <functional>
#include <string>
#include <vector>

#include "toolkit/control.h"

namespace tarvo {

/// A piece of text in one colour.
struct ColouredText {
  Colour colour = 0;
  std::string text;
};

/// Shows a rich-text view. It is called after each change, within the call that makes it; appending
/// must not redraw the rest.
class RichTextMirror {
 public:
  virtual ~RichTextMirror() = default;
  virtual void Appended(const ColouredText& piece) = 0;
  /// The whole content was replaced.
  virtual void Replaced() = 0;
};

/// A read-only view of coloured text, in bytes, that keeps its content as Rich Text Format source.
/// Its size is not limited: the owner removes what is too old.
///
/// The source is made of a header of exactly six lines (`kHeaderLines`: version and font, a table
/// of the colours, the paragraph's defaults), one source line for each line of text, and a closing
/// line "}"; every line ends with CR LF. A line of text carries its own colours, so removing a line
/// leaves the others as they were. Bytes above 127 and RTF's own signs are escaped.
class RichTextView : public Control {
 public:
  static constexpr int kHeaderLines = 6;

  /// The colours that the view can show, in the order of its table; any other is shown as black.
  explicit RichTextView(std::vector<Colour> palette);

  /// Adds the text at the end, in its colour. CR LF ends the line.
  void Append(const ColouredText& piece);

  /// The whole source, its closing line included.
  std::string Source() const { return source_ + kClosing; }
  std::size_t SourceLength() const { return source_.size() + kClosing.size(); }
  /// Replaces all content by a source of the form above, as `Source` returns it; it is not checked.
  void SetSource(std::string source);

  /// The text in order, cut where the colour changes; a line has one piece or more.
  std::vector<ColouredText> Pieces() const;

  /// The text without its colours, lines ended by CR LF.
  std::string Text() const;

  /// The operator asks for the file that also holds the text: raises `onOpenFile`.
  void OpenFile() { Raise(onOpenFile); }
  std::function<void()> onOpenFile;

  void SetRichTextMirror(RichTextMirror* mirror) { richMirror_ = mirror; }

 private:
  static const std::string kClosing;

  Colour ColourOf(std::size_t entry) const;
  /// Tells the content in order: `onColour` an entry of the palette's table, `onText` what follows.
  template <class OnColour, class OnText>
  void Read(OnColour onColour, OnText onText) const;

  std::vector<Colour> palette_;
  std::string source_;
  RichTextMirror* richMirror_ = nullptr;
};

}  // namespace tarvo
