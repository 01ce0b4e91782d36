#include "tests/simulation/sim_file_copies.h"

#include <algorithm>

#include "support/text.h"

namespace tarvo {

std::optional<FileFault> SimFileCopies::ReadLastModified(const std::string& path,
                                                         std::chrono::sys_seconds& time) {
  recorder_.Note("copies.date(" + path + ")");
  if (!files_.Has(path)) return Fault(FileTrouble::Missing, 2, "File not found");
  time = std::chrono::sys_seconds(std::chrono::seconds(DateOf(path)));
  return std::nullopt;
}

std::optional<FileFault> SimFileCopies::Obstacle(const std::string& source,
                                                 const std::string& target) {
  if (copiesUntilFault_ > 0 && --copiesUntilFault_ == 0) return scripted_;
  if (IsFolder(target) || Denied(target)) return Fault(FileTrouble::Refused, 5, "Access is denied");
  if (Held(target)) return Fault(FileTrouble::Held, 32, "The file is in use");
  if (IsFolder(source)) return Fault(FileTrouble::Refused, 5, "Access is denied");
  if (!files_.Has(source)) return Fault(FileTrouble::Missing, 2, "File not found");
  if (files_.DiskFull()) {
    return Fault(FileTrouble::DiskFull, 112, "There is not enough space on the disk");
  }
  return std::nullopt;
}

std::optional<FileFault> SimFileCopies::CopyOver(const std::string& source,
                                                 const std::string& target) {
  recorder_.Note("copies.copy(" + source + " to " + target + ")");
  files_.SpendAttempt();
  if (auto fault = Obstacle(source, target)) return fault;
  const std::string beside = files_.RealPath(target) + ".tarvo-copy";
  const std::string text = files_.TextOf(source);
  files_.Put(beside, text.substr(0, text.size() / 2));
  recorder_.Note("copies.write(" + beside + ")");
  files_.Put(beside, text);
  recorder_.Note("copies.swap(" + target + ")");
  files_.Remove(beside);
  files_.Put(target, text);
  SetDate(target, DateOf(source));
  return std::nullopt;
}

bool SimFileCopies::SameFile(const std::string& one, const std::string& other) {
  recorder_.Note("copies.same(" + one + " and " + other + ")");
  return files_.Has(one) && LowerCase(files_.RealPath(one)) == LowerCase(files_.RealPath(other));
}

std::optional<FileFault> SimFileCopies::Remove(const std::string& path) {
  recorder_.Note("copies.remove(" + path + ")");
  if (!files_.Has(path)) return Fault(FileTrouble::Missing, 2, "File not found");
  if (Held(path)) return Fault(FileTrouble::Held, 32, "The file is in use");
  files_.Remove(path);
  return std::nullopt;
}

bool SimFileCopies::FolderExists(const std::string& path) {
  recorder_.Note("copies.folderExists(" + path + ")");
  return IsFolder(path);
}

std::optional<FileFault> SimFileCopies::MakeFolder(const std::string& path) {
  recorder_.Note("copies.makeFolder(" + path + ")");
  if (files_.Has(path)) return Fault(FileTrouble::Refused, 183, "The file already exists");
  if (Denied(path)) return Fault(FileTrouble::Refused, 5, "Access is denied");
  PutFolder(path);
  return std::nullopt;
}

void SimFileCopies::SetDate(const std::string& path, std::int64_t seconds) {
  dates_[LowerCase(files_.RealPath(path))] = seconds;
}

std::int64_t SimFileCopies::DateOf(const std::string& path) const {
  const auto found = dates_.find(LowerCase(files_.RealPath(path)));
  return found == dates_.end() ? 0 : found->second;
}

void SimFileCopies::PutFolder(const std::string& path) { folders_.insert(LowerCase(path)); }

void SimFileCopies::FailCopy(int n, FileTrouble trouble, int number, const std::string& words) {
  copiesUntilFault_ = n;
  scripted_ = Fault(trouble, number, words);
}

void SimFileCopies::DenyWriting(const std::string& folder) {
  denied_.push_back(LowerCase(folder) + "\\");
}

bool SimFileCopies::Held(const std::string& path) {
  const std::string wanted = LowerCase(path);
  const auto& running = processes_.Running();
  return files_.Held(path) ||
         std::any_of(running.begin(), running.end(),
                     [&](const SimProcess& one) { return LowerCase(one.path) == wanted; });
}

bool SimFileCopies::Denied(const std::string& path) const {
  const std::string lower = LowerCase(path);
  return std::any_of(denied_.begin(), denied_.end(),
                     [&](const std::string& folder) { return lower.starts_with(folder); });
}

bool SimFileCopies::IsFolder(const std::string& path) const {
  return path.ends_with('\\') || folders_.contains(LowerCase(path));
}

}  // namespace tarvo
