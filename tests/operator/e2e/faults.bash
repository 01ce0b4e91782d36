# A library for the stories of a launcher that dies of a fault of its own: its faulty build in the root,
# with a day's file.

faulty_begin() {
  story_begin "$@"
  cp --remove-destination "$WINDOWS_BUILD/tarvo-launcher-faulty.exe" "$ROOT/tarvo-launcher.exe"
  settings_write "$ROOT" WriteLog=1
}

# The lines about faults in the day's files.
fault_lines() { cat "$ROOT"/2*.log | tr -d '\r' | grep -F " crashed! [" || true; }

# expect_fault CODE OUTCOME: the last of these lines tells it, in the form of every line.
expect_fault() {
  local form="^[0-9-]{10} [0-9:]{8}: Tarvo Launcher v\.[0-9.]+ crashed! \[$1 at [^]]+\], $2\$"
  fault_lines | tail -1 | grep -qE "$form" || fail "the day's file tells no fault $1, $2:" "$(fault_lines)"
}

# raise KIND: the launcher that was started here dies of it.
raise() {
  operate fault "$1"
  if launcher_wait; then fail "the launcher ended as if nothing were wrong"; fi
}

# A launcher that is older than a minute is started again.
grow_old() { sleep "$((60 - SECONDS + STARTED > 0 ? 61 - SECONDS + STARTED : 0))"; }
