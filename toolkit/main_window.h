#pragma once

#include <functional>
#include <optional>
#include <string>

#include "toolkit/control.h"
#include "toolkit/grid.h"

namespace tarvo {

enum class WindowState { Normal, Minimized };

/// The frame around the pages. It begins invisible and without a title; it is shown when the
/// start-up is through.
class MainWindow : public Control {
 public:
  const std::string& Title() const { return title_; }
  void SetTitle(std::string title);

  WindowState State() const { return state_; }
  /// Raises `onResize` when the state changed, whoever changed it.
  void SetState(WindowState state);

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  /// Where it stands on the desktop while it is neither minimized nor maximized; nothing as long as
  /// nobody has said so.
  const std::optional<Place>& Standing() const { return standing_; }
  /// Where it shall stand. A place out of the operator's reach is not taken.
  void SetStanding(const Place& place);
  /// The operator has moved it there.
  void MovedTo(const Place& place) { standing_ = place; }

  /// Shows the window in its normal state, in front of the others.
  void BringToFront();
  int FrontRequests() const { return frontRequests_; }

  /// The operator's close request: `onClose` decides what becomes of it.
  void Close();

  /// The system asks whether the operator's session may end, which is never refused. Until it tells
  /// more, nothing is to happen by itself: `onSessionMayEnd`.
  void AskForEndOfSession();
  /// The session does not end after all: `onSessionGoesOn`.
  void CallOffEndOfSession();
  /// The system ends the operator's session, asked for before or not: he is not asked, and
  /// `onEndSession` has no say in it.
  void EndSession();

  /// Ends the program with this exit code: no event is handled any more. The first call counts.
  void End(int exitCode);
  bool Ended() const { return ended_; }
  int ExitCode() const { return exitCode_; }

  std::function<void()> onResize;
  std::function<void()> onClose;
  std::function<void()> onSessionMayEnd;
  std::function<void()> onSessionGoesOn;
  std::function<void()> onEndSession;

 private:
  std::string title_;
  WindowState state_ = WindowState::Normal;
  bool visible_ = false;
  std::optional<Place> standing_;
  int frontRequests_ = 0;
  bool ended_ = false;
  int exitCode_ = 0;
};

}  // namespace tarvo
