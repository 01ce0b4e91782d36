#!/usr/bin/env bash
# Every source file has the house's format, and every room uses only those that docs/architecture.md allows it.
set -euo pipefail
cd "$(dirname "$0")/.."

files=$(git ls-files '*.cpp' '*.h')
[[ -n $files ]] || { echo "git lists no source file here." >&2; exit 1; }
mapfile -t sources <<<"$files"
if ! clang-format --dry-run --Werror "${sources[@]}"; then
  echo "Run: clang-format -i FILE" >&2
  exit 1
fi

scripts/check-includes.py
scripts/check-names.sh
