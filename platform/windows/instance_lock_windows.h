#pragma once

#include <vector>

#include "platform/instance_lock.h"
#include "platform/windows/handle_windows.h"

namespace tarvo {

/// A mutex of the whole machine, owned until the process ends; a mutex that its owner left behind
/// by dying counts as free. One that belongs to another user and may not be opened counts as held.
///
/// The holder's window is found by a property of the lock's name: it goes when the window
/// goes, needs no right that a normal operator lacks, and reaches as far as windows can be shown:
/// to the operator's own session. Windows of a program with more rights are found, but take neither
/// orders nor messages, mostly without a word: so a meaningless message is posted first, to find
/// out.
class WindowsInstanceLock : public InstanceLock {
 public:
  /// Waits 3 seconds for a holder that is ending; one that still shows a published window is not.
  /// The lock belongs to the calling thread: only the main thread asks for it.
  bool Acquire(const std::string& name) override;
  HolderShown ShowHolder(const std::string& name) override;
  void Publish(const std::string& name, std::intptr_t window) override;

 private:
  std::vector<KernelHandle> held_;
  bool refused_ = false;  ///< The mutex that `Acquire` asked for last could not be opened.
};

/// The window that a lock's holder has published, wherever this program can see it; nullptr for
/// none.
HWND PublishedWindow(const std::string& name);

/// Whether any program has the lock, or is about to.
bool IsLockHeld(const std::string& name);

/// What the system's error for a message to the holder's window says of it; ERROR_SUCCESS for a
/// message that went there.
HolderShown HolderBehind(DWORD error);

}  // namespace tarvo
