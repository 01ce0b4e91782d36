#include "platform/windows/file_dialog_windows.h"

#include <windows.h>
// After windows.h, which it needs.
#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

namespace tarvo {
namespace {

constexpr std::size_t kLongestPath = 32768;

/// Name and pattern, each ended by a NUL, and one more at the end.
std::string FilterOf(const OpenFileRequest& request) {
  return request.filterName + '\0' + request.pattern + '\0';
}

/// A name that does not fit into the buffer is left out.
std::vector<char> BufferWith(const std::string& name) {
  std::vector<char> buffer(kLongestPath, '\0');
  if (name.size() < buffer.size()) std::copy(name.begin(), name.end(), buffer.begin());
  return buffer;
}

}  // namespace

std::string WindowsFileDialog::AskForFile(const OpenFileRequest& request) {
  const std::string filter = FilterOf(request);
  std::vector<char> buffer = BufferWith(request.initialName);
  OPENFILENAMEA dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = reinterpret_cast<HWND>(owner_);
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  dialog.Flags =
      OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
  if (GetOpenFileNameA(&dialog) != 0) return buffer.data();
  if (CommDlgExtendedError() != FNERR_INVALIDFILENAME) return {};
  // What stood in the box is no name at all: begin without one.
  buffer.front() = '\0';
  return GetOpenFileNameA(&dialog) != 0 ? std::string(buffer.data()) : std::string();
}

}  // namespace tarvo
