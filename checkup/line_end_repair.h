#pragma once

#include <optional>
#include <string>

#include "core/patience.h"
#include "platform/clock.h"
#include "platform/file_copies.h"
#include "platform/files.h"

namespace tarvo {

/// Gives a conf file line ends of Windows, and keeps the old one beside it. The file is replaced
/// whole or not at all, and not without its copy.
class LineEndRepair {
 public:
  LineEndRepair(FileReader& files, FileReplacer& replacer, FileCopies& copies, LocalClock& clock,
                TickClock& ticks)
      : files_(files),
        replacer_(replacer, ticks),
        copies_(copies),
        clock_(clock),
        patience_(ticks) {}

  /// Where the old file of that path goes at this moment: its name, the date and time, ".old".
  std::string CopyOf(const std::string& path) const;

  /// Repairs the file, with the old one going to `copy`. Why it could not be done, nothing when it
  /// is; then both files are as they were, but for a copy that may be there.
  std::optional<std::string> Repair(const std::string& path, const std::string& copy);

 private:
  FileReader& files_;
  PatientReplacer replacer_;
  FileCopies& copies_;
  LocalClock& clock_;
  Patience patience_;
};

}  // namespace tarvo
