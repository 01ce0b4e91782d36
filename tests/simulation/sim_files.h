#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/files.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_clock.h"

namespace tarvo {

/// Files in memory, by full path; letter case in paths does not matter. Beside its text a file has
/// what it loses when it is removed and made anew: marks, and the links that lead to it.
class SimFiles final : public FileReader,
                       public FileReplacer,
                       public FileAppender,
                       public FolderLister,
                       public FileDiagnosis {
 public:
  SimFiles(CallRecorder& recorder, SimClock& clock, CodePage& codePage)
      : recorder_(recorder), clock_(clock), codePage_(codePage) {}

  bool Exists(const std::string& path) override;
  ReadResult ReadText(const std::string& path, std::string& text) override;
  /// Two moments at which the launcher can be killed, "files.replace" and "files.swap": after
  /// either the old file is there as it was, after the second with a half-written one beside it.
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override;
  bool AppendText(const std::string& path, const std::string& text) override;
  std::vector<std::string> FilesEndingWith(const std::string& folder,
                                           const std::string& ending) override;

  std::optional<FileFault> WhyUnreadable(const std::string& path) override;

  void Put(const std::string& path, std::string text);
  void Remove(const std::string& path);
  bool Has(const std::string& path) const;
  /// The full paths of all files, in the order of their making.
  std::vector<std::string> Paths() const;
  /// What the file holds; "" when there is none.
  std::string TextOf(const std::string& path) const;

  /// Rights, attributes and streams of a file that is there, in the test's own words.
  void Mark(const std::string& path, const std::string& marks);
  std::string MarksOf(const std::string& path) const;
  /// Makes `path` a symbolic link.
  void Link(const std::string& path, const std::string& target) { links_[Lowered(path)] = target; }
  bool IsLink(const std::string& path) const { return links_.contains(Lowered(path)); }
  /// Where the name leads: through its link, or to itself.
  std::string RealPath(const std::string& path) const;

  static constexpr std::uint64_t kForGood = UINT64_MAX / 2;
  /// A scanner has the file open for so long from now on and does not share it for deletion:
  /// everybody can read it, nobody can replace it.
  void Hold(const std::string& path, std::uint64_t milliseconds);
  bool Held(const std::string& path) const;
  /// Each attempt to replace or copy a file takes so long of itself, as on a slow disk. Whether the
  /// file is held shows at its end.
  void SetAttemptTime(std::uint64_t milliseconds) { attemptTime_ = milliseconds; }
  void SpendAttempt() { clock_.Advance(attemptTime_); }

  /// The file is there, but reading it fails: access is denied.
  void LockForReading(const std::string& path);
  void Unlock(const std::string& path);
  /// A file that cannot be read does not even seem to be there, as in a folder without rights.
  void HideLocked() { hideLocked_ = true; }
  /// The file can be read and cannot be replaced: access is denied.
  void ProtectFromWriting(const std::string& path, bool protect = true);
  bool Protected(const std::string& path) const { return protected_.contains(Lowered(path)); }
  bool Unreadable(const std::string& path) const { return locked_.contains(Lowered(path)); }
  /// Whether there is such a folder: one with a file in it, or below it.
  bool HasFolder(const std::string& path) const;
  /// Every append fails, as in a folder without the right to write or on a full disk.
  void RefuseAppends(bool refuse) { refuseAppends_ = refuse; }
  /// The disk is full: nothing can be written, replaced or copied.
  void FillDisk(bool full = true) { diskFull_ = full; }
  bool DiskFull() const { return diskFull_; }
  /// Appends succeed and leave nothing behind, for runs of months.
  void DropAppends() { dropAppends_ = true; }

 private:
  struct File {
    std::string path;
    std::string lowered;  ///< The path, as it is looked for.
    std::string text;
    std::string marks;
  };
  File* Find(const std::string& path);
  std::string Lowered(const std::string& text) const { return codePage_.Lowered(text); }

  CallRecorder& recorder_;
  SimClock& clock_;
  CodePage& codePage_;
  std::uint64_t attemptTime_ = 0;
  std::map<std::string, std::string> links_;
  std::map<std::string, std::uint64_t> heldUntil_;
  std::vector<File> files_;  // In the order of their making, which is the order of listing.
  std::set<std::string> locked_;
  std::set<std::string> protected_;
  bool hideLocked_ = false;
  bool refuseAppends_ = false;
  bool dropAppends_ = false;
  bool diskFull_ = false;
};

}  // namespace tarvo
