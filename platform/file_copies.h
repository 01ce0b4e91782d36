#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "platform/files.h"

namespace tarvo {

/// Copies of whole files, and the folders that they go to. Paths have "\" between their parts. Each
/// call is one attempt: nothing here waits or tries again.
class FileCopies {
 public:
  virtual ~FileCopies() = default;

  /// When the file's content last changed, in universal time, cut to the second. `time` is
  /// untouched when there is a fault.
  virtual std::optional<FileFault> ReadLastModified(const std::string& path,
                                                    std::chrono::sys_seconds& time) = 0;

  /// Makes `target` a copy of `source` with the source's last-modified date, creating or replacing
  /// it. The copy is written beside the target (its name and ".tarvo-copy") and swapped in by one
  /// step, so the target is the old file or the new one at every moment. On a fault the target is
  /// as it was and nothing is left beside it. A source that somebody is writing counts as held. A
  /// target that is replaced keeps what `FileReplacer` keeps: the copy takes neither the rights nor
  /// the attributes of the source.
  virtual std::optional<FileFault> CopyOver(const std::string& source,
                                            const std::string& target) = 0;

  /// Both names lead to one file. False as well when one of them leads to none.
  virtual bool SameFile(const std::string& one, const std::string& other) = 0;
  /// Takes one file away.
  virtual std::optional<FileFault> Remove(const std::string& path) = 0;

  /// A file of that name is no folder.
  virtual bool FolderExists(const std::string& path) = 0;
  /// Makes one folder in a folder that is there.
  virtual std::optional<FileFault> MakeFolder(const std::string& path) = 0;
};

}  // namespace tarvo
