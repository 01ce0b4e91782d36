#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "support/text.h"
#include "toolkit/control.h"

namespace tarvo {

/// A line of text that the operator only reads.
class Label : public Control {
 public:
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);

 private:
  std::string caption_;
};

/// The states of a status light. Each has a shape of its own, for operators who cannot distinguish
/// the colours.
enum class LightState { Healthy, Trouble, NotWatched, Stopped };

/// A status light. Its tool tip adds details to the state.
class Light : public Control {
 public:
  LightState State() const { return state_; }
  void SetState(LightState state);

 private:
  LightState state_ = LightState::NotWatched;
};

/// A push button.
class CommandButton : public Control {
 public:
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  Colour Background() const { return background_; }
  void SetBackground(Colour background);

  void Click();

  std::function<void()> onClick;

 private:
  std::string caption_;
  Colour background_ = Rgb(192, 192, 192);
};

class CheckBox : public Control {
 public:
  bool Checked() const { return checked_; }
  /// Raises `onChange` when the value differs from the old one.
  void SetChecked(bool checked);

  /// The operator's click: inverts the value, raises `onChange`, then `onClick`.
  void Click();

  std::function<void()> onChange;  ///< By the program or by the operator.
  std::function<void()> onClick;   ///< The operator clicked; never raised by `SetChecked`.

 private:
  bool checked_ = false;
};

/// A line of text that the operator edits. Positions and lengths are counted in bytes from 0. The
/// caret is before the character at its position; with a selection it is at the selection's start.
class TextBox : public Control {
 public:
  const std::string& Text() const { return text_; }
  /// Replaces the text, moves the caret to its start and raises `onChange`; does nothing when the
  /// text is the same.
  void SetText(std::string text);
  std::size_t Caret() const { return caret_; }
  /// Removes the selection; a position beyond the text is its end.
  void SetCaret(std::size_t position);
  /// Selected characters after the caret.
  std::size_t SelectionLength() const { return selectionLength_; }
  /// Selects the whole text, with the caret at its start.
  void SelectAll();

  /// The most characters that the operator can type; 0 for no limit. `SetText` and `Type` do not
  /// truncate.
  std::size_t MaxLength() const { return maxLength_; }
  void SetMaxLength(std::size_t characters);

  /// The operator's typing: the box now holds `text`, with the caret at that position or at its
  /// end. Raises `onChange` when the text differs from the old one.
  void Type(std::string text, std::size_t caret = std::string::npos);

  /// The operator moved the caret or the selection; both are limited to the text. The mirror, where
  /// the move comes from, is not refreshed.
  void MoveCaret(std::size_t position, std::size_t selectionLength = 0);
  /// The key code of every character outside of 8 bits.
  static constexpr char kOtherCharacter = 0;
  /// Whether a key that the operator presses reaches the text; `onKeyPress` may reject it.
  bool LetsThrough(char key) const { return Enabled() && (!onKeyPress || onKeyPress(key)); }
  /// A whole key press: a character or Backspace (8) that is let through edits the text at the
  /// caret, within the maximum length, as a native box does.
  void PressKey(char key);
  /// The operator entered or left the box. He can leave one that was disabled meanwhile, too.
  void GainFocus();
  void LoseFocus();

  std::function<void()> onChange;
  std::function<bool(char key)> onKeyPress;  ///< False rejects the key.
  std::function<void()> onGotFocus;
  std::function<void()> onLostFocus;

 private:
  std::string text_;
  std::size_t caret_ = 0;
  std::size_t selectionLength_ = 0;
  std::size_t maxLength_ = 0;
};

inline constexpr char kBackspace = 8;

/// The keys that a box for digits alone lets through.
constexpr bool IsDigitOrBackspace(char key) { return key == kBackspace || IsDigit(key); }

/// The state common to all controls with a list of entries, whose indexes count from 0. Its text is
/// that of the selected entry, "" without a selection.
class ItemList : public Control {
 public:
  const std::vector<std::string>& Items() const { return items_; }
  void AddItem(std::string item);
  /// Adds them all and refreshes the mirror once.
  void AddItems(std::vector<std::string> items);
  /// Removes an entry, and the selection if it was that one, without `onSelect`. An index outside
  /// the list changes nothing.
  void RemoveItem(int index);
  /// Replaces all entries and removes the selection, without `onSelect`. The mirror is refreshed
  /// once and never sees an empty list in between, so that a list on the screen keeps its place.
  void SetItems(std::vector<std::string> items);

  /// Index of the selected entry, -1 without a selection.
  int ListIndex() const { return listIndex_; }
  std::string Text() const;
  /// Selects an entry, or none with -1, and raises `onSelect` when the selection changed. Raises
  /// invalid property value (380) for any other index.
  void SetListIndex(int index);
  /// Selects the first entry of this text likewise; without one the selection stays as it is.
  void Select(const std::string& text);

  /// The operator picks an entry; `onSelect` is raised even for the selected one. An index outside
  /// the list changes nothing.
  void Choose(int index);

  /// How often entries were removed: a mirror that only adds is out of date once this has grown.
  std::size_t Removals() const { return removals_; }

  std::function<void()> onSelect;

 protected:
  ~ItemList() = default;

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
  std::size_t removals_ = 0;
};

/// A list that shows its selected entry, and all of them when it is opened.
class DropDownList : public ItemList {};

/// A list that shows several entries at once.
class ListBox : public ItemList {};

/// A number that is set by moving a thumb or by arrow keys.
class ScrollBar : public Control {
 public:
  int Min() const { return min_; }
  int Max() const { return max_; }
  /// `min` must not be above `max`. Limits the value to the new range, as `SetValue` does.
  void SetRange(int min, int max);
  int Value() const { return value_; }
  /// Limits the value to the range; raises `onChange` when it differs from the old one.
  void SetValue(int value);

  /// The operator moves the thumb to this value.
  void Scroll(int value);

  std::function<void()> onChange;

 private:
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
};

class OptionGroup;

/// One of several choices; selecting it deselects its siblings.
class OptionButton : public Control {
 public:
  bool Selected() const { return selected_; }
  /// The program's choice: raises `onChange` when the option was not selected before.
  void Select();
  /// The operator's click: as `Select`, then raises `onClick`, at every press.
  void Click();

  std::function<void()> onChange;
  std::function<void()> onClick;

 private:
  friend class OptionGroup;
  void Deselect();

  OptionGroup* group_ = nullptr;
  bool selected_ = false;
};

/// Three options of which at most one is selected.
class OptionGroup {
 public:
  OptionGroup();
  OptionButton& operator[](std::size_t index) { return options_[index]; }
  const OptionButton& operator[](std::size_t index) const { return options_[index]; }
  static constexpr std::size_t Size() { return 3; }

 private:
  friend class OptionButton;
  void DeselectOthers(const OptionButton& chosen);

  OptionButton options_[3];
};

/// The pages of the window, one of which is shown. They count from 0; the index is not checked.
class TabView : public Control {
 public:
  int Page() const { return page_; }
  void SetPage(int page);

 private:
  int page_ = 0;
};

/// A text box that holds a file's full path. The operator may type into it, or drop a file onto it.
class PathBox : public TextBox {
 public:
  /// The operator drops a file here: raises `onDrop`, which decides whether its full path becomes
  /// the text.
  void Drop(const std::string& path) {
    if (Enabled() && !path.empty() && onDrop) onDrop(path);
  }

  std::function<void(const std::string&)> onDrop;
};

}  // namespace tarvo
