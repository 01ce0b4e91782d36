#!/usr/bin/env bash
# On a screen of 1280 by 1024 the whole window is seen at 200 %; at 300 % it stays on the screen, and the
# mouse wheel and the keyboard bring the rest into view.
source "$(dirname "$0")/story.sh"
source "$(dirname "$0")/look.bash"
story_begin "$0" "$@"

# Sets X, Y, WIDTH and HEIGHT of the window's client. Of a window in a frame xdotool tells a wrong place.
measure() {
  eval "$(xdotool getwindowgeometry --shell "$(look_window)" | grep -E '^(WIDTH|HEIGHT)=')"
  xdotool mousemove --window "$(look_window)" 0 0
  eval "$(xdotool getmouselocation --shell | grep -E '^(X|Y)=')"
}

# within CONTROL [INDEX]: all of it is in view.
within() {
  local left top width height
  read -r left top width height < <(look_place "$(operate state | tr -d '\r')" "$@")
  ((left >= 0 && top >= 0 && left + width <= WIDTH && top + height <= HEIGHT))
}

expect_on_screen() {
  measure
  ((X >= 0 && Y >= 0 && X + WIDTH <= 1280 && Y + HEIGHT <= 1024)) || fail "$WIDTH x $HEIGHT at $X,$Y"
  look_painted
}

look_at_scale 200
start_launcher
expect_on_screen
for page in "1 RTLog" "2 Command1" "3 lstDTRands" "4 UpdateNow"; do
  operate page "${page% *}"
  within "${page#* }" || fail "not all of ${page#* } at 200 %"
  within lblMemory || fail "not all of the header at 200 %"
done
close_launcher

look_at_scale 300
start_launcher
expect_on_screen
operate page 4
within UpdateNow && fail "all of the page, on so small a screen"
xdotool mousemove $((X + WIDTH / 2)) $((Y + HEIGHT * 2 / 3)) # Where the page is empty.
sleep 0.3
xdotool click --repeat 3 --delay 100 5
scrolled() { read -r _ top _ < <(look_place "$(operate state | tr -d '\r')" SName) && ((top < 0)); }
await 5 scrolled || fail "the wheel moves nothing"
xdotool key shift+Tab
await 5 within UpdateNow || fail "the focus is out of sight"
xdotool key Tab
back() { read -r left _ < <(look_place "$(operate state | tr -d '\r')" SSTab1) && ((left >= 0)); }
await 5 back || fail "the tabs are out of sight"
close_launcher
