#!/usr/bin/env bash
# The launcher is one file of at most 1.5 MB that needs nothing but what Windows brings, hardened as a release is.
#
#   tests/windows/executable_test.sh [BUILD-FOLDER]      (TARVO_WINDOWS_BUILD goes before it)
set -u
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=${TARVO_WINDOWS_BUILD:-${1:-$repository/build/windows-64}}
launcher=$build/tarvo-launcher.exe
limit=1500000

if [[ ! -f $launcher ]]; then
  echo "There is no $launcher." >&2
  echo "Build it first: cmake --preset windows-64 && cmake --build --preset windows-64" >&2
  exit 1
fi

failures=0
"$repository/scripts/release/check_executable.py" "$launcher" || failures=1

# The check itself: an executable without its flags is refused. They are 70 bytes behind the signature, whose place
# is at 0x3C.
stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
cp "$launcher" "$stripped"
signature=$(od -An -tu4 -j60 -N4 "$launcher")
printf '\0\0' | dd of="$stripped" bs=1 seek=$((signature + 24 + 70)) conv=notrunc status=none
if "$repository/scripts/release/check_executable.py" "$stripped" >/dev/null; then
  echo "FAILED: an executable without address randomisation passes the check"
  failures=1
fi
perl -0777 -pe 's/\x09\x04\x00\xC0/\0\0\0\0/g' "$launcher" >"$stripped"
if "$repository/scripts/release/check_executable.py" "$stripped" >/dev/null; then
  echo "FAILED: an executable that guards no stack passes the check"
  failures=1
fi
x86_64-w64-mingw32-strip -o "$stripped" "$launcher" || failures=1
size=$(stat -c %s "$stripped")
if ((size > limit)); then
  echo "FAILED: $launcher has $size bytes stripped, more than $limit"
  failures=1
fi
echo "tarvo-launcher.exe: $size bytes of at most $limit"
exit "$failures"
