#pragma once

#include <windows.h>

#include <commdlg.h>
#include <cstddef>
#include <string>

namespace tarvo {

/// Searches the text of a rich edit with the system's own search dialog, which stays up beside the
/// window. A found place is selected and scrolled into view; the search goes on from the selection
/// and wraps around at the end of the text. It beeps when it finds nothing.
class LogSearch {
 public:
  LogSearch() = default;
  ~LogSearch() { Close(); }
  LogSearch(const LogSearch&) = delete;
  LogSearch& operator=(const LogSearch&) = delete;

  /// Sets the window that holds the text; to be called before anything else.
  void Of(HWND text) { text_ = text; }

  /// Opens the dialog, or brings it to the front.
  void Ask();
  /// Searches for the same again; asks when there was no search yet.
  void Again(bool backwards);
  /// Takes a message of the text's window that came from the dialog; false for any other.
  bool Take(UINT message, LPARAM detail);
  void Close();

 private:
  void Search(bool backwards);
  bool Select(LONG from, LONG to, WPARAM flags);

  HWND text_ = nullptr;
  HWND dialog_ = nullptr;
  FINDREPLACEA record_{};
  char wanted_[256] = "";
};

inline constexpr char kLineEnd[] = "\r\n";

/// The most bytes of a piece of the log that the window shows: the time that a rich edit takes to
/// break a line grows with the square of its length; 8000 letters can take 20 seconds.
inline constexpr std::size_t kLongestShown = 1000;

/// What the window shows of a piece: control characters as blanks, so that a line stays one, and
/// only the beginning and "..." of a piece that is too long.
std::string ShownOf(const std::string& piece);

/// Letters of a text as a rich edit counts them where all of it is shown: a line end is one.
LONG LettersIn(const std::string& text);

}  // namespace tarvo
