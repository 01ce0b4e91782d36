# Verbs for the launcher's command line, to be sourced behind story.sh.

# ask ARGUMENT...: gives the launcher of the root a command; ANSWERED is its exit code, SAID its standard output,
# COMPLAINED its standard error, both without CR.
ask() {
  ANSWERED=0
  wine_run "$(wine_path "$ROOT/tarvo-launcher.exe")" "$@" >"$WINE_DIR/said" 2>"$WINE_DIR/complained" || ANSWERED=$?
  SAID=$(tr -d '\r' <"$WINE_DIR/said")
  COMPLAINED=$(tr -d '\r' <"$WINE_DIR/complained")
}

# expect_answer CODE OUTPUT ERROR ARGUMENT...
expect_answer() {
  ask "${@:4}"
  expect_equal "$ANSWERED" "$1" "exit code of ${*:4} ($COMPLAINED)"
  expect_equal "$SAID" "$2" "output of ${*:4}"
  expect_equal "$COMPLAINED" "$3" "complaint of ${*:4}"
}

# json EXPRESSION: of the state, read by Python as `state`.
json() {
  ask --state json
  python3 -c 'import json, sys
state = json.loads(open(sys.argv[1], "rb").read().decode("utf-8"))
print(eval(sys.argv[2], {"state": state}))' "$WINE_DIR/said" "$1"
}

no_box() { ! operate box >/dev/null 2>&1; }
