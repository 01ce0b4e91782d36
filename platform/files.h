#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// What kind of reason it was, for whoever decides whether to try again.
enum class FileTrouble {
  Missing,   ///< There is no such file or folder.
  Held,      ///< Another program has the file in use, or it still runs: it may work in a moment.
  DiskFull,  ///< There is no room, on the disk or in the user's share of it.
  Refused,   ///< Everything else: no right, a folder of that name, a broken disk.
};

/// Why the system refused a file operation: its error number, its own words, the kind of reason.
struct FileFault {
  int number = 0;
  std::string description;
  FileTrouble trouble = FileTrouble::Refused;
};

/// The system's reason as the operator reads it, and looks it up: "Access is denied. (system error
/// 5)".
inline std::string WordsOf(const FileFault& fault) {
  return fault.description + " (system error " + std::to_string(fault.number) + ")";
}

enum class ReadResult {
  Ok,       ///< The text holds the whole file.
  Missing,  ///< There is no such file; the text is untouched.
  Failed,   ///< The file is there and cannot be read (locked, no right, a folder); text untouched.
};

/// Reads whole files as 8-bit text: no conversion, line ends kept. Paths have "\" between their
/// parts.
class FileReader {
 public:
  virtual ~FileReader() = default;
  virtual bool Exists(const std::string& path) = 0;
  virtual ReadResult ReadText(const std::string& path, std::string& text) = 0;
};

/// Replaces whole files: the new text is written beside the old file, flushed and swapped in by one
/// step, so that there is the old file or the new one at every moment. Each call is one attempt:
/// nothing here waits or tries again.
///
/// A file that is replaced stays what it was but for its content: rights, attributes, streams and
/// the moment of its creation are kept. A symbolic link stays one, and the file that it leads to is
/// replaced. Of a file with several names (hard links) only the one that is asked for gets the new
/// content; the others keep the old, since whoever writes through all of them has no old file left
/// when it fails. A read-only file is refused.
class FileReplacer {
 public:
  virtual ~FileReplacer() = default;
  /// Makes `path` hold exactly `text`, creating or replacing it.
  /// On failure the old file is as it was, nothing is left beside it, and the fault is returned.
  virtual std::optional<FileFault> ReplaceText(const std::string& path,
                                               const std::string& text) = 0;
};

/// Adds text at the end of a file that it opens and closes for each call.
class FileAppender {
 public:
  virtual ~FileAppender() = default;
  /// Creates the file when it is missing. False when nothing or not all could be written.
  virtual bool AppendText(const std::string& path, const std::string& text) = 0;
};

/// Lists the regular files of a folder.
class FolderLister {
 public:
  virtual ~FolderLister() = default;
  /// File names (no folder) whose long name ends with `ending` in any letter case, in the order in
  /// which the file system gives them. Empty when the folder cannot be listed.
  virtual std::vector<std::string> FilesEndingWith(const std::string& folder,
                                                   const std::string& ending) = 0;
};

/// Finds out why a file cannot be read.
class FileDiagnosis {
 public:
  virtual ~FileDiagnosis() = default;
  /// The system's reason why the file cannot be opened for reading. Nothing when it can be opened,
  /// and when it is simply not there.
  virtual std::optional<FileFault> WhyUnreadable(const std::string& path) = 0;
};

/// The program's current folder: relative paths count from it, and the programs that it starts
/// inherit it. Whoever starts the program chooses it, and a file dialog may change it.
class WorkingFolder {
 public:
  virtual ~WorkingFolder() = default;
  /// Makes this folder the current one; its path ends with "\". False when the system refuses, and
  /// the folder is what it was.
  virtual bool MoveInto(const std::string& folder) = 0;
};

}  // namespace tarvo
