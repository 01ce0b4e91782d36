#include "toolkit/main_window.h"

#include <utility>

namespace tarvo {

void MainWindow::SetTitle(std::string title) {
  title_ = std::move(title);
  Changed();
}

void MainWindow::SetState(WindowState state) {
  if (state_ == state) return;
  state_ = state;
  Changed();
  Raise(onResize);
}

void MainWindow::SetVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  Changed();
}

void MainWindow::SetStanding(const Place& place) {
  standing_ = place;
  Changed();
}

void MainWindow::BringToFront() {
  ++frontRequests_;
  SetState(WindowState::Normal);
  SetVisible(true);
  Changed();
}

void MainWindow::Close() { Raise(onClose); }

void MainWindow::AskForEndOfSession() { Raise(onSessionMayEnd); }

void MainWindow::CallOffEndOfSession() { Raise(onSessionGoesOn); }

void MainWindow::EndSession() { Raise(onEndSession); }

void MainWindow::Receive(const std::string& message) {
  if (onMessage) onMessage(message);
}

void MainWindow::End(int exitCode) {
  if (ended_) return;
  ended_ = true;
  exitCode_ = exitCode;
  Changed();
}

}  // namespace tarvo
