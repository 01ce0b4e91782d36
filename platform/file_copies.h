#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/files.h"

namespace tarvo {

/// What kind of reason it was, for whoever decides whether to try again.
enum class FileTrouble {
  Missing,   ///< There is no such file or folder.
  Held,      ///< Another program has the file in use, or it still runs: it may work in a moment.
  DiskFull,  ///< There is no room for the copy.
  Refused,   ///< Everything else: no right, a folder of that name, a broken disk.
};

/// Why the system refused: its number, its own words, and the kind of reason.
struct CopyFault {
  FileTrouble trouble = FileTrouble::Refused;
  FileFault reason;
};

/// Copies of whole files, and the folders that they go to. Paths have "\" between their parts. Each
/// call is one attempt: nothing here waits or tries again.
class FileCopies {
 public:
  virtual ~FileCopies() = default;

  /// When the file's content last changed, in universal time, cut to the second. `time` is
  /// untouched when there is a fault.
  virtual std::optional<CopyFault> ReadLastModified(const std::string& path,
                                                    std::chrono::sys_seconds& time) = 0;

  /// Makes `target` a copy of `source` with the source's last-modified date, creating or replacing
  /// it. The copy is written beside the target (its name and ".tarvo-copy") and swapped in by one
  /// step, so the target is the old file or the new one at every moment. On a fault the target is
  /// as it was and nothing is left beside it. A source that somebody is writing counts as held.
  virtual std::optional<CopyFault> CopyOver(const std::string& source,
                                            const std::string& target) = 0;

  /// A file of that name is no folder.
  virtual bool FolderExists(const std::string& path) = 0;
  /// Makes one folder in a folder that is there.
  virtual std::optional<CopyFault> MakeFolder(const std::string& path) = 0;
};

}  // namespace tarvo
