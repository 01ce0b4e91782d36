#include "platform/windows/file_dialog_windows.h"

#include <windows.h>
// After windows.h, which it needs.
#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "platform/windows/path_length.h"
#include "platform/windows/system_libraries.h"

namespace tarvo {
namespace {

constexpr char kDialogLibrary[] = "comdlg32.dll";

/// The system's open dialog. No start needs its library, and that brings many others with it.
bool OpenDialog(OPENFILENAMEA& record) {
  static const auto call =
      LateCall<decltype(&GetOpenFileNameA)>(kDialogLibrary, "GetOpenFileNameA");
  return call && call(&record) != 0;
}

DWORD WhyNoFile() {
  static const auto call =
      LateCall<decltype(&CommDlgExtendedError)>(kDialogLibrary, "CommDlgExtendedError");
  return call ? call() : 0;
}

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
  if (OpenDialog(dialog)) return buffer.data();
  if (WhyNoFile() != FNERR_INVALIDFILENAME) return {};
  // What stood in the box is no name at all: begin without one.
  buffer.front() = '\0';
  return OpenDialog(dialog) ? std::string(buffer.data()) : std::string();
}

}  // namespace tarvo
