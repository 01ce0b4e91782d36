#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/file_inspection.h"
#include "platform/windows/late_answer.h"

namespace tarvo {

/// Looks by handles that ask for attributes alone, each on a thread of its own; a look without an
/// answer stays open, and the next one at the same path waits for that answer. An answer that
/// nobody has waited for for two seconds is an old one, and is asked for again.
class WindowsFileInspection : public FileInspection {
 public:
  /// What asks the system; runs on any thread.
  using Look = FileLook (*)(const std::wstring& path);

  explicit WindowsFileInspection(Look look = &LookNow) : look_(look) {}

  FileLook LookAt(const std::string& path, std::uint32_t milliseconds) override;
  ReadResult ReadBeginning(const std::string& path, std::size_t most, std::string& text) override;
  /// Opens file or folder with the right that is asked for, which changes nothing.
  std::optional<FileFault> WhyUnwritable(const std::string& path) override;
  std::optional<std::uint64_t> FreeSpace(const std::string& folder) override;

 private:
  struct OpenLook {
    LateAnswer<FileLook> answer;
    std::uint64_t waitedFor = 0;  ///< The tick count when somebody last began to.
  };

  static FileLook LookNow(const std::wstring& path);

  Look look_;
  std::map<std::string, OpenLook> open_;
};

}  // namespace tarvo
