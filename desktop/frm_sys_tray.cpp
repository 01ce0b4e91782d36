#include "desktop/frm_sys_tray.h"

namespace tarvo {
namespace {

/// The mouse messages that the shell sends.
enum MouseMessage : std::uint32_t {
  kMouseMove = 512,
  kLeftUp = 514,
  kLeftDoubleClick = 515,
  kRightDown = 516,
  kRightUp = 517,
  kRightDoubleClick = 518,
};

constexpr char kWindowTitle[] = "Sys Tray Interface";

void Raise(const std::function<void(int)>& event, MouseButton button) {
  if (event) event(button);
}

}  // namespace

std::string CutTip(const std::string& text, CodePage& codePage) {
  std::size_t end = 0;
  while (end < text.size()) {
    const bool pair =
        end + 1 < text.size() && codePage.IsLeadByte(static_cast<unsigned char>(text[end]));
    const std::size_t next = end + (pair ? 2 : 1);
    if (next > kLongestTip) break;
    end = next;
  }
  return text.substr(0, end);
}

frmSysTray::frmSysTray(NotificationArea& area, CodePage& codePage, EventDispatch& dispatch)
    : area_(area), codePage_(codePage) {
  area_.onMouseMessage = [this, &dispatch](std::uint32_t message) {
    dispatch.Run([this, message] { Form_MouseMove(message); });
  };
  area_.onShellRestarted = [this] {
    there_ = false;
    OfferAgain();
  };
}

frmSysTray::~frmSysTray() {
  area_.onMouseMessage = nullptr;
  area_.onShellRestarted = nullptr;
}

void frmSysTray::SetToolTip(const std::string& text) {
  shown_.tip = CutTip(text, codePage_);
  if (loaded_) there_ = area_.Modify(shown_);
}

void frmSysTray::SetIconHandle(tarvo::IconHandle icon) {
  shown_.icon = icon;
  if (loaded_) there_ = area_.Modify(shown_);
}

std::size_t frmSysTray::AddMenuItem(const std::string& caption, const std::string& key,
                                    bool isDefault) {
  mnuSysTray_.push_back({caption, key});
  const std::size_t index = mnuSysTray_.size() - 1;
  if (isDefault) defaultIndex_ = static_cast<int>(index);
  return index;
}

void frmSysTray::EnableMenuItem(std::size_t index, bool enabled) {
  if (index < mnuSysTray_.size()) mnuSysTray_[index].enabled = enabled;
}

void frmSysTray::RemoveMenuItem(std::size_t index) {
  if (index >= mnuSysTray_.size()) return;
  mnuSysTray_.erase(mnuSysTray_.begin() + static_cast<std::ptrdiff_t>(index));
  const int removed = static_cast<int>(index);
  if (defaultIndex_ == removed) {
    defaultIndex_ = -1;
  } else if (defaultIndex_ > removed) {
    --defaultIndex_;
  }
}

void frmSysTray::SetDefaultMenuIndex(int index) {
  const bool exists = index >= 0 && static_cast<std::size_t>(index) < mnuSysTray_.size();
  defaultIndex_ = exists ? index : -1;
}

std::vector<MenuEntry> frmSysTray::mnuPopup() const {
  std::vector<MenuEntry> entries;
  for (const Item& item : mnuSysTray_) {
    const bool isDefault = static_cast<int>(entries.size()) == defaultIndex_;
    entries.push_back({item.caption, item.enabled, isDefault});
  }
  return entries;
}

void frmSysTray::ShowMenu() {
  if (!loaded_ || mnuSysTray_.empty()) return;
  // The entries may change, and the icon may be removed, while the menu is open.
  const std::vector<Item> shown = mnuSysTray_;
  const auto chosen = area_.ShowMenu(mnuPopup());
  if (!loaded_ || !chosen || *chosen >= shown.size()) return;
  if (MenuClick) MenuClick(*chosen, shown[*chosen].key);
}

void frmSysTray::Load(const std::string& toolTip, tarvo::IconHandle icon) {
  if (loaded_) return;
  shown_ = {icon, CutTip(toolTip, codePage_)};
  area_.OpenWindow(kWindowTitle);
  loaded_ = true;
  there_ = area_.Add(shown_);
}

void frmSysTray::OfferAgain() {
  if (loaded_ && !there_) there_ = area_.Add(shown_);
}

void frmSysTray::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  area_.Delete();
  area_.CloseWindow();
}

/// The left button's "down" is raised on its release, and its press raises nothing: that is how the
/// owner of the icon expects it.
void frmSysTray::Form_MouseMove(std::uint32_t message) {
  if (!loaded_) return;
  switch (message) {
    case kMouseMove:
      if (SysTrayMouseMove) SysTrayMouseMove();
      break;
    case kLeftUp:
      return Raise(SysTrayMouseDown, kLeftButton);
    case kLeftDoubleClick:
      return Raise(SysTrayDoubleClick, kLeftButton);
    case kRightDown:
      return Raise(SysTrayMouseDown, kRightButton);
    case kRightUp:
      return Raise(SysTrayMouseUp, kRightButton);
    case kRightDoubleClick:
      return Raise(SysTrayDoubleClick, kRightButton);
    default:
      break;
  }
}

}  // namespace tarvo
