#pragma once

#include <cstdint>

#include "platform/notification_area.h"

namespace tarvo {

/// The notification area by Shell_NotifyIconA, with the record of the shell's first version, which
/// every later one takes. The hidden window is a top-level one, since only those hear that the
/// shell was started again. When the object goes, icon and window go with it. At most one at a
/// time.
class WindowsNotificationArea final : public NotificationArea {
 public:
  WindowsNotificationArea() = default;
  ~WindowsNotificationArea() override;
  WindowsNotificationArea(const WindowsNotificationArea&) = delete;
  WindowsNotificationArea& operator=(const WindowsNotificationArea&) = delete;

  void OpenWindow(const std::string& title) override;
  void CloseWindow() override;
  bool Add(const NotificationIcon& icon) override;
  bool Modify(const NotificationIcon& icon) override;
  void Delete() override;
  std::optional<std::size_t> ShowMenu(const std::vector<MenuEntry>& entries) override;

  /// A message of the hidden window; for its window procedure alone. True when it was the icon's.
  bool TakeMessage(std::uint32_t message, std::intptr_t detail);

 private:
  bool Notify(std::uint32_t order, const NotificationIcon& icon) const;

  std::intptr_t window_ = 0;
  std::uint32_t shellRestarted_ = 0;  ///< The number that the shell's message has been given.
  bool added_ = false;
  bool menuIsUp_ = false;
};

}  // namespace tarvo
