#include "platform/windows/file_copies_windows.h"

#include "platform/windows/code_page_windows.h"
#include "platform/windows/file_identity_windows.h"
#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

using Outcome = std::optional<FileFault>;

bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

DWORD CopyBeside(const std::wstring& source, const std::wstring& beside) {
  // Held open so that nobody begins to write it meanwhile.
  const KernelHandle guard(CreateFileW(source.c_str(), GENERIC_READ,
                                       FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                       FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!guard.Valid()) return GetLastError();
  const BOOL copied = CopyFileW(source.c_str(), beside.c_str(), FALSE);
  return copied != 0 ? ERROR_SUCCESS : GetLastError();
}

/// What identifies a file on the machine: its volume and its number there.
std::optional<BY_HANDLE_FILE_INFORMATION> Identify(const std::string& path) {
  const KernelHandle file = OpenShared(WideTextOf(path), 0);
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file.Valid() || GetFileInformationByHandle(file.Get(), &found) == 0) return std::nullopt;
  return found;
}

}  // namespace

Outcome WindowsFileCopies::ReadLastModified(const std::string& path,
                                            std::chrono::sys_seconds& time) {
  // By handle: by name the date of a symbolic link would be the link's own.
  const auto found = Identify(path);
  if (found) {
    time = SecondsOf(found->ftLastWriteTime);
    return std::nullopt;
  }
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data) == 0) {
    return FileFaultOf(GetLastError());
  }
  time = SecondsOf(data.ftLastWriteTime);
  return std::nullopt;
}

Outcome WindowsFileCopies::CopyOver(const std::string& source, const std::string& target) {
  return SwapContent(target, L".tarvo-copy", steps_, [&](const std::wstring& beside) {
    return CopyBeside(WideTextOf(source), beside);
  });
}

bool WindowsFileCopies::SameFile(const std::string& one, const std::string& other) {
  const auto first = Identify(one);
  const auto second = Identify(other);
  return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
         first->nFileIndexHigh == second->nFileIndexHigh &&
         first->nFileIndexLow == second->nFileIndexLow;
}

Outcome WindowsFileCopies::Remove(const std::string& path) {
  if (DeleteFileA(path.c_str()) != 0) return std::nullopt;
  return FileFaultOf(GetLastError());
}

bool WindowsFileCopies::FolderExists(const std::string& path) {
  return IsFolder(GetFileAttributesA(path.c_str()));
}

Outcome WindowsFileCopies::MakeFolder(const std::string& path) {
  if (CreateDirectoryA(path.c_str(), nullptr) != 0) return std::nullopt;
  return FileFaultOf(GetLastError());
}

std::optional<FileFault> WindowsFileReplacer::ReplaceText(const std::string& path,
                                                          const std::string& text) {
  return SwapContent(path, L".writing", steps_, [&](const std::wstring& beside) {
    const KernelHandle file(CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.Valid() ? steps_.Write(file.Get(), text.data(), text.size()) : GetLastError();
  });
}

}  // namespace tarvo
