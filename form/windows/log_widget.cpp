#include "form/windows/log_widget.h"

#include <algorithm>
#include <utility>

#include "form/windows/log_text.h"
#include "platform/windows/system_libraries.h"
#include "toolkit/readable.h"
#include "toolkit/windows/screens.h"

namespace tarvo {
namespace {

constexpr int kTwipsPerInch = 1440;

/// Suspends the drawing of a window, then has it drawn once, without erasing it first.
class Still {
 public:
  explicit Still(HWND window) : window_(window) { SendMessageA(window_, WM_SETREDRAW, FALSE, 0); }
  ~Still() {
    SendMessageA(window_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window_, nullptr, FALSE);
  }
  Still(const Still&) = delete;
  Still& operator=(const Still&) = delete;

 private:
  HWND window_;
};

}  // namespace

LogWidget::LogWidget(Stage& stage, HWND parent, int id, RichTextView& view) : Mirror(stage, view) {
  LoadSystemLibrary("riched20.dll");
  Create(parent, "RichEdit20A", "",
         WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | ES_NOHIDESEL, 0,
         id);
  search_.Of(Window());
  TakeMessages();
  SendMessageA(Window(), EM_EXLIMITTEXT, 0, 0x7FFFFFF);
  SendMessageA(Window(), EM_SETUNDOLIMIT, 0, 0);
  SendMessageA(Window(), EM_SETBKGNDCOLOR, TRUE, 0);
  Attach();
  control_.SetRichTextMirror(this);
  ShowAll();
}

void LogWidget::Detach() {
  CatchUp();
  Mirror::Detach();
  control_.SetRichTextMirror(nullptr);
  search_.Close();
}

Extent LogWidget::Natural() const {
  const Look& look = stage_.look;
  return {look.Px(400), look.TextExtent("X").height * 8 + look.Px(8)};
}

void LogWidget::TakeLook() {
  CatchUp();
  const Still still(Window());
  const Reading reading = Remember();
  if (plain_ != HighContrast() || ground_ != GetSysColor(COLOR_WINDOW)) {
    plain_ = HighContrast();
    ground_ = GetSysColor(COLOR_WINDOW);
    ShowAll();
  } else {
    ApplyFont();
  }
  Restore(reading);
}

/// Rich text is measured at the screen's resolution, whatever the window's monitor has.
void LogWidget::ApplyFont() {
  const LOGFONTW& font = stage_.look.FontRecord();
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_CHARSET | CFM_BOLD | CFM_ITALIC;
  format.yHeight = MulDiv(std::abs(font.lfHeight), kTwipsPerInch, SystemDpi());
  format.bCharSet = font.lfCharSet;
  std::copy(std::begin(font.lfFaceName), std::end(font.lfFaceName), format.szFaceName);
  const auto record = reinterpret_cast<LPARAM>(&format);
  SendMessageW(Window(), EM_SETCHARFORMAT, SCF_DEFAULT, record);
  SendMessageW(Window(), EM_SETCHARFORMAT, SCF_ALL, record);
}

LONG LogWidget::Length() const {
  GETTEXTLENGTHEX request{GTL_NUMCHARS | GTL_PRECISE, CP_ACP};
  return static_cast<LONG>(
      SendMessageA(Window(), EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&request), 0));
}

bool LogWidget::ShowsEnd() const {
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_ALL;
  if (!GetScrollInfo(Window(), SB_VERT, &bar) || bar.nPage == 0) return true;
  const int line = stage_.look.TextExtent("X").height;
  return bar.nPos + static_cast<int>(bar.nPage) >= bar.nMax - line;
}

LogWidget::Reading LogWidget::Remember() const {
  Reading reading;
  SendMessageA(Window(), EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&reading.selection));
  const bool selected = reading.selection.cpMin != reading.selection.cpMax;
  reading.atEnd = !selected && ShowsEnd();
  if (reading.atEnd) return reading;
  POINTL corner{1, 1};
  reading.topLetter = static_cast<LONG>(
      SendMessageA(Window(), EM_CHARFROMPOS, 0, reinterpret_cast<LPARAM>(&corner)));
  reading.topHeight = HeightOf(reading.topLetter);
  return reading;
}

void LogWidget::ScrollToEnd() {
  GoToEnd();
  SendMessageA(Window(), WM_VSCROLL, SB_BOTTOM, 0);
}

/// Letters that were removed at the beginning move the place that is read by as many.
void LogWidget::Restore(const Reading& reading) {
  if (reading.atEnd) return ScrollToEnd();
  CHARRANGE selection = {std::max(0L, reading.selection.cpMin - reading.gone),
                         std::max(0L, reading.selection.cpMax - reading.gone)};
  SendMessageA(Window(), EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  POINTL scroll{};
  SendMessageA(Window(), EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
  scroll.y += HeightOf(std::max(0L, reading.topLetter - reading.gone)) - reading.topHeight;
  SendMessageA(Window(), EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
}

LONG LogWidget::HeightOf(LONG letter) const {
  POINTL place{};
  SendMessageA(Window(), EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), letter);
  return place.y;
}

/// Puts the caret at the end of the text.
void LogWidget::GoToEnd() {
  const LONG end = Length();
  CHARRANGE behindAll{end, end};
  SendMessageA(Window(), EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&behindAll));
}

/// Inserts at the caret, which is after the piece then.
void LogWidget::Insert(const ColouredText& piece) {
  CHARFORMATA format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_COLOR;
  format.crTextColor = Readable(piece.colour, ground_);
  format.dwEffects = plain_ ? CFE_AUTOCOLOR : 0;
  SendMessageA(Window(), EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  const std::string text = ShownOf(piece.text);
  SendMessageA(Window(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
  shown_ += piece.text;
  shortened_ |= piece.text.size() > kLongestShown;
}

void LogWidget::Appended(const ColouredText& piece) {
  FallBehind();
  // The colour of a line end is not visible.
  if (piece.text == kLineEnd && !missing_.empty()) {
    missing_.back().text += kLineEnd;
  } else {
    missing_.push_back(piece);
  }
}

/// Pieces longer than all that the view has left would be inserted only to be removed.
void LogWidget::Replaced() {
  FallBehind();
  outdated_ = true;
  std::size_t length = 0;
  for (const ColouredText& piece : missing_) length += piece.text.size();
  if (length > control_.SourceLength()) missing_.clear();
}

/// Any message makes it catch up, so one is posted.
void LogWidget::FallBehind() {
  if (!behind_) PostMessageA(Window(), WM_NULL, 0, 0);
  behind_ = true;
}

/// Shows everything that the view has been given since the last time, in one step.
void LogWidget::CatchUp() {
  if (!std::exchange(behind_, false)) return;
  const std::vector<ColouredText> pieces = std::exchange(missing_, {});
  const bool outdated = std::exchange(outdated_, false);
  const Still still(Window());
  Reading reading = Remember();
  GoToEnd();
  for (const ColouredText& piece : pieces) Insert(piece);
  if (outdated) {
    const LONG whole = Length();
    if (!DropOldest(control_.Text())) ShowAll();
    reading.gone = std::max(0L, whole - Length());
  }
  Restore(reading);
}

/// Removes the letters, with an undo step that is discarded at once: without undo, Wine's rich edit
/// leaks 0.3 KiB of memory for each line end removed.
void LogWidget::Remove(CHARRANGE letters) {
  SendMessageA(Window(), EM_SETUNDOLIMIT, 1, 0);
  SendMessageA(Window(), EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&letters));
  SendMessageA(Window(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(""));
  SendMessageA(Window(), EM_EMPTYUNDOBUFFER, 0, 0);
  SendMessageA(Window(), EM_SETUNDOLIMIT, 0, 0);
}

/// Starts again with all that the view has.
void LogWidget::ShowAll() {
  Remove({0, -1});
  shown_.clear();
  shortened_ = false;
  ApplyFont();
  for (const ColouredText& piece : control_.Pieces()) Insert(piece);
}

/// Removes from the beginning what `kept` no longer has. False, and nothing done, when `kept` is
/// not the end of what is shown, or what is shown was shortened.
bool LogWidget::DropOldest(const std::string& kept) {
  if (shortened_ || !shown_.ends_with(kept)) return false;
  shown_ = kept;
  Remove({0, Length() - LettersIn(kept)});
  return true;
}

bool LogWidget::Key(WPARAM key) {
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (control && key == 'F') {
    search_.Ask();
  } else if (key == VK_F3) {
    search_.Again(GetKeyState(VK_SHIFT) < 0);
  } else {
    return false;
  }
  return true;
}

void LogWidget::Do(LogCommand command) {
  CHARRANGE whole{0, -1};
  switch (command) {
    case LogCommand::Copy:
      SendMessageA(Window(), WM_COPY, 0, 0);
      break;
    case LogCommand::SelectAll:
      SendMessageA(Window(), EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&whole));
      break;
    case LogCommand::Find:
      search_.Ask();
      break;
    case LogCommand::OpenFile:
      stage_.Happens([this] { control_.OpenFile(); });
      break;
    case LogCommand::None:
      break;
  }
}

LRESULT LogWidget::Handle(UINT message, WPARAM w, LPARAM l) {
  CatchUp();
  // Tab and Escape belong to the window around it: the log is for reading.
  if (message == WM_GETDLGCODE) return DLGC_WANTARROWS;
  if (message == WM_KEYDOWN && Key(w)) return 0;
  if (message == WM_CONTEXTMENU) return Do(AskLogMenu(Window(), l)), 0;
  if (search_.Take(message, l)) return 0;
  return Mirror::Handle(message, w, l);
}

}  // namespace tarvo
