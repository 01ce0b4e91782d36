#!/usr/bin/env bash
# The upgrade's figures under Wine.
#
#   benches/windows/upgrade/upgrade_bench.sh [BUILD-FOLDER]     build/windows-64 unless said otherwise
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
export TARVO_WINDOWS_BUILD=${1:-${TARVO_WINDOWS_BUILD:-$repository/build/windows-64}}
source "$repository/scripts/wine-env.sh"
wine_start
cd "$WINE_DIR"
wine_run "$TARVO_WINDOWS_BUILD/benches/upgrade-bench.exe"

"$repository/scripts/make-demo-root.sh" "$WINE_DIR/root" 21900 21901 21902
mkdir "$WINE_DIR/new"
for name in login char map; do
  cp "$WINE_DIR/root/$name-server.exe" "$WINE_DIR/new/"
  touch -d "2026-01-01 12:00:00" "$WINE_DIR/new/$name-server.exe"
done
cd "$WINE_DIR/root"
wine_run "$TARVO_WINDOWS_BUILD/benches/service-bench.exe" "$(wine_path "$WINE_DIR/new")"
