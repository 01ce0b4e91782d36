#pragma once

#include <functional>
#include <string>
#include <utility>

#include "toolkit/control.h"

namespace tarvo {

/// A window beside the main one, which stays usable meanwhile. It is closed at first.
class SideWindow : public Control {
 public:
  explicit SideWindow(std::string title) : title_(std::move(title)) {}

  const std::string& Title() const { return title_; }
  bool IsOpen() const { return open_; }
  /// Opens the window; one that is open comes to the front.
  void Open() {
    open_ = true;
    ++frontRequests_;
    Changed();
  }
  int FrontRequests() const { return frontRequests_; }

  /// The operator closes it.
  void Close() {
    if (!open_) return;
    open_ = false;
    Changed();
  }
  /// The operator asks for a copy of all that it shows.
  void Copy() { Raise(onCopy); }

  std::function<void()> onCopy;

 private:
  const std::string title_;
  bool open_ = false;
  int frontRequests_ = 0;
};

}  // namespace tarvo
