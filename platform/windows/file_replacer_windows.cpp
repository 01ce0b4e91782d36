#include "platform/windows/file_replacer_windows.h"

#include <algorithm>

#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {
namespace {

constexpr std::size_t kLongestWrite = 16 * 1024 * 1024;

/// Sets the last error when it is.
bool IsReadOnly(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0) {
    return false;
  }
  SetLastError(ERROR_ACCESS_DENIED);
  return true;
}

}  // namespace

std::optional<FileFault> WindowsFileReplacer::ReplaceText(const std::string& path,
                                                          const std::string& text) {
  const std::string beside = path + ".writing";
  // The rename asks for the mark on Windows alone; nothing need be written to find it out.
  if (!IsReadOnly(path) && WriteBeside(beside, text) && SwapIn(beside, path)) return std::nullopt;
  const DWORD error = GetLastError();
  DeleteFileA(beside.c_str());
  return FileFault{static_cast<int>(error), SystemMessage(error)};
}

bool WindowsFileReplacer::WriteBeside(const std::string& beside, const std::string& text) {
  KernelHandle file(CreateFileA(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.Valid()) return false;
  if (WriteBytes(file.Get(), text.data(), text.size()) && Flush(file.Get())) return true;
  const DWORD error = GetLastError();
  file.Reset();
  SetLastError(error);
  return false;
}

bool WindowsFileReplacer::WriteBytes(void* file, const char* bytes, std::size_t size) {
  while (size > 0) {
    const auto part = static_cast<DWORD>(std::min(size, kLongestWrite));
    DWORD written = 0;
    if (WriteFile(file, bytes, part, &written, nullptr) == 0) return false;
    if (written == 0) {
      SetLastError(ERROR_DISK_FULL);
      return false;
    }
    bytes += written;
    size -= written;
  }
  return true;
}

bool WindowsFileReplacer::Flush(void* file) { return FlushFileBuffers(file) != 0; }

bool WindowsFileReplacer::SwapIn(const std::string& beside, const std::string& path) {
  return MoveFileExA(beside.c_str(), path.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace tarvo
