#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/files.h"

namespace tarvo {

/// What a system error number means for a file.
FileFault FileFaultOf(DWORD error);

/// The steps by which a new content takes an old one's place. Each returns the system's error
/// number, 0 when it is done. Tests let one of them fail or be the last.
class SwapSteps {
 public:
  virtual ~SwapSteps() = default;
  /// Writes all of the bytes, into an open file.
  virtual DWORD Write(HANDLE file, const char* bytes, std::size_t size);
  /// Returns when the file's content is on the disk.
  virtual DWORD Flush(HANDLE file);
  /// Renames `beside` over `target`, in one step of the file system.
  virtual DWORD SwapIn(const std::wstring& beside, const std::wstring& target);
};

/// The system's own steps.
SwapSteps& SystemSteps();

/// Makes a file under the name that it is given, creating or replacing it; the system's error
/// number, 0 when it is done.
using MakeContent = std::function<DWORD(const std::wstring& beside)>;

/// Gives the file `path`, or the one that its link leads to, a new content: `make` makes it beside
/// that file, under its name and `ending`; it is given the old file's identity, flushed and renamed
/// over it. A process ended in between leaves the old file as it was, and what lies beside is taken
/// over by the next call. On a fault nothing is left beside.
///
/// The rename is used and not the system's `ReplaceFile`, which keeps the identity by itself, but
/// renames twice: ended or refused in between it leaves no file of that name.
///
/// A target that is read-only or a folder is refused, one that is open in a program which does not
/// share it for writing and deletion is held; both show before anything is written. Access that is
/// denied at the rename counts as held, since the target could be opened a moment ago: somebody has
/// opened or started it since.
std::optional<FileFault> SwapContent(const std::string& path, const wchar_t* ending,
                                     SwapSteps& steps, const MakeContent& make);

}  // namespace tarvo
