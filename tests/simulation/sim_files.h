#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// Files in memory, by full path; letter case in paths does not matter.
class SimFiles final : public FileReader,
                       public FileReplacer,
                       public FileAppender,
                       public FolderLister {
 public:
  explicit SimFiles(CallRecorder& recorder) : recorder_(recorder) {}

  bool Exists(const std::string& path) override;
  ReadResult ReadText(const std::string& path, std::string& text) override;
  /// Two moments at which the launcher can be killed, "files.replace" and "files.swap": after
  /// either the old file is there as it was.
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override;
  bool AppendText(const std::string& path, const std::string& text) override;
  std::vector<std::string> FilesEndingWith(const std::string& folder,
                                           const std::string& ending) override;

  void Put(const std::string& path, std::string text);
  void Remove(const std::string& path);
  bool Has(const std::string& path) const;
  /// What the file holds; "" when there is none.
  std::string TextOf(const std::string& path) const;

  /// The file is there, but reading it fails.
  void LockForReading(const std::string& path);
  void Unlock(const std::string& path);
  /// The file can be read and cannot be replaced: access is denied.
  void ProtectFromWriting(const std::string& path, bool protect = true);
  /// Every append fails, as in a folder without the right to write or on a full disk.
  void RefuseAppends(bool refuse) { refuseAppends_ = refuse; }
  /// Appends succeed and leave nothing behind, for runs of months.
  void DropAppends() { dropAppends_ = true; }

 private:
  struct File {
    std::string path;
    std::string text;
  };
  File* Find(const std::string& path);

  CallRecorder& recorder_;
  std::vector<File> files_;  // In the order of their making, which is the order of listing.
  std::set<std::string> locked_;
  std::set<std::string> protected_;
  bool refuseAppends_ = false;
  bool dropAppends_ = false;
};

}  // namespace tarvo
