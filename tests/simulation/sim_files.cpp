#include "tests/simulation/sim_files.h"

#include <algorithm>

#include "core/server_root.h"

namespace tarvo {

SimFiles::File* SimFiles::Find(const std::string& path) {
  const std::string wanted = Lowered(RealPath(path));
  const auto found = std::find_if(files_.begin(), files_.end(),
                                  [&](const File& file) { return file.lowered == wanted; });
  return found == files_.end() ? nullptr : &*found;
}

bool SimFiles::Exists(const std::string& path) {
  recorder_.Note("files.exists(" + path + ")");
  return Find(path) != nullptr && !(hideLocked_ && locked_.contains(Lowered(path)));
}

ReadResult SimFiles::ReadText(const std::string& path, std::string& text) {
  recorder_.Note("files.read(" + path + ")");
  const File* file = Find(path);
  if (!file) return ReadResult::Missing;
  if (locked_.contains(Lowered(path))) return ReadResult::Failed;
  text = file->text;
  return ReadResult::Ok;
}

std::optional<FileFault> SimFiles::WhyUnreadable(const std::string& path) {
  recorder_.Note("files.whyUnreadable(" + path + ")");
  if (!locked_.contains(Lowered(path))) return std::nullopt;
  return FileFault{5, "Access is denied"};
}

std::optional<FileFault> SimFiles::ReplaceText(const std::string& path, const std::string& text) {
  recorder_.Note("files.replace(" + path + ")");
  SpendAttempt();
  if (protected_.contains(Lowered(path))) return FileFault{5, "Access is denied."};
  if (Held(path)) return FileFault{32, "The file is in use", FileTrouble::Held};
  if (diskFull_) {
    return FileFault{112, "There is not enough space on the disk", FileTrouble::DiskFull};
  }
  const std::string beside = RealPath(path) + ".writing";
  Put(beside, text.substr(0, text.size() / 2));
  recorder_.Note("files.swap(" + path + ")");
  Remove(beside);
  Put(path, text);
  return std::nullopt;
}

bool SimFiles::AppendText(const std::string& path, const std::string& text) {
  recorder_.Note("files.append(" + path + ")");
  if (refuseAppends_ || diskFull_) return false;
  if (dropAppends_) return true;
  if (File* file = Find(path)) {
    file->text += text;
  } else {
    files_.push_back({RealPath(path), Lowered(RealPath(path)), text, {}});
  }
  return true;
}

std::vector<std::string> SimFiles::FilesEndingWith(const std::string& folder,
                                                   const std::string& ending) {
  recorder_.Note("files.list(" + folder + ")");
  const std::string beginning = Lowered(folder) + "\\";
  std::vector<std::string> names;
  for (const File& file : files_) {
    const std::string& lower = file.lowered;
    const bool inFolder = lower.starts_with(beginning) &&
                          SeparatorsIn(lower, codePage_).back() == beginning.size() - 1;
    if (inFolder && lower.ends_with(Lowered(ending))) {
      names.push_back(file.path.substr(beginning.size()));
    }
  }
  return names;
}

void SimFiles::Put(const std::string& path, std::string text) {
  if (File* file = Find(path)) {
    file->text = std::move(text);
  } else {
    files_.push_back({RealPath(path), Lowered(RealPath(path)), std::move(text), {}});
  }
}

void SimFiles::Remove(const std::string& path) {
  if (links_.erase(Lowered(path)) > 0) return;
  if (const File* file = Find(path)) files_.erase(files_.begin() + (file - files_.data()));
}

bool SimFiles::Has(const std::string& path) const {
  return const_cast<SimFiles*>(this)->Find(path) != nullptr;
}

bool SimFiles::HasFolder(const std::string& path) const {
  std::string beginning = Lowered(path);
  if (!beginning.ends_with('\\')) beginning += '\\';
  return std::any_of(files_.begin(), files_.end(),
                     [&](const File& file) { return file.lowered.starts_with(beginning); });
}

std::vector<std::string> SimFiles::Paths() const {
  std::vector<std::string> paths;
  for (const File& file : files_) paths.push_back(file.path);
  return paths;
}

std::string SimFiles::TextOf(const std::string& path) const {
  const File* file = const_cast<SimFiles*>(this)->Find(path);
  return file ? file->text : std::string();
}

void SimFiles::Mark(const std::string& path, const std::string& marks) {
  if (File* file = Find(path)) file->marks = marks;
}

std::string SimFiles::MarksOf(const std::string& path) const {
  const File* file = const_cast<SimFiles*>(this)->Find(path);
  return file ? file->marks : std::string();
}

std::string SimFiles::RealPath(const std::string& path) const {
  const auto found = links_.find(Lowered(path));
  return found == links_.end() ? path : found->second;
}

void SimFiles::Hold(const std::string& path, std::uint64_t milliseconds) {
  heldUntil_[Lowered(RealPath(path))] = clock_.Age() + milliseconds;
}

bool SimFiles::Held(const std::string& path) const {
  const auto found = heldUntil_.find(Lowered(RealPath(path)));
  return found != heldUntil_.end() && clock_.Age() < found->second;
}

void SimFiles::LockForReading(const std::string& path) { locked_.insert(Lowered(path)); }

void SimFiles::Unlock(const std::string& path) { locked_.erase(Lowered(path)); }

void SimFiles::ProtectFromWriting(const std::string& path, bool protect) {
  if (protect) {
    protected_.insert(Lowered(path));
  } else {
    protected_.erase(Lowered(path));
  }
}

}  // namespace tarvo
