#include "toolkit/windows/field_widgets.h"

#include <algorithm>
#include <utility>

namespace tarvo {
namespace {

/// A list's notification of our own, posted when it closes.
constexpr int kSettled = 0x7F00;

/// The native box is UTF-16; the low byte says nothing about a character outside of 8 bits.
char KeyOf(WPARAM character) {
  constexpr WPARAM kLastOfOneByte = 0xFF;
  return character > kLastOfOneByte ? TextBox::kOtherCharacter : static_cast<char>(character);
}

bool IsKeyOfPasting(UINT message, WPARAM key) {
  return message == WM_KEYDOWN && key == VK_INSERT && GetKeyState(VK_SHIFT) < 0;
}

}  // namespace

TextWidget::TextWidget(Stage& stage, HWND parent, int id, TextBox& box, std::string widest)
    : Mirror(stage, box), widest_(std::move(widest)) {
  Create(parent, "EDIT", box.Text(), WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, id);
  if (box.MaxLength() > 0) SendMessageA(Window(), EM_LIMITTEXT, box.MaxLength(), 0);
  TakeMessages();
  Attach();
}

Extent TextWidget::Natural() const {
  const Look& look = stage_.look;
  return {look.TextExtent(widest_, false, true).width + look.Px(16), look.ControlHeight()};
}

void TextWidget::Command(int code) {
  if (code == EN_CHANGE && !showing_ && !typing_) Typed();
}

LRESULT TextWidget::Handle(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_CHAR && !LetsThrough(KeyOf(w))) return 0;
  // Unlike Ctrl+V these keys make no character for the filter to see.
  if (IsKeyOfPasting(message, w) && control_.onKeyPress) return 0;
  const LRESULT result = Mirror::Handle(message, w, l);
  const bool focusMoves = message == WM_SETFOCUS || message == WM_KILLFOCUS;
  if (focusMoves) FocusMoves(message == WM_SETFOCUS, reinterpret_cast<HWND>(w));
  return result;
}

/// Leaving the main window for another program or a message box does not leave the field: a
/// half-typed text is continued afterwards.
void TextWidget::FocusMoves(bool gained, HWND other) {
  const bool within = other && GetAncestor(other, GA_ROOT) == GetAncestor(Window(), GA_ROOT);
  if (!gained && !within) return;
  if (gained == entered_) return;
  entered_ = gained;
  FocusMoved(gained);
}

bool TextWidget::LetsThrough(char key) {
  bool through = true;
  TakeCaret();
  stage_.Happens([&] { through = control_.LetsThrough(key); });
  return through;
}

void TextWidget::FocusMoved(bool gained) {
  TakeCaret();
  stage_.Happens([&] {
    if (gained) {
      control_.GainFocus();
    } else {
      control_.LoseFocus();
    }
  });
}

void TextWidget::TakeCaret() {
  NoteShownCaret();
  control_.MoveCaret(shownCaret_, shownSelection_);
}

void TextWidget::NoteShownCaret() {
  DWORD start = 0;
  DWORD end = 0;
  SendMessageA(Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
               reinterpret_cast<LPARAM>(&end));
  shownCaret_ = start;
  shownSelection_ = end - start;
}

void TextWidget::Access() {
  Widget::Access();
  SendMessageA(Window(), EM_SETSEL, 0, -1);
}

void TextWidget::Typed() {
  NoteShownCaret();
  typing_ = true;
  stage_.Happens([this] { control_.Type(TextOf(Window()), shownCaret_); });
  typing_ = false;
  Show();
}

void TextWidget::Show() {
  if (typing_) return;
  const bool textDiffers = TextOf(Window()) != control_.Text();
  showing_ = true;
  if (textDiffers) SetWindowTextA(Window(), control_.Text().c_str());
  showing_ = false;
  const bool caretDiffers =
      shownCaret_ != control_.Caret() || shownSelection_ != control_.SelectionLength();
  if (textDiffers || caretDiffers) ShowCaret();
}

void TextWidget::ShowCaret() {
  shownCaret_ = control_.Caret();
  shownSelection_ = control_.SelectionLength();
  SendMessageA(Window(), EM_SETSEL, shownCaret_,
               static_cast<LPARAM>(shownCaret_ + shownSelection_));
}

ListWidget::ListWidget(Stage& stage, HWND parent, int id, DropDownList& list, int smallest,
                       int largest)
    : Mirror(stage, list), smallest_(smallest), largest_(largest) {
  Create(parent, "COMBOBOX", "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 0, id);
  Attach();
}

int ListWidget::WidestItem() const {
  int widest = 0;
  for (const std::string& item : control_.Items()) {
    widest = std::max(widest, stage_.look.TextExtent(item, false, true).width);
  }
  return widest;
}

Extent ListWidget::Natural() const {
  const Look& look = stage_.look;
  const int wanted = WidestItem() + look.Px(36);
  return {std::clamp(wanted, look.Px(smallest_), look.Px(largest_)), look.ControlHeight()};
}

void ListWidget::TakeLook() {
  Widget::TakeLook();
  // The closed list is as high as every other field; its frame takes 6 pixels of the height.
  SendMessageA(Window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1),
               stage_.look.ControlHeight() - 6);
}

void ListWidget::WidenOpenList() {
  const auto width = static_cast<WPARAM>(WidestItem() + stage_.look.Px(36));
  SendMessageA(Window(), CB_SETDROPPEDWIDTH, width, 0);
}

int ListWidget::Selection() const {
  return static_cast<int>(SendMessageA(Window(), CB_GETCURSEL, 0, 0));
}

void ListWidget::Command(int code) {
  if (code == CBN_DROPDOWN) WidenOpenList();
  if (code == CBN_CLOSEUP) PostSettled();
  const bool chosen = code == CBN_SELCHANGE;
  // A list that is closed without a choice may have moved its selection on the way; a choice by
  // mouse is reported after the closing.
  const bool moved = code == kSettled && Selection() != control_.ListIndex();
  if (!chosen && !moved) return;
  stage_.Happens([this] { control_.Choose(Selection()); });
  Show();
}

void ListWidget::PostSettled() const {
  const int id = GetDlgCtrlID(Window());
  PostMessageA(GetParent(Window()), WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, kSettled)),
               reinterpret_cast<LPARAM>(Window()));
}

std::string ListWidget::Tip() const {
  const std::string tip = Mirror::Tip();
  return tip.empty() ? control_.Text() : tip;
}

void ListWidget::ShowItems() {
  const std::vector<std::string>& items = control_.Items();
  if (shownRemovals_ != control_.Removals()) SendMessageA(Window(), CB_RESETCONTENT, 0, 0);
  shownRemovals_ = control_.Removals();
  const auto shown = static_cast<std::size_t>(SendMessageA(Window(), CB_GETCOUNT, 0, 0));
  for (std::size_t i = shown; i < items.size(); ++i) {
    SendMessageA(Window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(items[i].c_str()));
  }
}

void ListWidget::Show() {
  ShowItems();
  if (Selection() != control_.ListIndex()) {
    SendMessageA(Window(), CB_SETCURSEL, static_cast<WPARAM>(control_.ListIndex()), 0);
  }
}

}  // namespace tarvo
