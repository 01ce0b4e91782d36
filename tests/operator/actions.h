#pragma once

#include "launcher.h"

namespace tarvo {

/// What a person does to a control. Each first makes sure that a person could: the window is seen,
/// no message box is up, the control is enabled; a control on another page is gone to first.

/// That alone; an error says what hinders a person.
void NeedReach(HWND launcher, const FoundControl& control);

void Click(HWND launcher, const FoundControl& control);
void SetTo(HWND launcher, const FoundControl& control, const std::string& text);
/// The keys of these characters, one after the other, at the caret.
void TypeKeys(HWND launcher, const FoundControl& control, const std::string& characters);
/// Moves the thumb of a scroll bar.
void Scroll(HWND launcher, const FoundControl& control, int value);
/// An entry by its text, or by its index as "#2".
void Select(HWND launcher, const FoundControl& control, const std::string& entry);
void Check(HWND launcher, const FoundControl& control, bool checked);
/// The text of an entry of a list, a drop-down one or one that is always open.
std::string EntryOf(const FoundControl& list, LRESULT index);
/// How many entries it has.
LRESULT EntryCount(const FoundControl& list);

/// Pages are counted from 1.
void GoToPage(HWND launcher, int page);
/// A command of the window's own menu: SC_CLOSE, SC_MINIMIZE, SC_RESTORE.
void WindowCommand(HWND launcher, WPARAM command);
/// What the system tells every window of a program at the end of the session: "asked" whether it
/// may end, that it "ends", or that the end is called "off". A message box hinders none of it.
void LogOff(HWND launcher, const std::string& step);

/// The page that is shown, counted from 1.
int ShownPage(HWND launcher);

}  // namespace tarvo
