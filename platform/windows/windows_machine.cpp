#include "platform/windows/windows_machine.h"

#include "platform/mersenne_random.h"
#include "platform/windows/clipboard_windows.h"
#include "platform/windows/clock_windows.h"
#include "platform/windows/code_page_windows.h"
#include "platform/windows/document_opener_windows.h"
#include "platform/windows/event_log_windows.h"
#include "platform/windows/fault_guard.h"
#include "platform/windows/file_copies_windows.h"
#include "platform/windows/file_dialog_windows.h"
#include "platform/windows/file_identity_windows.h"
#include "platform/windows/file_inspection_windows.h"
#include "platform/windows/files_windows.h"
#include "platform/windows/foreign_windows_windows.h"
#include "platform/windows/icons_windows.h"
#include "platform/windows/instance_lock_windows.h"
#include "platform/windows/launcher_call_windows.h"
#include "platform/windows/memory_status_windows.h"
#include "platform/windows/message_boxes_windows.h"
#include "platform/windows/network_inspection_windows.h"
#include "platform/windows/notification_area_windows.h"
#include "platform/windows/process_inspection_windows.h"
#include "platform/windows/processes_windows.h"
#include "platform/windows/registry_windows.h"
#include "platform/windows/scripts_windows.h"
#include "platform/windows/sockets_windows.h"

namespace tarvo {
std::wstring OwnExecutablePath() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  while (length == path.size()) {  // Cut off: the path is longer.
    path.resize(path.size() * 2);
    length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  }
  path.resize(length);
  return path;
}

std::string RealFolderOf(const std::wstring& executablePath) {
  // With its "\\": a drive without one is its current folder.
  const std::wstring given = executablePath.substr(0, executablePath.rfind(L'\\') + 1);
  std::wstring real = RealName(given);
  constexpr std::wstring_view kShare = L"\\\\?\\UNC\\";
  constexpr std::wstring_view kLongPath = L"\\\\?\\";
  if (real.starts_with(kShare)) {
    real.replace(0, kShare.size(), L"\\\\");
  } else if (real.starts_with(kLongPath)) {
    real.erase(0, kLongPath.size());
  }
  std::string folder = TextOf(real);
  if (WideTextOf(folder) != real) folder = TextOf(given);
  if (folder.ends_with('\\')) folder.pop_back();
  return folder;
}

struct WindowsMachine::Adapters {
  WindowsRegistry registry;
  WindowsFileReader fileReader;
  WindowsFileAppender fileAppender;
  WindowsFolderLister folderLister;
  WindowsProcesses processes;
  WindowsForeignWindows foreignWindows;
  WindowsSockets sockets;
  WindowsLocalClock localClock;
  WindowsTickClock tickClock;
  WindowsMemoryStatus memoryStatus;
  WindowsMessageBoxes messageBoxes;
  WindowsInstanceLock instanceLock;
  WindowsNotificationArea notificationArea;
  WindowsIcons icons;
  WindowsCodePage codePage;
  WindowsFileCopies fileCopies;
  WindowsFileDialog fileDialog;
  WindowsFileReplacer fileReplacer;
  WindowsDocumentOpener documents;
  WindowsWorkingFolder workingFolder;
  WindowsFileDiagnosis fileDiagnosis;
  WindowsEventLog eventLog;
  WindowsSelfRestart selfRestart;
  WindowsScripts scripts;
  WindowsAnswerLines answerLines;
  WindowsFileInspection fileInspection;
  WindowsProcessInspection processInspection;
  WindowsNetworkInspection networkInspection;
  WindowsClipboard clipboard;
  MersenneRandom random;
};

WindowsMachine::WindowsMachine() : adapters_(std::make_unique<Adapters>()) {}
WindowsMachine::~WindowsMachine() = default;

Machine WindowsMachine::Ports() {
  Adapters& all = *adapters_;
  const std::wstring path = OwnExecutablePath();
  const std::string text = TextOf(path);
  return {all.registry,
          all.fileReader,
          all.fileAppender,
          all.folderLister,
          all.processes,
          all.foreignWindows,
          all.sockets,
          all.localClock,
          all.tickClock,
          all.memoryStatus,
          all.messageBoxes,
          all.instanceLock,
          all.notificationArea,
          all.icons,
          all.codePage,
          all.fileCopies,
          all.fileDialog,
          all.fileReplacer,
          all.eventLog,
          all.random,
          all.documents,
          all.workingFolder,
          all.fileDiagnosis,
          all.selfRestart,
          all.scripts,
          all.answerLines,
          all.fileInspection,
          all.processInspection,
          all.networkInspection,
          all.clipboard,
          text,
          WideTextOf(text) == path,
          RealFolderOf(path)};
}

void WindowsMachine::SetOwner(std::intptr_t window) {
  adapters_->messageBoxes.SetOwner(window);
  adapters_->fileDialog.SetOwner(window);
}

}  // namespace tarvo
