#include "layout.h"

#include <commctrl.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "actions.h"
#include "launcher.h"
#include "toolkit/button_properties.h"

namespace tarvo {
namespace {

/// A window that holds no other one.
struct Leaf {
  HWND window;
  std::string windowClass;
  std::string text;
  RECT place;  ///< On the screen.
  DWORD style;
};

bool IsOneOf(const std::string& name, std::initializer_list<const char*> names) {
  return std::any_of(names.begin(), names.end(),
                     [&](const char* one) { return lstrcmpiA(one, name.c_str()) == 0; });
}

bool IsStatic(const Leaf& leaf) { return IsOneOf(leaf.windowClass, {"STATIC"}); }

BOOL CALLBACK TakeLeaf(HWND window, LPARAM leaves) {
  const std::string name = ClassOf(window);
  const bool holdsOthers = GetWindow(window, GW_CHILD) && !IsOneOf(name, {"COMBOBOX"});
  const bool partOfList = IsOneOf(ClassOf(GetParent(window)), {"COMBOBOX"});
  // The tab view lies around its pages, which are no children of it.
  if (holdsOthers || partOfList || IsOneOf(name, {WC_TABCONTROLA, "TarvoPanel"})) return TRUE;
  if (!IsWindowVisible(window)) return TRUE;
  Leaf leaf{window, name, TextOf(window), {}, 0};
  GetWindowRect(window, &leaf.place);
  leaf.style = static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
  if (!IsRectEmpty(&leaf.place)) reinterpret_cast<std::vector<Leaf>*>(leaves)->push_back(leaf);
  return TRUE;
}

std::string NameOfLeaf(const Leaf& leaf) {
  const int id = GetDlgCtrlID(leaf.window);
  for (const ControlId& entry : kControlIds) {
    const int index = id - entry.firstId;
    if (index >= 0 && index < entry.count) return NameOf({&entry, index, leaf.window});
  }
  return leaf.windowClass + " \"" + leaf.text + "\"";
}

/// Measures texts in the font that the launcher's windows have at its resolution.
class Ruler {
 public:
  explicit Ruler(HWND launcher) : screen_(GetDC(nullptr)) {
    const auto dpi = static_cast<int>(DpiOf(launcher));
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTA font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, dpi, GetDeviceCaps(screen_, LOGPIXELSY));
    font_ = CreateFontIndirectA(&font);
    before_ = SelectObject(screen_, font_);
    box_ = MulDiv(13, dpi, 96);
  }
  ~Ruler() {
    SelectObject(screen_, before_);
    DeleteObject(font_);
    ReleaseDC(nullptr, screen_);
  }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;

  SIZE Of(const std::string& text) const {
    RECT box{};
    DrawTextA(screen_, text.c_str(), static_cast<int>(text.size()), &box,
              DT_CALCRECT | DT_SINGLELINE);
    return {box.right, box.bottom};
  }
  /// The square of a check box or an option, and the gap behind it.
  int Box() const { return box_ + 4; }

 private:
  static UINT DpiOf(HWND window) {
    using Call = UINT(WINAPI*)(HWND);
    const auto call = reinterpret_cast<Call>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32.dll"), "GetDpiForWindow")));
    return call ? call(window) : 96;
  }

  HDC screen_;
  HFONT font_;
  HGDIOBJ before_;
  int box_;
};

/// One page with what is around it.
class Inspection {
 public:
  Inspection(HWND launcher, int page) : page_(page), ruler_(launcher) {
    EnumChildWindows(launcher, TakeLeaf, reinterpret_cast<LPARAM>(&leaves_));
  }

  std::vector<std::string> Faults() {
    for (std::size_t i = 0; i < leaves_.size(); ++i) {
      CheckCut(leaves_[i]);
      CheckText(leaves_[i]);
      CheckName(leaves_[i]);
      CheckKey(leaves_[i]);
      for (std::size_t j = 0; j < i; ++j) CheckOverlap(leaves_[j], leaves_[i]);
    }
    if (leaves_.size() < 10) Fault("hardly anything is to be seen");
    return std::move(faults_);
  }

 private:
  void Fault(const std::string& what) {
    faults_.push_back("page " + std::to_string(page_) + ": " + what);
  }

  void CheckOverlap(const Leaf& a, const Leaf& b) {
    RECT common{};
    if (IntersectRect(&common, &a.place, &b.place)) {
      Fault(NameOfLeaf(a) + " overlaps " + NameOfLeaf(b));
    }
  }

  void CheckCut(const Leaf& leaf) {
    const HWND parent = GetParent(leaf.window);
    RECT room{};
    GetClientRect(parent, &room);
    MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&room), 2);
    RECT inside{};
    IntersectRect(&inside, &room, &leaf.place);
    if (!EqualRect(&inside, &leaf.place)) Fault(NameOfLeaf(leaf) + " is cut off");
  }

  void CheckText(const Leaf& leaf) {
    const bool button = IsOneOf(leaf.windowClass, {"BUTTON"});
    if (leaf.text.empty() || (!button && !IsStatic(leaf))) return;
    // Texts of any length end with an ellipsis and stand whole in their tool tips.
    if (IsStatic(leaf) && (leaf.style & SS_ELLIPSISMASK) != 0) return;
    const DWORD kind = leaf.style & BS_TYPEMASK;
    const bool push = kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON || kind == BS_OWNERDRAW;
    if (GetPropA(leaf.window, kPictureProperty)) return;
    const SIZE need = ruler_.Of(leaf.text);
    const LONG width = leaf.place.right - leaf.place.left;
    const LONG height = leaf.place.bottom - leaf.place.top;
    // A box without words bears its text for screen readers only.
    if (button && !push && width <= ruler_.Box() + 8) return;
    const LONG aside = !button ? 0 : push ? 4 : ruler_.Box();
    if (need.cx + aside > width || need.cy > height) {
      Fault(NameOfLeaf(leaf) + " has no room for \"" + leaf.text + "\"");
    }
  }

  /// Fields take their name from the text before them, everything else from its own text.
  void CheckName(const Leaf& leaf) {
    if (IsStatic(leaf)) return;
    const bool field =
        IsOneOf(leaf.windowClass, {"COMBOBOX", "EDIT", "LISTBOX", "SCROLLBAR", "RichEdit20A"});
    const HWND before = GetWindow(leaf.window, GW_HWNDPREV);
    const bool named =
        field ? before && IsOneOf(ClassOf(before), {"STATIC"}) && !TextOf(before).empty()
              : !leaf.text.empty();
    if (!named) Fault(NameOfLeaf(leaf) + " has no name");
  }

  /// The letter behind "&"; a button that is drawn has it as a property.
  static char KeyOf(const Leaf& leaf) {
    if (const HANDLE key = GetPropA(leaf.window, kAccessKeyProperty)) {
      return static_cast<char>(reinterpret_cast<INT_PTR>(key));
    }
    const std::size_t mark = leaf.text.find('&');
    const bool plain = IsStatic(leaf) && (leaf.style & SS_NOPREFIX) != 0;
    if (plain || mark == std::string::npos || mark + 1 >= leaf.text.size()) return 0;
    return static_cast<char>(std::tolower(static_cast<unsigned char>(leaf.text[mark + 1])));
  }

  /// A label's key is that of the control behind it.
  void CheckKey(const Leaf& leaf) {
    const char key = KeyOf(leaf);
    if (key == 0) return;
    const HWND owner = IsStatic(leaf) ? GetWindow(leaf.window, GW_HWNDNEXT) : leaf.window;
    const auto [other, isNew] = keys_.emplace(key, std::pair(owner, NameOfLeaf(leaf)));
    if (!isNew && other->second.first != owner) {
      Fault(NameOfLeaf(leaf) + " shares the access key " + key + " with " + other->second.second);
    }
  }

  int page_;
  Ruler ruler_;
  std::vector<Leaf> leaves_;
  std::map<char, std::pair<HWND, std::string>> keys_;
  std::vector<std::string> faults_;
};

}  // namespace

std::vector<std::string> LayoutFaults(HWND launcher) {
  const int shown = ShownPage(launcher);
  const auto pages =
      static_cast<int>(Send(NeedControl(launcher, "SSTab1", -1).window, TCM_GETITEMCOUNT));
  std::vector<std::string> faults;
  for (int page = 1; page <= pages; ++page) {
    GoToPage(launcher, page);
    for (std::string& fault : Inspection(launcher, page).Faults())
      faults.push_back(std::move(fault));
  }
  GoToPage(launcher, shown);
  return faults;
}

}  // namespace tarvo
