#include "platform/windows/file_inspection_windows.h"

#include <utility>

#include "platform/windows/code_page_windows.h"
#include "platform/windows/file_identity_windows.h"
#include "platform/windows/file_swap_windows.h"
#include "platform/windows/files_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {
namespace {

constexpr ULONGLONG kFreshFor = 2000;

/// A folder as well.
KernelHandle OpenAny(const std::wstring& path, DWORD access) {
  return OpenShared(path, access, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
}

std::uint64_t Joined(DWORD high, DWORD low) {
  return (static_cast<std::uint64_t>(high) << 32) | low;
}

/// Of the errors of a path that cannot be opened: those by which its drive or share is not there.
bool MeansNoAnswer(DWORD error) {
  return error == ERROR_NOT_READY || error == ERROR_BAD_NETPATH || error == ERROR_NETNAME_DELETED ||
         error == ERROR_BAD_NET_NAME || error == ERROR_NETWORK_UNREACHABLE ||
         error == ERROR_SEM_TIMEOUT || error == ERROR_UNEXP_NET_ERR;
}

FileLook LookByName(const std::wstring& path) {
  FileLook look;
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) {
    const bool silent = MeansNoAnswer(GetLastError());
    look.outcome = silent ? FileLook::Outcome::NotAnswered : FileLook::Outcome::Missing;
    return look;
  }
  look.outcome = FileLook::Outcome::There;
  look.isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  look.size = Joined(data.nFileSizeHigh, data.nFileSizeLow);
  look.modified = SecondsOf(data.ftLastWriteTime);
  return look;
}

}  // namespace

FileLook WindowsFileInspection::LookNow(const std::wstring& path) {
  FileLook look = LookByName(path);
  if (look.outcome != FileLook::Outcome::There) return look;
  const KernelHandle file = OpenAny(path, FILE_READ_ATTRIBUTES);
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file.Valid() || GetFileInformationByHandle(file.Get(), &found) == 0) return look;
  look.size = Joined(found.nFileSizeHigh, found.nFileSizeLow);
  look.modified = SecondsOf(found.ftLastWriteTime);
  look.identity = std::to_string(found.dwVolumeSerialNumber) + ":" +
                  std::to_string(Joined(found.nFileIndexHigh, found.nFileIndexLow));
  return look;
}

FileLook WindowsFileInspection::LookAt(const std::string& path, std::uint32_t milliseconds) {
  OpenLook& open = open_[path];
  const ULONGLONG now = GetTickCount64();
  const bool old = open.answer.CameWithin(0) && now - open.waitedFor > kFreshFor;
  if (old || !open.answer.Asked()) {
    open.answer =
        LateAnswer<FileLook>([look = look_, wide = WideTextOf(path)] { return look(wide); });
  }
  open.waitedFor = now;
  FileLook look;
  const bool asked = open.answer.Asked();
  if (asked && !open.answer.CameWithin(milliseconds)) return look;
  if (asked) look = open.answer.Value();
  open_.erase(path);
  return look;
}

ReadResult WindowsFileInspection::ReadBeginning(const std::string& path, std::size_t most,
                                                std::string& text) {
  return ReadBeginningOf(path, most, false, text);
}

std::optional<FileFault> WindowsFileInspection::WhyUnwritable(const std::string& path) {
  const std::wstring wide = WideTextOf(path);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return std::nullopt;
  const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // A folder's attribute of that name does not protect what is in it.
  if (!isFolder && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    return FileFaultOf(ERROR_ACCESS_DENIED);
  }
  const DWORD access = isFolder ? FILE_ADD_FILE : GENERIC_WRITE | DELETE;
  if (OpenAny(wide, access).Valid()) return std::nullopt;
  return FileFaultOf(GetLastError());
}

std::optional<std::uint64_t> WindowsFileInspection::FreeSpace(const std::string& folder) {
  ULARGE_INTEGER free{};
  if (GetDiskFreeSpaceExA((folder + "\\").c_str(), &free, nullptr, nullptr) == 0) {
    return std::nullopt;
  }
  return free.QuadPart;
}

}  // namespace tarvo
