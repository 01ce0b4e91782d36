#include "platform/windows/file_replacer_windows.h"

#include "platform/windows/handle_windows.h"

namespace tarvo {

std::optional<FileFault> WindowsFileReplacer::ReplaceText(const std::string& path,
                                                          const std::string& text) {
  return SwapContent(path, L".writing", steps_, [&](const std::wstring& beside) {
    const KernelHandle file(CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.Valid() ? steps_.Write(file.Get(), text.data(), text.size()) : GetLastError();
  });
}

}  // namespace tarvo
