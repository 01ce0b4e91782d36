#!/usr/bin/env bash
# The mutation command on a room whose breaks are all known: some that its tests notice, one that hangs, one that
# changes nothing that can be seen and one that no test looks for.
set -euo pipefail
cd "$(dirname "$0")/../.."
build="${1:?the folder to work in}/a folder"
mkdir -p "$build"
known=$build/known.txt

check() {  # the exit code and the output that are expected
  local code=0 output
  output=$(/usr/bin/python3 scripts/mutate/main.py tiny --root tests/mutate/tiny --build "$build" \
    --equivalent "$known" 2>"$build/errors.txt") || code=$?
  if [[ $code != "$1" || $output != "$2" ]]; then
    printf 'exit code %s, expected %s\n%s\n-- expected:\n%s\n' "$code" "$1" "$output" "$2"
    cat "$build/errors.txt"
    exit 1
  fi
}

: >"$known"
check 1 'tiny/tiny.cpp:13: `a < b` < is <=
    int Larger(int a, int b) { return a < b ? b : a; }
tiny/tiny.cpp:15: `mark == '"'?'"'` == is !=
    bool Ends(char mark) { return mark == '"'?'"'; }
tiny/tiny.cpp:15: `'"'?'"'` is '"'~'"'
    bool Ends(char mark) { return mark == '"'?'"'; }
tiny: 23 breaks, 20 noticed, 3 unnoticed
23 breaks, 20 noticed, 3 unnoticed'

cat >"$known" <<'END'
tiny/tiny.cpp ## int Larger(int a, int b) { return a < b ? b : a; } ## `a < b` < is <= ## of equal numbers either is the larger
tiny/tiny.cpp ## bool Ends(char mark) { return mark == '?'; } ## `mark == '?'` == is != ## nobody calls it
tiny/tiny.cpp ## bool Ends(char mark) { return mark == '?'; } ## `'?'` is '~' ## nobody calls it
tiny/tiny.cpp ## nowhere ## removed ## left from another day
END
check 0 'tiny: 20 breaks, 20 noticed, 0 unnoticed
20 breaks, 20 noticed, 0 unnoticed'
grep -q 'No such break any more: tiny/tiny.cpp ## nowhere' "$build/errors.txt"
