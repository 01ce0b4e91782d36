#pragma once

#include <functional>
#include <optional>
#include <string>

#include "toolkit/control.h"
#include "toolkit/grid.h"

namespace tarvo {

enum class WindowState { Normal, Minimized };

/// The main window. It is invisible and without a title at first, and shown when the start-up is
/// complete.
class MainWindow : public Control {
 public:
  const std::string& Title() const { return title_; }
  void SetTitle(std::string title);

  WindowState State() const { return state_; }
  /// Raises `onResize` when the state differs from the old one. Called for the operator's changes
  /// too.
  void SetState(WindowState state);

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  /// Its place on the desktop while it is neither minimized nor maximized; nothing until one is set
  /// or reported.
  const std::optional<Place>& Standing() const { return standing_; }
  /// Asks for a place. The native window ignores one that is out of the operator's reach.
  void SetStanding(const Place& place);
  /// The operator has moved it there; the mirror is not refreshed.
  void MovedTo(const Place& place) { standing_ = place; }

  /// Shows the window in its normal state, in front of the others.
  void BringToFront();
  int FrontRequests() const { return frontRequests_; }

  /// The operator's close request: raises `onClose`, which decides whether to close.
  void Close();

  /// The system asks whether the operator's session may end, which is never refused: raises
  /// `onSessionMayEnd`. Until one of the next two calls nothing is to happen by itself.
  void AskForEndOfSession();
  /// The session does not end after all: raises `onSessionGoesOn`.
  void CallOffEndOfSession();
  /// The system ends the operator's session, announced or not: raises `onEndSession`, which can
  /// neither ask the operator nor prevent it.
  void EndSession();

  /// Another program has sent the window a message, of any content: raises `onMessage`, which makes
  /// an event of it, or not.
  void Receive(const std::string& message);

  /// Ends the program with this exit code: no further event is handled. Only the first call counts.
  void End(int exitCode);
  bool Ended() const { return ended_; }
  int ExitCode() const { return exitCode_; }

  std::function<void()> onResize;
  std::function<void()> onClose;
  std::function<void()> onSessionMayEnd;
  std::function<void()> onSessionGoesOn;
  std::function<void()> onEndSession;
  std::function<void(const std::string&)> onMessage;

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
