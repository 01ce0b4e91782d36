#pragma once

namespace tarvo {

inline constexpr char kManual[] =
    R"(operator: drives a running Tarvo Launcher the way a person does, by its controls' names.

  operator click NAME [INDEX]            presses a button, a check box or an option
  operator check NAME [INDEX]            checks a check box; uncheck takes the check away
  operator set NAME [INDEX] TEXT         puts a text into a text box
  operator type NAME [INDEX] KEYS        presses the keys of these characters in a text box
  operator scroll NAME [INDEX] VALUE     moves the thumb of a scroll bar
  operator select NAME [INDEX] ENTRY     chooses an entry by its text, or by its number as #2
  operator page N                        goes to page N, counted from 1
  operator close | minimize | maximize | restore   what the buttons of the title bar do

  operator log-off asked|ends|off        what the system tells at a log-off: it asks whether the
                                         session may end, ends it, or calls the end off

  operator answer yes|no|ok              waits for a message box, prints it, presses the button
  operator choose-file PATH              waits for the file dialog, types the path, presses Open
  operator cancel-file                   waits for the file dialog and presses Cancel
  operator drop NAME [INDEX] PATH        drops a file onto a control
  operator box                           prints the message box that is up; exit code 1 for none

  operator text NAME [INDEX]             prints the text of a control
  operator items NAME [INDEX]            prints the entries of a list, one a line
  operator tooltip NAME [INDEX]          prints the tool tip that the control would show
  operator state                         prints one line for the window and one for each control
  operator state window | NAME [INDEX]   prints that line alone
  operator clipboard                     prints the text on the clipboard
  operator captions                      prints the names of the pages, and what the page shown says
  operator repaint                       has everything of the window drawn anew
  operator layout                        prints what overlaps, is cut or has no name; 1 if any
  operator follow NAME [INDEX] SECONDS   prints the lines of a control as they come

  operator fault access|memory|abort|throw|unheard   makes the launcher's faulty build fail so

  operator wait-window SECONDS           waits until the launcher's window is to be seen
  operator wait-text NAME [INDEX] TEXT SECONDS   waits until a control's text contains TEXT
  operator wait-gone SECONDS             waits until the launcher's process has ended

  --pid N       the launcher with this process id, if several run
  --root DIR    the launcher whose executable lies in this folder
  --wait SEC    how long a box or dialog is waited for; 5 unless said otherwise

A control that stands alone needs no index. A control on another page is gone to first. What a
person could not do is refused: a control that is disabled, a window that is hidden, a window
behind a message box. The exit code is 0, or 1 with the reason on the error output.

A line of state:
  window title="..." visible=1 minimized=0 enabled=1 page=1 pid=32
  bStart 0 enabled=1 visible=1 text="Start" place=12,300,76,25
with checked=0|1 for check boxes and options, selection=N for lists (-1: none), value=N for scroll
bars, light=0xBBGGRR for status lights. The place is left, top, width and height in the window, in
its pixels. In texts a line end is \r\n, a quote is \" and a backslash is \\.
)";

}  // namespace tarvo
