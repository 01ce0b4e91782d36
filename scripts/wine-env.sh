# A bash library, to be sourced: a Windows of one's own for the length of a script, by Wine on a
# virtual display.
#
#   source scripts/wine-env.sh
#   wine_own_network "$0" "$@"       # optional, first of all; acts when TARVO_NETNS=1
#   wine_start                       # own display, own clean prefix; ended however the script ends
#   wine_run program.exe argument    # runs it to its end; its exit code
#   wine_spawn program.exe argument  # starts it and goes on; its Unix process id is in WINE_SPAWNED
#   wine_path /a/b                   # prints Z:\a\b, or C:\... for a file of the prefix
#   wine_stop                        # early; the exit trap calls it as well
#
# After wine_start: WINE_DIR (a folder that goes with the script), WINEPREFIX, DISPLAY.
# TARVO_KEEP=1 leaves the folder behind for a look at it. TARVO_WINE_LIMIT: seconds after which
# wine_run gives up (default 300); the exit code is 124 then.
#
# Nothing is touched but what the script started itself: other displays, prefixes and Wine servers
# of the machine go on undisturbed.

WINE_REPOSITORY=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
WINE_TEMPLATE=${TARVO_WINE_TEMPLATE:-$WINE_REPOSITORY/build/wine-prefix-template}

export WINEDEBUG=${WINEDEBUG:--all}
# No .NET, no HTML engine (Wine would ask to download them), no entries in the desktop's menu.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d"

wine_fail() {
  echo "wine-env: $*" >&2
  exit 1
}

# Sets WINE_PROGRAM and WINE_SERVER. The 64-bit loader by itself will do.
wine_find() {
  local candidate
  for candidate in "${TARVO_WINE:-}" "$(command -v wine64)" /usr/lib/wine/wine64 \
    "$(command -v wine)"; do
    [[ -n $candidate && -x $candidate ]] && WINE_PROGRAM=$candidate && break
  done
  for candidate in "$(command -v wineserver)" /usr/lib/wine/wineserver64 \
    /usr/lib/wine/wineserver; do
    [[ -n $candidate && -x $candidate ]] && WINE_SERVER=$candidate && break
  done
  [[ -n ${WINE_PROGRAM:-} && -n ${WINE_SERVER:-} ]] || wine_fail "no Wine (package wine64)"
  command -v Xvfb >/dev/null || wine_fail "no virtual display (package xvfb)"
}

# wine_own_network SCRIPT ARGUMENT...: with TARVO_NETNS=1, starts the script again in a network of its
# own: no port of the machine is in the way, and a connect that nobody answers ends after about
# 3 seconds instead of 2 minutes. Where that is not allowed the script goes on in the common network.
wine_own_network() {
  [[ ${TARVO_NETNS:-0} == 1 && -z ${TARVO_IN_NETNS:-} ]] || return 0
  local inside='PATH=$PATH:/usr/sbin:/sbin; ip link set lo up || exit 1
    sysctl -q -w net.ipv4.tcp_syn_retries=1 || true; exec "$@"'
  local apart
  for apart in "unshare --net" "unshare --net --map-root-user"; do
    if $apart bash -c "$inside" _ true 2>/dev/null; then
      export TARVO_IN_NETNS=1
      exec $apart bash -c "$inside" _ bash "$@"
    fi
  done
  echo "wine-env: no network of its own is allowed here; using the common one" >&2
}

# wine_path UNIX-PATH: the same file as Windows names it. Relative paths count from the current folder.
wine_path() {
  local path=$1
  [[ $path == /* ]] || path=$PWD/$path
  if [[ -n ${WINEPREFIX:-} && $path == "$WINEPREFIX"/drive_c/* ]]; then
    path=${path#"$WINEPREFIX"/drive_c}
    printf 'C:%s\n' "${path//\//\\}"
    return
  fi
  printf 'Z:%s\n' "${path//\//\\}"
}

# Makes the prefix that every clean one is copied from, once a build; two scripts may ask at once.
wine_template() {
  [[ -e $WINE_TEMPLATE/.complete ]] && return 0
  mkdir -p "$(dirname "$WINE_TEMPLATE")"
  (
    flock 9
    [[ -e $WINE_TEMPLATE/.complete ]] && exit 0
    rm -rf "$WINE_TEMPLATE"
    unset DISPLAY
    export WINEPREFIX=$WINE_TEMPLATE
    "$WINE_PROGRAM" wineboot -i </dev/null >/dev/null 2>&1 9>&- || exit 1
    "$WINE_SERVER" -w 9>&-
    touch "$WINE_TEMPLATE/.complete"
  ) 9>"$WINE_TEMPLATE.lock" || wine_fail "the prefix $WINE_TEMPLATE could not be made"
}

wine_display() {
  local number=$WINE_DIR/display
  Xvfb -displayfd 8 -screen 0 "${WINE_SCREEN:-1280x1024}x24" -nolisten tcp 8>"$number" >"$WINE_DIR/xvfb.log" 2>&1 &
  WINE_DISPLAY_PROCESS=$!
  local waited
  for ((waited = 0; waited < 100; ++waited)); do
    [[ -s $number ]] && break
    kill -0 "$WINE_DISPLAY_PROCESS" 2>/dev/null || break
    sleep 0.1
  done
  [[ -s $number ]] || wine_fail "no virtual display: $(tail -1 "$WINE_DIR/xvfb.log")"
  DISPLAY=:$(tr -d '[:space:]' <"$number")
  export DISPLAY
  # Without a window manager Wine waits 2 seconds for one at each window that it shows or hides.
  if command -v openbox >/dev/null; then
    openbox --sm-disable >"$WINE_DIR/openbox.log" 2>&1 &
    WINE_MANAGER_PROCESS=$!
  fi
}

# A prefix is 700 MB, nearly all of it Wine's own libraries, which no program writes to: those folders
# are linked to, and the rest (registry, users, program files, Windows' own temporary folder) copied.
wine_copy_prefix() {
  export WINEPREFIX=$WINE_DIR/prefix
  local windows=$WINE_TEMPLATE/drive_c/windows entry
  rm -rf "$WINEPREFIX"
  mkdir -p "$WINEPREFIX/drive_c/windows/temp"
  for entry in "$WINE_TEMPLATE"/* "$WINE_TEMPLATE"/.update-timestamp; do
    [[ ${entry##*/} == drive_c ]] || cp -a "$entry" "$WINEPREFIX/" || wine_fail "no room"
  done
  for entry in "$WINE_TEMPLATE"/drive_c/*; do
    [[ ${entry##*/} == windows ]] || cp -a "$entry" "$WINEPREFIX/drive_c/" || wine_fail "no room"
  done
  for entry in "$windows"/*; do
    if [[ ! -d $entry ]]; then
      cp -a "$entry" "$WINEPREFIX/drive_c/windows/"
    elif [[ ${entry##*/} != temp ]]; then
      ln -s "$entry" "$WINEPREFIX/drive_c/windows/"
    fi
  done
}

wine_start() {
  # Wine takes the names of files from the locale.
  export LC_ALL=C.UTF-8
  wine_find
  WINE_DIR=$(mktemp -d "${TMPDIR:-/tmp}/tarvo-wine.XXXXXX")
  trap wine_stop EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP
  wine_template
  wine_display
  wine_copy_prefix
}

# Ends every Windows program of this prefix and waits until the last is gone.
wine_end_programs() {
  [[ -n ${WINEPREFIX:-} && -d $WINEPREFIX ]] || return 0
  "$WINE_SERVER" -k >/dev/null 2>&1 || true
  timeout 20 "$WINE_SERVER" -w >/dev/null 2>&1 || true
}

wine_stop() {
  local code=$?
  trap - EXIT
  [[ -n ${WINE_DIR:-} && ${WINEPREFIX:-} == "$WINE_DIR"/* ]] && wine_end_programs
  local process
  for process in ${WINE_MANAGER_PROCESS:-} ${WINE_DISPLAY_PROCESS:-}; do
    kill "$process" 2>/dev/null || true
    wait "$process" 2>/dev/null || true
  done
  WINE_MANAGER_PROCESS= WINE_DISPLAY_PROCESS=
  if [[ -n ${WINE_DIR:-} ]]; then
    if [[ ${TARVO_KEEP:-0} == 1 ]]; then echo "kept: $WINE_DIR" >&2; else rm -rf "$WINE_DIR"; fi
    WINE_DIR=
  fi
  return "$code"
}

# A Unix path or a Windows one. Waiting for a child in the background lets a signal through at once.
wine_run() {
  timeout "${TARVO_WINE_LIMIT:-300}" "$WINE_PROGRAM" "$@" </dev/null &
  wait $!
}

wine_spawn() {
  "$WINE_PROGRAM" "$@" </dev/null &
  WINE_SPAWNED=$!
}
