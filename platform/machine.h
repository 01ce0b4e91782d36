#pragma once

#include <string>

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/document_opener.h"
#include "platform/event_log.h"
#include "platform/file_copies.h"
#include "platform/file_dialog.h"
#include "platform/file_inspection.h"
#include "platform/files.h"
#include "platform/foreign_windows.h"
#include "platform/icons.h"
#include "platform/instance_lock.h"
#include "platform/launcher_call.h"
#include "platform/memory_status.h"
#include "platform/message_boxes.h"
#include "platform/network_inspection.h"
#include "platform/notification_area.h"
#include "platform/process_inspection.h"
#include "platform/processes.h"
#include "platform/random_source.h"
#include "platform/registry.h"
#include "platform/scripts.h"
#include "platform/self_restart.h"
#include "platform/sockets.h"

namespace tarvo {

/// Every port that the launcher is started with. Only `app/` sees them together; each subsystem
/// takes the ones that it needs.
struct Machine {
  Registry& registry;
  FileReader& fileReader;
  FileAppender& fileAppender;
  FolderLister& folderLister;
  Processes& processes;
  ForeignWindows& foreignWindows;
  Sockets& sockets;
  LocalClock& localClock;
  TickClock& tickClock;
  MemoryStatus& memoryStatus;
  MessageBoxes& messageBoxes;
  InstanceLock& instanceLock;
  NotificationArea& notificationArea;
  Icons& icons;
  CodePage& codePage;
  FileCopies& fileCopies;
  FileDialog& fileDialog;
  FileReplacer& fileReplacer;
  EventLog& eventLog;
  RandomSource& random;
  DocumentOpener& documents;
  WorkingFolder& workingFolder;
  FileDiagnosis& fileDiagnosis;
  SelfRestart& selfRestart;
  Scripts& scripts;
  AnswerLines& answerLines;
  FileInspection& fileInspection;
  ProcessInspection& processInspection;
  NetworkInspection& networkInspection;
  Clipboard& clipboard;
  std::string executablePath;  ///< Full path of the launcher's own executable.
  /// False when the path has letters that the system's code page does not have: `executablePath`,
  /// which has others in their place, names nothing then, or something else.
  bool pathInCodePage = true;
  /// The folder that the executable stands in, without a "\\" at its end. It is the same by
  /// whatever name the program was started: a short name, a substituted drive, a junction, a share.
  std::string realFolder;
};

}  // namespace tarvo
