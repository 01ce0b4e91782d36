#include "platform/windows/file_diagnosis_windows.h"

#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {

std::optional<FileFault> WindowsFileDiagnosis::WhyUnreadable(const std::string& path) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const KernelHandle file(
      CreateFileA(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  if (file.Valid()) return std::nullopt;
  const DWORD error = GetLastError();
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return std::nullopt;
  return FileFault{static_cast<int>(error), SystemMessage(error)};
}

}  // namespace tarvo
