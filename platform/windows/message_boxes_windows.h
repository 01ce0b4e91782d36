#pragma once

#include <cstdint>

#include "platform/message_boxes.h"

namespace tarvo {

/// The message boxes of user32. A box blocks the owner's window alone; with no owner, every window
/// of the program. Either way it comes to the front.
///
/// A box of a hidden owner would have no button in the taskbar, and might be hidden by the windows
/// of other programs for ever: it is shown without an owner, above all others, with the owner's
/// icon.
class WindowsMessageBoxes : public MessageBoxes {
 public:
  /// The window that the next boxes belong to, as its handle; 0 for none. It must outlive them.
  void SetOwner(std::intptr_t window) { owner_ = window; }
  Answer Ask(const MessageBoxRequest& request) override;

 private:
  std::intptr_t owner_ = 0;
};

}  // namespace tarvo
