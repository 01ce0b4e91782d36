#include "platform/windows/files_windows.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>

#include "platform/windows/code_page_windows.h"
#include "platform/windows/file_identity_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"

namespace tarvo {
namespace {

constexpr std::uint64_t kLargestText = std::numeric_limits<std::int32_t>::max() - 1;
constexpr DWORD kLongestRead = 16 * 1024 * 1024;

std::string Lowered(std::string text) { return WindowsCodePage().Lowered(std::move(text)); }

bool EndsWith(const std::string& name, const std::string& loweredEnding) {
  return name.size() >= loweredEnding.size() &&
         Lowered(name.substr(name.size() - loweredEnding.size())) == loweredEnding;
}

}  // namespace

bool WindowsFileReader::Exists(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

ReadResult ReadBeginningOf(const std::string& path, std::uint64_t most, bool wholeOnly,
                           std::string& text) {
  const KernelHandle file =
      OpenShared(WideTextOf(path), GENERIC_READ, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
  if (!file.Valid()) return MeansMissing(GetLastError()) ? ReadResult::Missing : ReadResult::Failed;
  LARGE_INTEGER size{};
  if (GetFileSizeEx(file.Get(), &size) == 0) return ReadResult::Failed;
  const auto length = static_cast<std::uint64_t>(size.QuadPart);
  if (wholeOnly && length > most) return ReadResult::Failed;
  try {
    std::string content(static_cast<std::size_t>(std::min(length, most)), '\0');
    std::size_t done = 0;
    while (done < content.size()) {
      const std::size_t rest = std::min<std::size_t>(content.size() - done, kLongestRead);
      DWORD count = 0;
      if (ReadFile(file.Get(), content.data() + done, static_cast<DWORD>(rest), &count, nullptr) ==
          0) {
        return ReadResult::Failed;
      }
      if (count == 0) break;  // The file became shorter meanwhile.
      done += count;
    }
    content.resize(done);
    text = std::move(content);
  } catch (const std::bad_alloc&) {
    return ReadResult::Failed;  // A 32-bit program runs out of room long before the limit.
  }
  return ReadResult::Ok;
}

ReadResult WindowsFileReader::ReadText(const std::string& path, std::string& text) {
  return ReadBeginningOf(path, kLargestText, true, text);
}

bool WindowsFileAppender::AppendText(const std::string& path, const std::string& text) {
  const KernelHandle file(CreateFileA(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                      OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.Valid()) return false;
  const auto size = static_cast<DWORD>(text.size());
  DWORD written = 0;
  return WriteFile(file.Get(), text.data(), size, &written, nullptr) != 0 && written == size;
}

std::vector<std::string> WindowsFolderLister::FilesEndingWith(const std::string& folder,
                                                              const std::string& ending) {
  std::vector<std::string> names;
  WIN32_FIND_DATAA entry{};
  const FindHandle search(FindFirstFileA((folder + "\\*").c_str(), &entry));
  if (!search.Valid()) return names;
  const std::string loweredEnding = Lowered(ending);
  do {
    const std::string name = entry.cFileName;
    const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!isFolder && EndsWith(name, loweredEnding)) names.push_back(name);
  } while (FindNextFileA(search.Get(), &entry) != 0);
  return names;
}

std::optional<FileFault> WindowsFileDiagnosis::WhyUnreadable(const std::string& path) {
  const KernelHandle file = OpenShared(WideTextOf(path), GENERIC_READ);
  if (file.Valid()) return std::nullopt;
  const DWORD error = GetLastError();
  if (MeansMissing(error)) return std::nullopt;
  return FileFault{static_cast<int>(error), SystemMessage(error)};
}

bool WindowsWorkingFolder::MoveInto(const std::string& folder) {
  return SetCurrentDirectoryA(folder.c_str()) != 0;
}

}  // namespace tarvo
