#include "form/windows/log_text.h"

#include <richedit.h>

#include "platform/windows/system_libraries.h"

namespace tarvo {
namespace {

/// No start needs the library of the system's dialogs, and it brings many others with it.
HWND FindTextDialog(FINDREPLACEA& record) {
  static const auto call = LateCall<decltype(&FindTextA)>("comdlg32.dll", "FindTextA");
  return call ? call(&record) : nullptr;
}

UINT DialogMessage() {
  static const UINT message = RegisterWindowMessageA(FINDMSGSTRINGA);
  return message;
}

LONG LengthOf(HWND text) {
  GETTEXTLENGTHEX request{GTL_NUMCHARS | GTL_PRECISE, CP_ACP};
  return static_cast<LONG>(
      SendMessageA(text, EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&request), 0));
}

}  // namespace

void LogSearch::Ask() {
  if (dialog_) {
    SetForegroundWindow(dialog_);
    return;
  }
  record_ = {};
  record_.lStructSize = sizeof record_;
  record_.hwndOwner = text_;
  record_.Flags = FR_DOWN | FR_HIDEWHOLEWORD;
  record_.lpstrFindWhat = wanted_;
  record_.wFindWhatLen = sizeof wanted_;
  dialog_ = FindTextDialog(record_);
}

void LogSearch::Again(bool backwards) {
  if (wanted_[0] == '\0') return Ask();
  Search(backwards);
}

bool LogSearch::Take(UINT message, LPARAM detail) {
  if (message != DialogMessage()) return false;
  const auto& answer = *reinterpret_cast<const FINDREPLACEA*>(detail);
  if (answer.Flags & FR_DIALOGTERM) {
    dialog_ = nullptr;
  } else if (answer.Flags & FR_FINDNEXT) {
    Search((answer.Flags & FR_DOWN) == 0);
  }
  return true;
}

void LogSearch::Close() {
  if (dialog_) DestroyWindow(dialog_);
  dialog_ = nullptr;
}

void LogSearch::Search(bool backwards) {
  CHARRANGE selection{};
  SendMessageA(text_, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  const LONG end = LengthOf(text_);
  const WPARAM flags = (record_.Flags & FR_MATCHCASE) | (backwards ? 0U : FR_DOWN);
  const bool found = backwards ? Select(selection.cpMin, 0, flags) || Select(end, 0, flags)
                               : Select(selection.cpMax, end, flags) || Select(0, end, flags);
  if (!found) MessageBeep(MB_ICONASTERISK);
}

bool LogSearch::Select(LONG from, LONG to, WPARAM flags) {
  FINDTEXTEXA request{};
  request.chrg = {from, to};
  request.lpstrText = wanted_;
  const auto at = static_cast<LONG>(
      SendMessageA(text_, EM_FINDTEXTEX, flags, reinterpret_cast<LPARAM>(&request)));
  if (at < 0) return false;
  SendMessageA(text_, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&request.chrgText));
  SendMessageA(text_, EM_SCROLLCARET, 0, 0);
  return true;
}

std::string ShownOf(const std::string& piece) {
  std::string shown = piece.substr(0, kLongestShown);
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (shown.compare(i, 2, kLineEnd) == 0) {
      ++i;
    } else if (static_cast<unsigned char>(shown[i]) < ' ' && shown[i] != '\t') {
      shown[i] = ' ';
    }
  }
  if (shown.size() == piece.size()) return shown;
  return shown + (piece.ends_with(kLineEnd) ? "...\r\n" : "...");
}

LONG LettersIn(const std::string& text) {
  LONG letters =
      MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  for (std::size_t at = 0; (at = text.find(kLineEnd, at)) != std::string::npos; at += 2) --letters;
  return letters;
}

}  // namespace tarvo
