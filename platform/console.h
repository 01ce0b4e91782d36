#pragma once

#include <string>

namespace tarvo {

enum class OutputStream { Output, Error };

/// Where this program's standard output and standard error go: a file or a pipe that it was started
/// with, or else the console of the program that started it; nowhere when there is none of these,
/// as for a scheduled task.
class Console {
 public:
  virtual ~Console() = default;
  /// Prints a text of the system's code page, whose lines end with LF or CR LF; they come out with
  /// CR LF. On a console its letters are shown as they are, whatever the console's code page; a
  /// file or a pipe gets the system's code page. False when file, pipe or console did not take all
  /// of it; where there is none of them, nothing gets lost.
  virtual bool PrintText(OutputStream stream, const std::string& text) = 0;
  /// Prints UTF-8 for other programs: a file or a pipe gets these very bytes, a console the letters
  /// that they mean. False as above.
  virtual bool PrintUtf8(OutputStream stream, const std::string& utf8) = 0;
};

}  // namespace tarvo
