#pragma once

#include <windows.h>

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "form/form.h"
#include "form/windows/check_up_frame.h"
#include "form/windows/frame_keys.h"
#include "toolkit/windows/frame_place.h"
#include "toolkit/windows/panel.h"
#include "toolkit/windows/stage.h"
#include "toolkit/windows/tab_widget.h"
#include "toolkit/windows/timer_pump.h"

namespace tarvo {

/// The main window with everything in it.
///
/// The page that is shown first is made when the window is shown, the others once that has been
/// painted, or with the first messages of a window that begins hidden: making a hundred controls
/// takes longer than everything else at start-up. They exist before any message of the operator is
/// handled.
class MainFrame : private ControlMirror {
 public:
  MainFrame(Form& form, TimerQueue& timers, EventDispatch& dispatch);
  ~MainFrame() override;

  HWND Window() const { return window_; }
  /// Takes a message of the loop before it goes to its window; true when nothing is left to do with
  /// it.
  bool Take(MSG& message);

 private:
  /// Posted at the window's start, once for each page and once more: the pages that are still
  /// missing are made then.
  static constexpr UINT kCompletePagesMessage = WM_APP;
  /// Posted for each message of another program: it becomes an event when the loop comes to it.
  static constexpr UINT kReceivedMessage = WM_APP + 1;
  /// The system's timer beside that of the timer queue: it runs from the question whether the
  /// session may end until the answer comes.
  static constexpr UINT_PTR kSessionTimer = 2;
  /// Messages that wait at most; more are not taken.
  static constexpr std::size_t kMostReceived = 16;

  static HWND CreateMainWindow(HINSTANCE instance);
  std::optional<LRESULT> Handle(UINT message, WPARAM w, LPARAM l);
  void Refresh(const Control& control) override;
  void ShowAsWanted();
  void ShowFirst();
  Panel& Page(int index);
  void CompletePages();
  void Complete();
  void ShownFromOutside();

  bool TakeReceived(const COPYDATASTRUCT& data);
  void HandOnReceived();
  void AskForEndOfSession();
  void EndOfSession(bool ends);
  void Sized(WPARAM kind);
  void TakeLook();
  void Arrange();
  Extent SmallestClient() const;
  void Restoring();
  void KeepFocus(bool active);
  void GiveFocus();
  void FollowMouse(const MSG& message);
  Panel& ShownPage() { return Page(form_.frame.SSTab1.Page()); }

  Form& form_;
  Stage stage_;
  HWND window_;
  Panel header_;
  TabWidget tabs_;
  FramePlace place_;
  FrameScroll scroll_;
  FrameKeys keys_;
  CheckUpFrame checkUp_;
  RECT arranged_{};
  RECT pageRoom_{};
  std::array<std::unique_ptr<Panel>, 4> pages_;  ///< In the order of their tabs.
  std::size_t completed_ = 0;  ///< Of the pages; more than there are when all is complete.
  TimerPump timers_;
  HWND lastFocus_ = nullptr;
  int frontRequests_ = 0;
  std::deque<std::string> received_;
  bool iconic_ = false;
};

}  // namespace tarvo
