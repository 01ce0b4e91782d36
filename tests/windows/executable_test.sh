#!/usr/bin/env bash
# The launcher is one file of at most 1.5 MB that needs nothing but what Windows brings.
#
#   tests/windows/executable_test.sh [BUILD-FOLDER]      (TARVO_WINDOWS_BUILD goes before it)
set -u
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=${TARVO_WINDOWS_BUILD:-${1:-$repository/build/windows-64}}
launcher=$build/tarvo-launcher.exe
limit=1500000
# What Windows, from 7 on, never looks for in the program's folder, where a game server may have put a
# library of the same name: its known libraries (KnownDLLs). Every other library is loaded late, comctl32
# too, which fetches the theme library before the program can say from where. api-ms-win-crt-*: the parts
# of the C run time that Windows 10 and its successors bring; these names stand for no files.
known='kernel32|user32|gdi32|advapi32|comdlg32|shell32|shlwapi|ole32|oleaut32|rpcrt4|ws2_32|msvcrt'
known+='|ntdll|imm32|psapi|api-ms-win-crt-[a-z0-9-]+'

if [[ ! -f $launcher ]]; then
  echo "There is no $launcher." >&2
  echo "Build it first: cmake --preset windows-64 && cmake --build --preset windows-64" >&2
  exit 1
fi

failures=0
libraries=$(objdump -p "$launcher" | sed -n 's/^\tDLL Name: //p' | tr -d '\r' | sort -fu)
if [[ -z $libraries ]]; then
  echo "FAILED: no import table was found in $launcher"
  failures=1
fi
for library in $libraries; do
  if ! grep -qiE "^($known)\.dll$" <<<"$library"; then
    echo "FAILED: $launcher imports $library, which may be found in the server root"
    failures=1
  fi
done

# The kinds of resources, by Windows' numbers: 14 the icon, 16 version information, 24 the manifest.
kinds=$(objdump -p "$launcher" | sed -nE 's/^[0-9a-f]{3} {3}Entry: ID: 0x0*([0-9a-f]+),.*/\1/p')
for kind in e 10 18; do
  if ! grep -qx "$kind" <<<"$kinds"; then
    echo "FAILED: $launcher has no resource of the kind 0x$kind"
    failures=1
  fi
done
for word in asInvoker PerMonitor Microsoft.Windows.Common-Controls; do
  if ! grep -aqF "$word" "$launcher"; then
    echo "FAILED: the manifest of $launcher lacks $word"
    failures=1
  fi
done

stripped=$(mktemp)
trap 'rm -f "$stripped"' EXIT
x86_64-w64-mingw32-strip -o "$stripped" "$launcher" || failures=1
size=$(stat -c %s "$stripped")
if ((size > limit)); then
  echo "FAILED: $launcher has $size bytes stripped, more than $limit"
  failures=1
fi
echo "tarvo-launcher.exe: $size bytes of at most $limit; imports" $libraries
exit "$failures"
