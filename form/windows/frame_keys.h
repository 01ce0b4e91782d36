#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "toolkit/windows/panel.h"
#include "toolkit/windows/tab_widget.h"

namespace tarvo {

bool IsKeyDown(int key);

/// Enter presses the focused button; in a field it does nothing, there being nothing to confirm.
/// True when the message was such a key.
bool TakeEnterKey(const MSG& message);

/// The keys that mean the same wherever the focus is: those of the pages, of the log's search, and
/// the access keys.
class FrameKeys {
 public:
  /// `shownPage` gives the page of the chosen tab, `log` the window of the log.
  FrameKeys(HWND window, TabWidget& tabs, std::function<Panel&()> shownPage,
            std::function<HWND()> log)
      : window_(window), tabs_(tabs), shownPage_(std::move(shownPage)), log_(std::move(log)) {}

  /// Handles a message to `window` or to a control in it. True when nothing is left to do with it.
  bool Take(MSG& message);
  /// The same for a message to another window of the program.
  bool TakeOfDialog(MSG& message);

 private:
  bool PageKey(const MSG& message);
  bool SearchKey(const MSG& message);
  bool AccessKey(const MSG& message);

  HWND window_;
  TabWidget& tabs_;
  std::function<Panel&()> shownPage_;
  std::function<HWND()> log_;
};

}  // namespace tarvo
