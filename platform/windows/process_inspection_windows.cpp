#include "platform/windows/process_inspection_windows.h"

#include "platform/windows/code_page_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/path_length.h"

namespace tarvo {
namespace {

constexpr std::uint16_t kArm64 = 0xAA64;
constexpr WORD kSystemOfArm64 = 12;

}  // namespace

std::string WindowsProcessInspection::PathOf(ProcessId id) {
  const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
  if (!process.Valid()) return {};
  std::wstring path(kLongestPath, L'\0');
  DWORD length = kLongestPath;
  if (QueryFullProcessImageNameW(process.Get(), 0, path.data(), &length) == 0) return {};
  path.resize(length);
  return TextOf(path);
}

std::optional<std::uint32_t> WindowsProcessInspection::SessionOf(ProcessId id) {
  DWORD session = 0;
  if (ProcessIdToSessionId(id, &session) == 0) return std::nullopt;
  return session;
}

ProcessId WindowsProcessInspection::OwnId() { return GetCurrentProcessId(); }

bool WindowsProcessInspection::StartsProgramsFor(std::uint16_t processor) {
  SYSTEM_INFO info{};
  GetNativeSystemInfo(&info);
  switch (info.wProcessorArchitecture) {
    case PROCESSOR_ARCHITECTURE_INTEL:
      return processor == IMAGE_FILE_MACHINE_I386;
    case PROCESSOR_ARCHITECTURE_AMD64:
      return processor == IMAGE_FILE_MACHINE_I386 || processor == IMAGE_FILE_MACHINE_AMD64;
    case kSystemOfArm64:
      return processor == IMAGE_FILE_MACHINE_I386 || processor == IMAGE_FILE_MACHINE_AMD64 ||
             processor == IMAGE_FILE_MACHINE_ARMNT || processor == kArm64;
    default:
      return true;  // Nothing is known of it.
  }
}

}  // namespace tarvo
