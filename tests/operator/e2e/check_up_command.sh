#!/usr/bin/env bash
# --check: a list and an exit code, with a launcher in the root and without one, as text and as JSON.
source "$(dirname "$0")/story.sh"
story_begin "$0" "$@"
settings_write "$ROOT" LoginAutoKillEnabled=1 CharAutoKillEnabled=1 MapAutoKillEnabled=1

# check WORDS...: what is said, in $said, and the exit code, in $code.
check() {
  code=0
  said=$(wine_run "$(wine_path "$ROOT/tarvo-launcher.exe")" "$@" 2>"$WINE_DIR/errors" | cat) || code=$?
  said=${said//$'\r'/}
}
expect_code() { expect_equal "$code" "$1" "the exit code of --check, which said '$said'"; }

check --check
expect_code 0
[[ $said == *" note"* && $said != *error* ]] || fail "without a fault it said '$said'"
sed -i 's/^map_ip:/Map_IP:/' "$ROOT/conf/map_athena.conf"
check --check
expect_code 1
[[ $said == "warning: conf-key-missed: conf\\map_athena.conf, line 18"* ]] || fail "it said '$said'"
sed -i 's/^Map_IP:/map_ip:/; s/\r$//' "$ROOT/conf/map_athena.conf"
check --check
expect_code 2
[[ $said == "error: conf-line-ends: conf\\map_athena.conf"* ]] || fail "it said '$said'"
check --check --json
expect_code 2
python3 - "$said" <<'PYTHON' || fail "the JSON is '$said'"
import json, sys
told = json.loads(sys.argv[1])
names = [finding["name"] for finding in told["findings"]]
assert names[0] == "conf-line-ends" and "port" in names, names
assert told["errors"] == 2 and told["warnings"] == 0, told
assert all(set(f) == {"name", "severity", "about", "wrong", "advice"} for f in told["findings"])
PYTHON

# A hundred megabytes of conf.
head -c 100000000 /dev/zero | tr '\0' '/' >"$ROOT/conf/map_athena.conf"
check --check
expect_code 0
[[ $said == *"only its beginning was checked"* ]] || fail "of a large file it said '$said'"

# The launcher that runs takes no notice, and nothing is left behind.
"$E2E_REPOSITORY/scripts/make-demo-root.sh" "$ROOT" "${PORTS[@]}" >/dev/null
start_launcher
operate click bStart 0
expect_log 20 "Listening Login Server"
lines=$(operate text RTLog)
files=$(cd "$ROOT" && find . | sort)
check --check
expect_code 0
expect_equal "$(operate text RTLog)" "$lines" "the log after --check"
expect_equal "$(cd "$ROOT" && find . | sort)" "$files" "the files after --check"
operate click bStart 0
close_launcher

# No server root, and a program that is not there any more.
rm -r "$ROOT/conf"
check --check
expect_code 2
[[ $said == *"folder: conf\\login_athena.conf"* ]] || fail "without conf it said '$said'"
