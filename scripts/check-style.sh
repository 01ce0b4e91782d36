#!/usr/bin/env bash
# Every source file has the house's format, and every room uses only those that docs/architecture.md allows it.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files '*.cpp' '*.h' || true)
if ! clang-format --dry-run --Werror "${sources[@]}"; then
  echo "Run: clang-format -i FILE" >&2
  exit 1
fi

scripts/check-includes.py
scripts/check-names.sh
