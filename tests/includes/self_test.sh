#!/usr/bin/env bash
# The script over #include on a tree that keeps the plan, and on the same tree with one thing that breaks it.
set -euo pipefail
cd "$(dirname "$0")/../.."
work=${1:?the folder to work in}

put() { mkdir -p "$(dirname "$tree/$1")" && cat >"$tree/$1"; }

# Two storeys and a room of adapters; the upper one includes the lower, its adapter and one header of the adapters.
plant() {
  tree=$work/$1
  rm -rf "$tree"
  put docs/architecture.md <<'END'
| room | what lives there | may use |
|---|---|---|
| `lower/` | rules | the standard library, lower/deep |
| `lower/deep/` | what rules are made of | the standard library |
| `lower/windows/` | adapters | Windows, lower |
| `upper/` | watches | `lower/`, `lower/windows/late.h` |
| `top/` | the entry | all of them |

Only what stands above counts: `nowhere/`.
END
  put lower/rules.h <<<$'#include <string>\n#include "lower/deep/part.h"'
  put lower/deep/part.h <<<'#include <vector>'
  put lower/windows/late.h <<<'#include "lower/rules.h"'
  put lower/windows/late.cpp <<<'#include <windows.h>'
  put upper/watch.cpp <<<$'#include "lower/rules.h"\n#include "lower/windows/late.h"\n#include "upper/watch.h"'
  put top/main.cpp <<<$'#include "upper/watch.h"\n#include "lower/windows/late.h"'
  put tests/upper/watch_test.cpp <<<$'#include <gtest/gtest.h>\n#include "top/main.h"'
  put tests/windows/late_test.cpp <<<'#include <windows.h>'
}

expect() {  # what the script says of the tree; nothing when it keeps the plan
  local code=0 said
  said=$(scripts/check-includes.py "$tree") || code=$?
  if [[ $said != "$1" || $code != $([[ -z $1 ]] && echo 0 || echo 1) ]]; then
    printf '%s, exit code %s:\n%s\n-- expected:\n%s\n' "$tree" "$code" "$said" "$1"
    exit 1
  fi
}

plant kept
expect ""

plant upward
put lower/rules.cpp <<<'#  include "upper/watch.h"'
expect 'lower/rules.cpp:1: lower may not use upper: upper/watch.h'

plant one_header_only
put upper/other.cpp <<<$'\n#include "lower/windows/other.h"'
expect 'upper/other.cpp:2: upper may not use lower/windows: lower/windows/other.h'

plant windows_header
put upper/other.cpp <<<'#include <tlhelp32.h>'
put tests/upper/other_test.cpp <<<$'#include <vector>\n#ifdef _WIN32'
expect 'tests/upper/other_test.cpp:2: tests may not use Windows: #ifdef _WIN32
upper/other.cpp:1: upper may not use Windows: #include <tlhelp32.h>'

plant circle
sed -i '/^| `lower\/` /s/the standard library/upper/' "$tree/docs/architecture.md"
expect 'docs/architecture.md: a circle: lower -> upper -> lower
docs/architecture.md: a circle: lower -> upper -> lower/windows -> lower'

plant unlisted
put attic/trunk.h <<<'#include <string>'
put upper/trunk.cpp <<<'#include "attic/trunk.h"'
expect 'attic/ is no room of docs/architecture.md
upper/trunk.cpp:1: attic/trunk.h is in no room'

plant no_folder
rm -r "$tree/lower/windows/late.cpp" "$tree/lower/windows/late.h"
expect 'docs/architecture.md: the room lower/windows has no file'

plant no_such_word
sed -i 's/| `lower\/`, /| lower and some more, /' "$tree/docs/architecture.md"
expect 'docs/architecture.md: upper may use "lower and some more", which is no room
upper/watch.cpp:1: upper may not use lower: lower/rules.h'

plant no_table
put docs/architecture.md <<<'The plan is in the air.'
expect 'docs/architecture.md: no table "room | what lives there | may use"
lower/ is no room of docs/architecture.md
top/ is no room of docs/architecture.md
upper/ is no room of docs/architecture.md'
