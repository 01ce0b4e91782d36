#!/usr/bin/env bash
# The programs that play the stories tell their words: the acceptance the names of its stories, the operator program a
# manual in which each command stands that a story gives.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
listed=$(wine_run "$WINDOWS_BUILD/tarvo-acceptance.exe" --list | tr -d '\r' | cut -d: -f1)
expect_equal "$listed" "$(sed -nE 's/^ +\{"([a-z_]+)", ".*/\1/p' "$E2E_FOLDER/../acceptance/table.cpp")" "the stories"
code=0
wine_run "$WINDOWS_BUILD/tarvo-acceptance.exe" --story no_such 2>"$WINE_DIR/complaint" || code=$?
expect_equal "$code" 100 "exit code for a story that is not there"
grep -qF "there is no story no_such" "$WINE_DIR/complaint" || fail "it says: $(cat "$WINE_DIR/complaint")"

manual=$(wine_run "$WINDOWS_BUILD/operator.exe" help | tr -d '\r')
used=$(grep -rhoE '\boperate [a-z][a-z-]+' "$E2E_FOLDER" | cut -d' ' -f2 | sort -u)
(($(wc -l <<<"$used") > 15)) || fail "the stories use: $used"
for verb in $used; do
  grep -qE "^  operator (.* )?$verb( |\$)" <<<"$manual" || fail "the manual does not tell of $verb"
done
