#include "platform/windows/document_opener_windows.h"

#include <windows.h>

#include <shellapi.h>

namespace tarvo {
namespace {

/// ShellExecute's answers up to this number are errors.
constexpr INT_PTR kLastError = 32;

bool Run(const char* program, const char* parameters) {
  return reinterpret_cast<INT_PTR>(ShellExecuteA(nullptr, nullptr, program, parameters, nullptr,
                                                 SW_SHOWNORMAL)) > kLastError;
}

}  // namespace

bool WindowsDocumentOpener::Open(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY))
    return false;
  return Run(path.c_str(), nullptr) || Run("notepad.exe", ("\"" + path + "\"").c_str());
}

}  // namespace tarvo
