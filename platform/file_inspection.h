#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/files.h"

namespace tarvo {

/// What a look at a path has found.
struct FileLook {
  enum class Outcome { There, Missing, NotAnswered };

  Outcome outcome = Outcome::NotAnswered;
  bool isFolder = false;
  std::uint64_t size = 0;               ///< Bytes of a file.
  std::chrono::sys_seconds modified{};  ///< When its content last changed, in universal time.
  std::string
      identity;  ///< The same text for all names of one file; "" where the system tells none.
};

/// Looks at files, folders and drives: nothing is changed, nothing is left behind, and nobody is
/// kept from using them meanwhile.
class FileInspection {
 public:
  virtual ~FileInspection() = default;
  /// Waits for that long at most: a share that went away may not answer for a minute.
  virtual FileLook LookAt(const std::string& path, std::uint32_t milliseconds) = 0;
  /// The file's first bytes, `most` at most; otherwise like `FileReader::ReadText`.
  virtual ReadResult ReadBeginning(const std::string& path, std::size_t most,
                                   std::string& text) = 0;
  /// Why this file cannot be replaced, or why no new file can be made in this folder, as far as the
  /// system tells without trying. Nothing when it can, and when it is not there.
  virtual std::optional<FileFault> WhyUnwritable(const std::string& path) = 0;
  /// Bytes that this user can still store in the folder; nothing when the system does not tell.
  virtual std::optional<std::uint64_t> FreeSpace(const std::string& folder) = 0;
};

}  // namespace tarvo
