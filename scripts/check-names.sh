#!/usr/bin/env bash
# docs/names.md explains every control, timer and setting.
set -euo pipefail
cd "$(dirname "$0")/.."

names() {
  grep -oP 'ControlId\{"\K\w+' form/control_ids.h
  sed -n '/^Timers::Timers/,/^}/p' form/form.cpp | grep -oP '"\K\w+(?=")'
  # A setting is named where it is read or written.
  git grep -hoP '\b(Read\w*|Write\w*|ValueName|\w+Name)\([^"]*"\K[A-Z][A-Za-z]+(?=")' -- core randomizer upgrade desktop app
}

missing=0
for name in $(names | sort -u); do
  grep -qF "\`$name\`" docs/names.md || { echo "docs/names.md does not explain $name." >&2; missing=1; }
done
exit "$missing"
