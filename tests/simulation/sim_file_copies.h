#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_copies.h"
#include "platform/file_dialog.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_files.h"
#include "tests/simulation/sim_processes.h"
#include "tests/simulation/sim_working_folder.h"

namespace tarvo {

/// Copies among the files in memory, with the dates that those do not have. The executable of a
/// process that is still listed is held, as is what a scanner holds. A copy is three calls to the
/// recorder, so that a launcher killed between them leaves what a real one would leave.
class SimFileCopies final : public FileCopies {
 public:
  SimFileCopies(CallRecorder& recorder, SimFiles& files, SimProcesses& processes)
      : recorder_(recorder), files_(files), processes_(processes) {}

  std::optional<FileFault> ReadLastModified(const std::string& path,
                                            std::chrono::sys_seconds& time) override;
  std::optional<FileFault> CopyOver(const std::string& source, const std::string& target) override;
  bool SameFile(const std::string& one, const std::string& other) override;
  std::optional<FileFault> Remove(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  std::optional<FileFault> MakeFolder(const std::string& path) override;

  /// A file's last-modified date: so many seconds after 1970. Without one it is 0.
  void SetDate(const std::string& path, std::int64_t seconds);
  std::int64_t DateOf(const std::string& path) const;
  void PutFolder(const std::string& path);

  /// The n-th copy from now on (1 is the next) fails so, once; those before it succeed.
  void FailCopy(int n, FileTrouble trouble, int number, const std::string& words);
  /// Takes that back.
  void FailNoCopy() { copiesUntilFault_ = 0; }
  /// Nobody may write into this folder, or below it.
  void DenyWriting(const std::string& folder);
  /// Everybody may write everywhere again.
  void AllowWriting() { denied_.clear(); }
  bool Denied(const std::string& path) const;

 private:
  static FileFault Fault(FileTrouble trouble, int number, const std::string& words) {
    return {number, words, trouble};
  }
  bool Held(const std::string& path);
  bool IsFolder(const std::string& path) const;
  std::optional<FileFault> Obstacle(const std::string& source, const std::string& target);

  CallRecorder& recorder_;
  SimFiles& files_;
  SimProcesses& processes_;
  std::map<std::string, std::int64_t> dates_;
  std::set<std::string> folders_;
  std::vector<std::string> denied_;
  int copiesUntilFault_ = 0;
  FileFault scripted_;
};

/// A file dialog that is answered from a script and remembers what it was asked. It makes the
/// folder that it shows the current one, as the system's does.
class SimFileDialog final : public FileDialog {
 public:
  SimFileDialog(CallRecorder& recorder, SimWorkingFolder& workingFolder)
      : recorder_(recorder), workingFolder_(workingFolder) {}

  std::string AskForFile(const OpenFileRequest& request) override {
    recorder_.Note("dialog.ask(" + request.initialName + ")");
    asked.push_back(request);
    workingFolder_.current = "C:\\Users\\operator\\Desktop\\";
    if (auto happens = std::exchange(whileNextIsOpen, nullptr)) happens();
    return answer;
  }

  std::string answer;  ///< "": the operator cancels.
  std::vector<OpenFileRequest> asked;
  /// What happens while the next dialog is open, time passing included.
  std::function<void()> whileNextIsOpen;

 private:
  CallRecorder& recorder_;
  SimWorkingFolder& workingFolder_;
};

}  // namespace tarvo
