#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "ui/windows/header_panel.h"
#include "ui/windows/randomizer_panel.h"
#include "ui/windows/servers_panel.h"
#include "ui/windows/stage.h"
#include "ui/windows/status_panel.h"
#include "ui/windows/tab_widget.h"
#include "ui/windows/timer_pump.h"
#include "ui/windows/upgrade_panel.h"

namespace tarvo {

/// The main window with all that is in it.
class MainFrame : private ControlMirror {
 public:
  MainFrame(Form& form, TimerQueue& timers, EventDispatch& dispatch);
  ~MainFrame() override;

  HWND Window() const { return window_; }
  /// Takes a message of the loop that belongs to the window's keyboard; true when it is done with.
  bool TakeKey(MSG& message);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l);
  static HWND CreateMainWindow(HINSTANCE instance);
  std::optional<LRESULT> Handle(UINT message, WPARAM w, LPARAM l);
  void Refresh(const Control& control) override;
  void ShowAsWanted();

  void Sized(WPARAM kind);
  void TakeLook();
  void Arrange();
  Extent SmallestClient() const;
  Extent SmallestWindow() const;
  Extent LeastWindow() const;
  void Limit(MINMAXINFO& limits) const;
  void MoveTo(const RECT& place);
  void TakeFirstPlace();
  void TakePlace(const Place& place);
  Place Enlarged(Place place) const;
  void TakeStanding();
  void TellPlace();
  void KeepWithinReach();
  void Restoring();

  RECT Surface();
  Extent RoomWithoutBars() const;
  void ScrollTo(int bar, int position);
  void Scrolled(int bar, int code);
  void Wheeled(int turn);
  void FollowFocus();

  void KeepFocus(bool active);
  void GiveFocus();

  bool PageKey(const MSG& message);
  bool SearchKey(const MSG& message);
  bool DialogKey(MSG& message);
  bool AccessKey(const MSG& message);
  Panel& ShownPage() {
    return *pages_.at(static_cast<std::size_t>(stage_.form.frame.SSTab1.Page()));
  }

  Stage stage_;
  HWND window_;
  HeaderPanel header_;
  TabWidget tabs_;
  StatusPanel status_;
  ServersPanel servers_;
  RandomizerPanel randomizer_;
  UpgradePanel upgrade_;
  std::vector<Panel*> pages_;  ///< In the order of their tabs.
  TimerPump timers_;
  HWND lastFocus_ = nullptr;
  int frontRequests_ = 0;
  bool iconic_ = false;
  bool barsChange_ = false;    ///< Scroll bars come or go, which changes the window's size.
  HWND followed_ = nullptr;    ///< The focus that was last brought into view.
  std::optional<Place> told_;  ///< The place that program and window agree on.
};

}  // namespace tarvo
