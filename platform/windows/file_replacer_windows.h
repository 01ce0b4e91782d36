#pragma once

#include "platform/files.h"

namespace tarvo {

/// Writes to a file beside the target, named as it with ".writing" behind, flushes it to the disk
/// and renames it over the target in one step of the file system. A program ended in between leaves
/// the target as it was; the file beside it is taken over by the next call for that target.
///
/// A target that is read-only, a folder, or open in a program that does not share it for deletion
/// cannot be replaced.
class WindowsFileReplacer : public FileReplacer {
 public:
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override;

 protected:
  // The steps, for tests that let one of them fail or be the last. Each sets the system's last
  // error when it returns false. `file` is a file handle.
  virtual bool WriteBytes(void* file, const char* bytes, std::size_t size);
  virtual bool Flush(void* file);
  virtual bool SwapIn(const std::string& beside, const std::string& path);

 private:
  bool WriteBeside(const std::string& beside, const std::string& text);
};

}  // namespace tarvo
