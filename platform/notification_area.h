#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/icons.h"

namespace tarvo {

/// The program's icon in the notification area, as it is to be shown.
struct NotificationIcon {
  IconHandle icon = 0;
  std::string tip;  ///< At most `kLongestTip` bytes.
};

/// Bytes of a tip that the oldest shell takes, its end mark aside.
inline constexpr std::size_t kLongestTip = 63;

struct MenuEntry {
  std::string caption;  ///< An "&" precedes the access key.
  bool enabled = true;
  bool isDefault = false;  ///< Drawn in bold.
};

/// The notification area of the desktop shell. Where there is none, nothing is shown and nothing
/// fails; a shell that is still starting refuses an icon for a while.
class NotificationArea {
 public:
  virtual ~NotificationArea() = default;

  /// Makes the hidden window that receives the icon's mouse messages and owns its menu. Every call
  /// below needs it.
  virtual void OpenWindow(const std::string& title) = 0;
  /// Ends a menu that is up and destroys the window; no event comes any more.
  virtual void CloseWindow() = 0;

  /// Whether the shell has taken the icon. One that is there already is not taken twice.
  virtual bool Add(const NotificationIcon& icon) = 0;
  /// Whether the shell knows the icon and shows it so.
  virtual bool Modify(const NotificationIcon& icon) = 0;
  virtual void Delete() = 0;

  /// Shows a menu at the cursor and returns when it is gone: the index of the chosen entry, or
  /// nothing. Ticks and other events go on meanwhile, so the caller reads every state again
  /// afterwards. While one menu is up, a further call shows nothing.
  virtual std::optional<std::size_t> ShowMenu(const std::vector<MenuEntry>& entries) = 0;

  /// The mouse did something over the icon: the number of the mouse message, such as 513.
  std::function<void(std::uint32_t message)> onMouseMessage;
  /// The shell was started again and knows no icon any more.
  std::function<void()> onShellRestarted;
};

}  // namespace tarvo
