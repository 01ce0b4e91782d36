#include "toolkit/controls.h"

#include <algorithm>
#include <iterator>

#include "support/runtime_error.h"

namespace tarvo {

void Label::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed();
}

void Light::SetState(LightState state) {
  if (state_ == state) return;
  state_ = state;
  Changed();
}

void CommandButton::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  Changed();
}

void CommandButton::SetBackground(Colour background) {
  background_ = background;
  Changed();
}

void CommandButton::Click() {
  if (Enabled()) Raise(onClick);
}

void CheckBox::SetChecked(bool checked) {
  if (checked_ == checked) return;
  checked_ = checked;
  Changed();
  Raise(onChange);
}

void CheckBox::Click() {
  if (!Enabled()) return;
  SetChecked(!checked_);
  Raise(onClick);
}

void TextBox::SetText(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  caret_ = 0;
  selectionLength_ = 0;
  Changed();
  Raise(onChange);
}

void TextBox::SetCaret(std::size_t position) {
  MoveCaret(position);
  Changed();
}

void TextBox::SelectAll() {
  MoveCaret(0, text_.size());
  Changed();
}

void TextBox::SetMaxLength(std::size_t characters) {
  maxLength_ = characters;
  Changed();
}

void TextBox::Type(std::string text, std::size_t caret) {
  if (!Enabled() || text_ == text) return;
  text_ = std::move(text);
  MoveCaret(caret);
  Changed();
  Raise(onChange);
}

void TextBox::MoveCaret(std::size_t position, std::size_t selectionLength) {
  caret_ = std::min(position, text_.size());
  selectionLength_ = std::min(selectionLength, text_.size() - caret_);
}

void TextBox::PressKey(char key) {
  if (!LetsThrough(key)) return;
  std::string text = text_;
  std::size_t caret = caret_;
  const bool erasesOne = key == kBackspace && selectionLength_ == 0 && caret > 0;
  if (erasesOne) --caret;
  text.erase(caret, erasesOne ? 1 : selectionLength_);
  if (static_cast<unsigned char>(key) >= ' ' && (maxLength_ == 0 || text.size() < maxLength_)) {
    text.insert(caret++, 1, key);
  }
  Type(std::move(text), caret);
}

void TextBox::GainFocus() {
  if (Enabled()) Raise(onGotFocus);
}

void TextBox::LoseFocus() { Raise(onLostFocus); }

void ItemList::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Changed();
}

void ItemList::AddItems(std::vector<std::string> items) {
  items_.insert(items_.end(), std::make_move_iterator(items.begin()),
                std::make_move_iterator(items.end()));
  Changed();
}

void ItemList::RemoveItem(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) return;
  items_.erase(items_.begin() + index);
  ++removals_;
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  Changed();
}

void ItemList::SetItems(std::vector<std::string> items) {
  items_ = std::move(items);
  ++removals_;
  listIndex_ = -1;
  Changed();
}

void ItemList::Select(const std::string& text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  if (found != items_.end()) SetListIndex(static_cast<int>(found - items_.begin()));
}

std::string ItemList::Text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

void ItemList::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    throw RuntimeError(Fault::InvalidPropertyValue, "ListIndex");
  }
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed();
  Raise(onSelect);
}

void ItemList::Choose(int index) {
  if (!Enabled() || index < 0 || index >= static_cast<int>(items_.size())) return;
  listIndex_ = index;
  Changed();
  Raise(onSelect);
}

void ScrollBar::SetRange(int min, int max) {
  min_ = min;
  max_ = max;
  SetValue(value_);
  Changed();
}

void ScrollBar::SetValue(int value) {
  value = std::clamp(value, min_, max_);
  if (value_ == value) return;
  value_ = value;
  Changed();
  Raise(onChange);
}

void ScrollBar::Scroll(int value) {
  if (Enabled()) SetValue(value);
}

void OptionButton::Select() {
  if (selected_) return;
  if (group_) group_->DeselectOthers(*this);
  selected_ = true;
  Changed();
  Raise(onChange);
}

void OptionButton::Click() {
  if (!Enabled()) return;
  Select();
  Raise(onClick);
}

void OptionButton::Deselect() {
  if (!selected_) return;
  selected_ = false;
  Changed();
}

OptionGroup::OptionGroup() {
  for (OptionButton& option : options_) option.group_ = this;
}

void OptionGroup::DeselectOthers(const OptionButton& chosen) {
  for (OptionButton& option : options_) {
    if (&option != &chosen) option.Deselect();
  }
}

void TabView::SetPage(int page) {
  if (page_ == page) return;
  page_ = page;
  Changed();
}

}  // namespace tarvo
