#pragma once

#include <windows.h>

#include <richedit.h>

#include <string>
#include <vector>

#include "form/windows/log_menu.h"
#include "form/windows/log_text.h"
#include "toolkit/rich_text_view.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// The log's native view. New text is added at the end without redrawing the rest, and the view
/// follows it while the operator looks at the end; one who reads further up, or has selected
/// something, keeps his place. What is added within one event is shown in one step when the event
/// is over, or before the window answers any message.
///
/// The right mouse button or the menu key shows what else can be done: copy, select all, find
/// (Ctrl+F, then F3 and Shift+F3), open the day's file. On a dark ground the colours are lighter;
/// in high contrast the text is in the system's.
class LogWidget : public Mirror<RichTextView>, public RichTextMirror {
 public:
  LogWidget(Stage& stage, HWND parent, int id, RichTextView& view);
  Extent Natural() const override;
  void TakeLook() override;
  void Detach() override;
  bool Framed() const override { return true; }

  void Appended(const ColouredText& piece) override;
  void Replaced() override;

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  /// Where the operator reads and what he has selected.
  struct Reading {
    bool atEnd = true;
    CHARRANGE selection{};
    LONG topLetter = 0;  ///< The first one in view.
    LONG topHeight = 0;  ///< Its distance from the upper edge, in pixels.
    LONG gone = 0;       ///< Letters removed at the beginning since then.
  };

  bool ShowsEnd() const;
  LONG Length() const;
  LONG HeightOf(LONG letter) const;
  Reading Remember() const;
  void Restore(const Reading& reading);
  void ScrollToEnd();
  void FallBehind();
  void CatchUp();
  void GoToEnd();
  void Insert(const ColouredText& piece);
  bool DropOldest(const std::string& kept);
  void Remove(CHARRANGE letters);
  void ShowAll();
  void ApplyFont();
  bool Key(WPARAM key);
  void Do(LogCommand command);

  LogSearch search_;
  bool plain_ = false;     ///< In the system's colours.
  bool behind_ = false;    ///< The window does not show the next two yet.
  bool outdated_ = false;  ///< Lines at the view's beginning, or all, were replaced.
  std::vector<ColouredText> missing_;
  std::string shown_;       ///< The window's text, as the view has it.
  bool shortened_ = false;  ///< The window has only the beginning of some piece.
  COLORREF ground_ = GetSysColor(COLOR_WINDOW);
};

}  // namespace tarvo
