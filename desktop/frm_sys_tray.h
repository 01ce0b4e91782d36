#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/code_page.h"
#include "platform/notification_area.h"
#include "toolkit/event_dispatch.h"

namespace tarvo {

/// The mouse buttons, as the events name them.
enum MouseButton { kLeftButton = 1, kRightButton = 2 };

/// The icon in the notification area, and the hidden window that receives the mouse's messages for
/// the icon and owns its menu. It does not know what the icon means: it raises events, and its
/// owner acts.
///
/// Every member may be called at any time. While the icon is not loaded, values and menu entries
/// are kept for the moment when it is, nothing is shown and no event is raised. An icon that the
/// shell has refused, as it does while it starts at a log-on, is offered again by `OfferAgain`;
/// when the shell is started again, the icon comes back.
class frmSysTray {
 public:
  frmSysTray(NotificationArea& area, CodePage& codePage, EventDispatch& dispatch);
  ~frmSysTray();
  frmSysTray(const frmSysTray&) = delete;
  frmSysTray& operator=(const frmSysTray&) = delete;

  /// The tip as it is shown: cut at 63 bytes, and never between the two bytes of one character.
  const std::string& ToolTip() const { return shown_.tip; }
  void SetToolTip(const std::string& text);

  /// The icon's picture. The handle stays the caller's, and must live until the next one is set.
  tarvo::IconHandle IconHandle() const { return shown_.icon; }
  void SetIconHandle(tarvo::IconHandle icon);

  /// Adds an entry at the end of the menu and returns its index. An "&" in the caption precedes its
  /// access key. A default entry replaces the previous default.
  std::size_t AddMenuItem(const std::string& caption, const std::string& key,
                          bool isDefault = false);
  /// An entry that is not enabled is shown grey and cannot be chosen. An unknown index changes
  /// nothing.
  void EnableMenuItem(std::size_t index, bool enabled);
  /// The entries after it move up. An unknown index changes nothing.
  void RemoveMenuItem(std::size_t index);

  /// The entry that is drawn in bold; -1 for none. Any index that no entry has counts as -1.
  int DefaultMenuIndex() const { return defaultIndex_; }
  void SetDefaultMenuIndex(int index);

  /// Shows the menu at the cursor, and raises `MenuClick` when an entry was chosen. Other events go
  /// on meanwhile. An empty menu is not shown.
  void ShowMenu();

  std::function<void(int button)> SysTrayMouseDown;
  std::function<void(int button)> SysTrayMouseUp;
  std::function<void()> SysTrayMouseMove;
  std::function<void(int button)> SysTrayDoubleClick;
  std::function<void(std::size_t index, const std::string& key)> MenuClick;

  /// Makes the hidden window and adds the icon. Once it is loaded, does nothing.
  void Load(const std::string& toolTip, tarvo::IconHandle icon);
  /// Adds the loaded icon, as it is to be shown now, unless the shell has it.
  void OfferAgain();
  /// Removes the icon, then the window. When it is not loaded, does nothing.
  void Unload();
  bool Loaded() const { return loaded_; }

 private:
  struct Item {
    std::string caption;
    std::string key;
    bool enabled = true;
  };

  void Form_MouseMove(std::uint32_t message);
  std::vector<MenuEntry> mnuPopup() const;

  NotificationArea& area_;
  CodePage& codePage_;
  NotificationIcon shown_;
  std::vector<Item> mnuSysTray_;
  int defaultIndex_ = -1;
  bool loaded_ = false;
  bool there_ = false;  ///< The shell has accepted the icon and its last change.
};

/// The beginning of a text that fits into a tip, whole characters only.
std::string CutTip(const std::string& text, CodePage& codePage);

}  // namespace tarvo
