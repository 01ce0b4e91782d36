# How a story puts the operator's script into the root and hears what it was told.

# put_script LINE...: the script's lines; it may write into the folder told.
put_script() {
  mkdir -p "$ROOT/told"
  printf '%s\r\n' "$@" >"$ROOT/on-event.cmd"
}

was_told() { grep -qF -- "$2" "$ROOT/told/$1.txt" 2>/dev/null; }

# expect_told EVENT-COMPONENT TEXT
expect_told() { await 30 was_told "$1" "$2" || fail "the script was not told $1: $2"; }
