#include "platform/windows/file_copies_windows.h"

#include <cstdint>

#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {
namespace {

using Outcome = std::optional<CopyFault>;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD kDiskQuotaExceeded = 1295;
constexpr std::int64_t kTicksInSecond = 10000000;  // Of 100 ns.
constexpr std::int64_t kSecondsFrom1601To1970 = 11644473600;

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

CopyFault FaultOf(DWORD error) {
  return {TroubleOf(error), {static_cast<int>(error), SystemMessage(error)}};
}

KernelHandle Open(const std::string& path, DWORD access, DWORD share) {
  return KernelHandle(CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Whether the target may be replaced now, asked before a long copy is made in vain. An executable
/// that runs refuses to be opened for writing; some systems would still let it be renamed over.
Outcome CheckTarget(const std::string& target) {
  const DWORD attributes = GetFileAttributesA(target.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) return FaultOf(ERROR_ACCESS_DENIED);
  const KernelHandle file = Open(target, GENERIC_WRITE | DELETE, kShareAll);
  if (file.Valid()) return std::nullopt;
  return FaultOf(GetLastError());
}

/// What was just copied must be on the disk before it takes the old file's place.
Outcome Settle(const std::string& copy) {
  SetFileAttributesA(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
  const KernelHandle file = Open(copy, GENERIC_WRITE, FILE_SHARE_READ);
  if (file.Valid() && FlushFileBuffers(file.Get()) != 0) return std::nullopt;
  return FaultOf(GetLastError());
}

Outcome CopyBeside(const std::string& source, const std::string& copy) {
  // Held open so that nobody begins to write it meanwhile.
  const KernelHandle guard = Open(source, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE);
  if (!guard.Valid()) return FaultOf(GetLastError());
  SetFileAttributesA(copy.c_str(), FILE_ATTRIBUTE_NORMAL);  // One that a killed launcher has left.
  if (CopyFileA(source.c_str(), copy.c_str(), FALSE) == 0) return FaultOf(GetLastError());
  return Settle(copy);
}

Outcome SwapIn(const std::string& copy, const std::string& target) {
  if (MoveFileExA(copy.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0) {
    return std::nullopt;
  }
  CopyFault fault = FaultOf(GetLastError());
  // The target could be written a moment ago: somebody has opened or started it since.
  if (fault.reason.number == ERROR_ACCESS_DENIED) fault.trouble = FileTrouble::Held;
  return fault;
}

}  // namespace

Outcome WindowsFileCopies::ReadLastModified(const std::string& path,
                                            std::chrono::sys_seconds& time) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) == 0) {
    return FaultOf(GetLastError());
  }
  const std::int64_t ticks =
      (static_cast<std::int64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
      static_cast<std::int64_t>(data.ftLastWriteTime.dwLowDateTime);
  time = std::chrono::sys_seconds(
      std::chrono::seconds(ticks / kTicksInSecond - kSecondsFrom1601To1970));
  return std::nullopt;
}

Outcome WindowsFileCopies::CopyOver(const std::string& source, const std::string& target) {
  if (Outcome fault = CheckTarget(target)) return fault;
  const std::string copy = target + ".tarvo-copy";
  Outcome fault = CopyBeside(source, copy);
  if (!fault) fault = SwapIn(copy, target);
  if (fault) DeleteFileA(copy.c_str());
  return fault;
}

bool WindowsFileCopies::FolderExists(const std::string& path) {
  return IsFolder(GetFileAttributesA(path.c_str()));
}

Outcome WindowsFileCopies::MakeFolder(const std::string& path) {
  if (CreateDirectoryA(path.c_str(), nullptr) != 0) return std::nullopt;
  return FaultOf(GetLastError());
}

}  // namespace tarvo
