#include "ui/controls.h"

#include "support/runtime_error.h"

namespace tarvo {

void Label::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Changed();
}

void Light::SetFill(Colour fill) {
  if (fill_ == fill) return;
  fill_ = fill;
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
  Changed();
  Raise(onChange);
}

void TextBox::SetCaret(std::size_t position) {
  caret_ = position < text_.size() ? position : text_.size();
  Changed();
}

void TextBox::Type(std::string text) {
  if (!Enabled() || text_ == text) return;
  text_ = std::move(text);
  caret_ = text_.size();
  Changed();
  Raise(onChange);
}

void DropDownList::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Changed();
}

std::string DropDownList::Text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

void DropDownList::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) {
    throw RuntimeError(Fault::InvalidPropertyValue, "ListIndex");
  }
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed();
  Raise(onSelect);
}

void DropDownList::Choose(int index) {
  if (!Enabled() || index < 0 || index >= static_cast<int>(items_.size())) return;
  listIndex_ = index;
  Changed();
  Raise(onSelect);
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
