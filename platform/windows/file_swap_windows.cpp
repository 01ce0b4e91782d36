#include "platform/windows/file_swap_windows.h"

#include <algorithm>

#include "platform/windows/code_page_windows.h"
#include "platform/windows/file_identity_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {
namespace {

constexpr std::size_t kLongestWrite = 16 * 1024 * 1024;
constexpr DWORD kDiskQuotaExceeded = 1295;

FileTrouble TroubleOf(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
      return FileTrouble::Missing;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
      return FileTrouble::Held;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return FileTrouble::DiskFull;
    default:
      return FileTrouble::Refused;
  }
}

/// Whether the target may be replaced now, asked before much is written in vain. An executable that
/// runs refuses to be opened for writing; some systems would still let it be renamed over.
DWORD CheckTarget(const std::wstring& target) {
  const DWORD attributes = GetFileAttributesW(target.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return ERROR_SUCCESS;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return ERROR_ACCESS_DENIED;
  return OpenShared(target, GENERIC_WRITE | DELETE).Valid() ? ERROR_SUCCESS : GetLastError();
}

/// Whether a file of that name was deleted and is there until a scanner has closed it: on older
/// systems, and on other volumes than NTFS, all access to it is denied meanwhile, the look at its
/// attributes included.
bool Lingers(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES &&
         GetLastError() == ERROR_ACCESS_DENIED;
}

DWORD MakeBeside(const std::wstring& target, const std::wstring& beside, SwapSteps& steps,
                 const MakeContent& make) {
  // One that a killed launcher has left may have the attributes of its target.
  SetFileAttributesW(beside.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (const DWORD error = make(beside)) return error;
  SetFileAttributesW(beside.c_str(), FILE_ATTRIBUTE_NORMAL);
  const KernelHandle file = OpenShared(beside, GENERIC_WRITE);
  if (!file.Valid()) return GetLastError();
  InheritIdentity(target, beside);
  return steps.Flush(file.Get());
}

}  // namespace

FileFault FileFaultOf(DWORD error) {
  return {static_cast<int>(error), SystemMessage(error), TroubleOf(error)};
}

DWORD SwapSteps::Write(HANDLE file, const char* bytes, std::size_t size) {
  while (size > 0) {
    const auto part = static_cast<DWORD>(std::min(size, kLongestWrite));
    DWORD written = 0;
    if (WriteFile(file, bytes, part, &written, nullptr) == 0) return GetLastError();
    if (written == 0) return ERROR_DISK_FULL;
    bytes += written;
    size -= written;
  }
  return ERROR_SUCCESS;
}

DWORD SwapSteps::Flush(HANDLE file) {
  return FlushFileBuffers(file) != 0 ? ERROR_SUCCESS : GetLastError();
}

DWORD SwapSteps::SwapIn(const std::wstring& beside, const std::wstring& target) {
  const DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
  return MoveFileExW(beside.c_str(), target.c_str(), flags) != 0 ? ERROR_SUCCESS : GetLastError();
}

SwapSteps& SystemSteps() {
  static SwapSteps steps;
  return steps;
}

std::optional<FileFault> SwapContent(const std::string& path, const wchar_t* ending,
                                     SwapSteps& steps, const MakeContent& make) {
  const std::wstring target = RealName(WideTextOf(path));
  if (const DWORD error = CheckTarget(target)) return FileFaultOf(error);
  const std::wstring beside = target + ending;
  DWORD error = MakeBeside(target, beside, steps, make);
  const bool complete = error == ERROR_SUCCESS;
  if (complete) error = steps.SwapIn(beside, target);
  if (error == ERROR_SUCCESS) return std::nullopt;
  const bool lingers = error == ERROR_ACCESS_DENIED && Lingers(beside);
  SetFileAttributesW(beside.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileW(beside.c_str());
  FileFault fault = FileFaultOf(error);
  if (lingers || (complete && error == ERROR_ACCESS_DENIED)) fault.trouble = FileTrouble::Held;
  return fault;
}

}  // namespace tarvo
