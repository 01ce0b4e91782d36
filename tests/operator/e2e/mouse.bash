# Real mouse and windows on the story's display, to be sourced behind story.sh.
#
#   tray_icon                      # waits until the launcher's icon is to be seen
#   tray_click BUTTON [TIMES]      # 1 left, 3 right
#   press CONTROL INDEX [TIMES]    # with the mouse, on the page shown; two presses are a double click
#   expect_shown | expect_hidden   # the launcher's window
#   window_seen TITLE              # true when a window of that title is to be seen

# Wine shows notification icons in a window of its explorer's, which bears a title in some versions alone. The tool tip of an
# icon is one more, which the window manager does not keep; those that it keeps are found last.
tray_window() { xdotool search --onlyvisible --class '^explorer' 2>/dev/null | tail -1; }
tray_there() { [[ -n $(tray_window) ]]; }
tray_gone() { [[ -z $(tray_window) ]]; }

tray_icon() {
  await 15 tray_there || fail "no icon in the notification area"
  # Out from under the launcher's window.
  xdotool windowmove "$(tray_window)" 1000 800
  sleep 0.5
}

tray_click() {
  xdotool mousemove --window "$(tray_window)" 10 10
  sleep 0.3
  xdotool click --repeat "${2:-1}" --delay 60 "$1"
}

press() {
  local window place
  window=$(xdotool search --onlyvisible --name ' - Tarvo Launcher$' | head -1)
  place=$(state "$1" "$2")
  IFS=, read -r left top width height <<<"${place##*place=}"
  xdotool mousemove --window "$window" $((left + width / 2)) $((top + height / 2))
  sleep 0.2
  xdotool click --repeat "${3:-1}" --delay 60 1
  sleep 0.5
}

launcher_shown() { [[ $(state window) == *"visible=1 minimized=0"* ]]; }
launcher_hidden() { [[ $(state window) == *"visible=0"* ]]; }
expect_shown() { await 5 launcher_shown || fail "not shown: $(state window)"; }
expect_hidden() { await 5 launcher_hidden || fail "not hidden: $(state window)"; }

window_seen() { [[ -n $(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null) ]]; }
window_unseen() { ! window_seen "$1"; }
