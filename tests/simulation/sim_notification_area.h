#pragma once

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/icons.h"
#include "platform/notification_area.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// The desktop shell's notification area and the mouse over it. A program that dies suddenly leaves
/// its icon behind, as on a real desktop.
class SimNotificationArea final : public NotificationArea {
 public:
  explicit SimNotificationArea(CallRecorder& recorder) : recorder_(recorder) {}

  void OpenWindow(const std::string& title) override {
    recorder_.Note("tray.openWindow(" + title + ")");
    window_ = title;
  }
  void CloseWindow() override {
    recorder_.Note("tray.closeWindow()");
    window_.reset();
  }
  bool Add(const NotificationIcon& icon) override {
    recorder_.Note("tray.add(" + icon.tip + ")");
    if (gone_ || shown_) return false;
    shown_ = icon;
    // A shell that is slow to answer takes the icon and has it told as refused.
    return !std::exchange(answersLate_, false);
  }
  bool Modify(const NotificationIcon& icon) override {
    recorder_.Note("tray.modify(" + icon.tip + ")");
    if (gone_ || !shown_) return false;
    shown_ = icon;
    return true;
  }
  void Delete() override {
    recorder_.Note("tray.delete()");
    shown_.reset();
  }
  std::optional<std::size_t> ShowMenu(const std::vector<MenuEntry>& entries) override {
    recorder_.Note("tray.showMenu()");
    menus_.push_back(entries);
    if (auto happens = std::exchange(whileMenuIsOpen, nullptr)) happens();
    return std::exchange(choice_, std::nullopt);
  }

  /// The mouse over the icon, or over where it was: without a window nobody hears of it.
  void Mouse(std::uint32_t message) {
    if (window_ && onMouseMessage) onMouseMessage(message);
  }
  /// The program has ended; nobody hears of the mouse any more.
  void LoseWindow() { window_.reset(); }
  /// The shell dies and comes back with an empty notification area.
  void RestartShell() {
    shown_.reset();
    if (window_ && onShellRestarted) onShellRestarted();
  }
  /// The shell takes the next icon, but its answer comes too late to be heard.
  void AnswerLate() { answersLate_ = true; }
  /// The primary screen's scale changes: the shell says that it was started again, and has kept the
  /// icon.
  void AnnounceAgain() {
    if (window_ && onShellRestarted) onShellRestarted();
  }
  /// The shell dies and comes back without anybody hearing of it.
  void RestartShellInSilence() { shown_.reset(); }
  /// From now on there is no notification area, or there is one again; so it is while the shell
  /// starts at a log-on.
  void TakeAway(bool gone = true) {
    gone_ = gone;
    if (gone) shown_.reset();
  }
  /// The entry that the operator picks in the next menu; without one he closes the menu.
  void ChooseNext(std::size_t index) { choice_ = index; }
  std::function<void()> whileMenuIsOpen;

  const std::optional<NotificationIcon>& Shown() const { return shown_; }
  const std::optional<std::string>& Window() const { return window_; }
  const std::vector<std::vector<MenuEntry>>& Menus() const { return menus_; }

 private:
  CallRecorder& recorder_;
  std::optional<std::string> window_;
  std::optional<NotificationIcon> shown_;
  std::vector<std::vector<MenuEntry>> menus_;
  std::optional<std::size_t> choice_;
  bool gone_ = false;
  bool answersLate_ = false;
};

/// The system's icons: counts those that are alive. Their handles are never used twice.
class SimIcons final : public Icons {
 public:
  int NotificationSize() override { return size; }
  IconHandle Create(const Picture& picture) override {
    if (!roomForMore) return 0;
    last = picture;
    alive.insert(++made);
    return made;
  }
  void Destroy(IconHandle icon) override { alive.erase(icon); }

  int size = 16;
  bool roomForMore = true;
  IconHandle made = 0;
  std::set<IconHandle> alive;
  Picture last;
};

}  // namespace tarvo
