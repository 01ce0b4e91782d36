#!/usr/bin/env bash
# Every source file has the house's format, and the Windows headers stay in their rooms.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files '*.cpp' '*.h' || true)
if ! clang-format --dry-run --Werror "${sources[@]}"; then
  echo "Run: clang-format -i FILE" >&2
  exit 1
fi

if git grep -nIE '#\s*include\s*<(windows|winsock2|commctrl|richedit|shellapi|tlhelp32|wininet)\.h>|_WIN32' -- \
  '*.h' '*.cpp' ':!platform/windows' ':!xmldoc/mail/windows' ':!ui/windows' ':!tests/windows' ':!tests/servers' \
  ':!tests/operator' ':!benches/windows'; then
  echo "Windows headers belong to the folders windows/ of the rooms." >&2
  exit 1
fi
