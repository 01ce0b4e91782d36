#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "form/form.h"
#include "toolkit/grid.h"
#include "toolkit/windows/panel.h"
#include "toolkit/windows/stage.h"

namespace tarvo {

/// The native window of the check-up: it belongs to the main one, which stays usable. It is made
/// when it is opened first, and hidden when it is closed.
///
/// Esc closes it, Ctrl+C copies all that it shows, and the access keys press its buttons.
class CheckUpFrame : private ControlMirror {
 public:
  CheckUpFrame(Stage& stage, HWND owner, CheckUpView& view);
  ~CheckUpFrame() override;

  /// Whether the window is this one, or in it.
  bool Owns(HWND window) const;
  /// Takes a message of the loop to such a window; true when nothing is left to do with it.
  bool Take(MSG& message);
  void TakeLook();
  /// Ends the mirroring, before the main window is destroyed and this one with it.
  void Detach();

 private:
  std::optional<LRESULT> Handle(UINT message, WPARAM w, LPARAM l);
  void Refresh(const Control& control) override;
  void Create();
  void Arrange();
  Extent Least(const Place& screen) const;
  void Take(Place place, const Place& screen);
  bool TakeKey(const MSG& message);
  void Close();

  Stage& stage_;
  HWND owner_;
  CheckUpView& view_;
  HWND window_ = nullptr;
  HWND lastFocus_ = nullptr;
  std::unique_ptr<Panel> panel_;
  int frontRequests_ = 0;
};

}  // namespace tarvo
