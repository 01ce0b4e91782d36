#include "platform/windows/file_identity_windows.h"

#include <cstdint>
#include <vector>

namespace tarvo {
namespace {

constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// A file's list of rights, as the system hands it out; empty when it cannot be read.
std::vector<char> RightsOf(HANDLE file) {
  DWORD size = 0;
  GetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<char> rights(size);
  if (size == 0 ||
      GetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION, rights.data(), size, &size) == 0) {
    return {};
  }
  return rights;
}

/// Most files have just the rights that their folder gives, and then there is nothing to set.
void InheritRights(const std::wstring& old, const std::wstring& fresh) {
  const KernelHandle from = OpenShared(old, READ_CONTROL);
  const KernelHandle to = OpenShared(fresh, READ_CONTROL | WRITE_DAC);
  if (!from.Valid() || !to.Valid()) return;
  std::vector<char> rights = RightsOf(from.Get());
  if (rights.empty() || rights == RightsOf(to.Get())) return;
  // Entries that came from the folder stay marked as such, and follow it.
  SetSecurityDescriptorControl(rights.data(), SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
  SetKernelObjectSecurity(to.Get(), DACL_SECURITY_INFORMATION, rights.data());
}

void CopyStream(const std::wstring& from, const std::wstring& to) {
  const KernelHandle source = OpenShared(from, GENERIC_READ);
  const KernelHandle target = OpenShared(to, GENERIC_WRITE, CREATE_NEW);
  char block[16384];
  DWORD count = 0;
  DWORD written = 0;
  while (source.Valid() && target.Valid() &&
         ReadFile(source.Get(), block, sizeof block, &count, nullptr) != 0 && count > 0) {
    if (WriteFile(target.Get(), block, count, &written, nullptr) == 0) return;
  }
}

void InheritStreams(const std::wstring& old, const std::wstring& fresh) {
  WIN32_FIND_STREAM_DATA stream{};
  const FindHandle search(FindFirstStreamW(old.c_str(), FindStreamInfoStandard, &stream, 0));
  if (!search.Valid()) return;
  do {
    const std::wstring name = stream.cStreamName;
    if (name.compare(0, 2, L"::") != 0) CopyStream(old + name, fresh + name);
  } while (FindNextStreamW(search.Get(), &stream) != 0);
}

void InheritCreation(const FILETIME& created, const FILETIME& written, const std::wstring& fresh) {
  const KernelHandle file = OpenShared(fresh, FILE_WRITE_ATTRIBUTES);
  if (file.Valid()) SetFileTime(file.Get(), &created, nullptr, &written);
}

}  // namespace

KernelHandle OpenShared(const std::wstring& path, DWORD access, DWORD disposition, DWORD flags) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return KernelHandle(
      CreateFileW(path.c_str(), access, kShareAll, nullptr, disposition, flags, nullptr));
}

std::chrono::sys_seconds SecondsOf(const FILETIME& time) {
  constexpr std::int64_t kTicksInSecond = 10000000;
  constexpr std::int64_t kSecondsFrom1601To1970 = 11644473600;
  const std::int64_t ticks = (static_cast<std::int64_t>(time.dwHighDateTime) << 32) |
                             static_cast<std::int64_t>(time.dwLowDateTime);
  return std::chrono::sys_seconds(
      std::chrono::seconds(ticks / kTicksInSecond - kSecondsFrom1601To1970));
}

std::wstring RealName(const std::wstring& path) {
  // The flag opens folders, too.
  const KernelHandle file = OpenShared(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
  const DWORD size =
      file.Valid() ? GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED) : 0;
  if (size == 0) return path;
  std::wstring real(size, L'\0');
  real.resize(GetFinalPathNameByHandleW(file.Get(), real.data(), size, FILE_NAME_NORMALIZED));
  return real.empty() || real.size() >= size ? path : real;
}

void InheritIdentity(const std::wstring& old, const std::wstring& fresh) {
  WIN32_FILE_ATTRIBUTE_DATA was{};
  WIN32_FILE_ATTRIBUTE_DATA is{};
  if (GetFileAttributesExW(old.c_str(), GetFileExInfoStandard, &was) == 0) return;
  if (GetFileAttributesExW(fresh.c_str(), GetFileExInfoStandard, &is) == 0) return;
  InheritStreams(old, fresh);
  InheritRights(old, fresh);
  // After the streams, whose writing changes the date.
  InheritCreation(was.ftCreationTime, is.ftLastWriteTime, fresh);
  const DWORD kept = was.dwFileAttributes & kKeptAttributes;
  SetFileAttributesW(fresh.c_str(), kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL);
}

}  // namespace tarvo
