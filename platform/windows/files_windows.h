#pragma once

#include <cstdint>

#include "platform/files.h"

namespace tarvo {

/// The file's first bytes, `most` at most; of a longer one nothing when `wholeOnly`. Missing when
/// file or folder are not there; Failed as well when memory runs out.
ReadResult ReadBeginningOf(const std::string& path, std::uint64_t most, bool wholeOnly,
                           std::string& text);

/// Whole files by CreateFileW. A file is opened so that others may read, write, rename or delete it
/// meanwhile: looking at a configuration never stops a server or an editor.
class WindowsFileReader : public FileReader {
 public:
  /// A folder of that name is no file.
  bool Exists(const std::string& path) override;
  /// Missing when file or folder are not there; Failed as well for 2 GB and more.
  ReadResult ReadText(const std::string& path, std::string& text) override;
};

/// Appends by one write that the system itself puts at the end of the file; others may read
/// meanwhile.
class WindowsFileAppender : public FileAppender {
 public:
  bool AppendText(const std::string& path, const std::string& text) override;
};

class WindowsFolderLister : public FolderLister {
 public:
  /// Compares the long name's end, so that "a.exe2", whose short name ends with ".EXE", is left
  /// out.
  std::vector<std::string> FilesEndingWith(const std::string& folder,
                                           const std::string& ending) override;
};

class WindowsFileDiagnosis final : public FileDiagnosis {
 public:
  std::optional<FileFault> WhyUnreadable(const std::string& path) override;
};

class WindowsWorkingFolder final : public WorkingFolder {
 public:
  bool MoveInto(const std::string& folder) override;
};

}  // namespace tarvo
