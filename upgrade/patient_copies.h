#pragma once

#include <string>

#include "core/patience.h"
#include "platform/clock.h"
#include "platform/file_copies.h"

namespace tarvo {

/// The upgrade's file operations. A file that is held is tried again as `Patience` says. A failure
/// after that, or for any other reason, is a fault of the run time: 53 for what is missing, 61 for
/// a full disk, 70 for a file in use, 75 for everything else; its source names the files, the
/// system's own words for the reason and the system's number.
class PatientCopies {
 public:
  PatientCopies(FileCopies& copies, TickClock& clock) : copies_(copies), patience_(clock) {}

  /// Makes `target` a copy of `source`, the last-modified date included, creating or replacing it.
  void CopyOver(const std::string& source, const std::string& target);

  bool SameFile(const std::string& one, const std::string& other) {
    return copies_.SameFile(one, other);
  }
  /// A file that cannot be removed stays: the caller has no further use for it.
  void Remove(const std::string& path) { copies_.Remove(path); }

  bool FolderExists(const std::string& path) { return copies_.FolderExists(path); }
  void MakeFolder(const std::string& path);

  /// The file's last-modified date as text: "2026-11-21 10:32:07" in universal time, so that
  /// neither the machine's region, nor its time zone, nor summer time makes another text of the
  /// same date.
  std::string DateText(const std::string& path);

 private:
  FileCopies& copies_;
  Patience patience_;
};

}  // namespace tarvo
