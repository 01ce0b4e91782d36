# A bash library, to be sourced behind wine-env.sh: a launcher in a server root, driven and watched.
#
#   settings_write ROOT NAME=TEXT ...   stores string values under the root's settings key
#   settings_read ROOT NAME             prints one, nothing and exit code 1 when it is missing
#   launcher_start ROOT                 starts the launcher that stands in the root; waits for nothing;
#   operate ARGUMENT...                 the operator program, for the launcher of LAUNCHER_ROOT
#   run_headless ROOT SECONDS           prints the status log as it grows, then ends all

WINDOWS_BUILD=${TARVO_WINDOWS_BUILD:-$WINE_REPOSITORY/build/windows-64}
SETTINGS_PREFIX='Software\TarvoLab\Servers\'

# The registry key under HKEY_LOCAL_MACHINE of a root's settings.
settings_key() {
  local path
  path=$(wine_path "$1")\\
  path=${path//[:\\]/_}
  local digest
  # The launcher's bytes are those of the code page that Wine has here.
  digest=$(printf '%s' "$path" | iconv -f UTF-8 -t CP1252 | md5sum | cut -d' ' -f1)
  printf '%s%s\n' "$SETTINGS_PREFIX" "${digest^^}"
}

settings_write() {
  local root=$1 file pair text
  shift
  file=$(mktemp "$WINE_DIR/settings.XXXXXX")
  {
    printf 'REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\%s]\r\n' "$(settings_key "$root")"
    for pair in "$@"; do
      text=${pair#*=}
      text=${text//\\/\\\\}
      printf '"%s"="%s"\r\n' "${pair%%=*}" "${text//\"/\\\"}"
    done
  } >"$file"
  wine_run regedit /S "$(wine_path "$file")"
  rm -f "$file"
}

settings_read() {
  local line
  line=$(wine_run reg query "HKLM\\$(settings_key "$1")" /v "$2" 2>/dev/null | tr -d '\r' |
    grep -E "^ +$2 +REG_SZ") || return 1
  sed -E "s/^ +$2 +REG_SZ( {4})?//" <<<"$line"
}

launcher_start() {
  LAUNCHER_ROOT=$1
  local folder=$PWD
  cd "$LAUNCHER_ROOT"
  wine_spawn "$(wine_path "$LAUNCHER_ROOT/tarvo-launcher.exe")"
  LAUNCHER_PROCESS=$WINE_SPAWNED
  cd "$folder"
}

# Waits for the launcher's end; its exit code.
launcher_wait() {
  wait "$LAUNCHER_PROCESS"
}

operate() {
  wine_run "$WINDOWS_BUILD/operator.exe" --root "$(wine_path "$LAUNCHER_ROOT")" "$@"
}

# What the demo root's operator has chosen: all three servers start by themselves and are watched.
choose_demo_settings() {
  settings_write "$1" LoginAutoStart=1 CharAutoStart=1 MapAutoStart=1 \
    LoginAutoKillEnabled=1 CharAutoKillEnabled=1 MapAutoKillEnabled=1
}

run_headless() {
  local root=$1 seconds=$2
  launcher_start "$root"
  if ! operate wait-window 30; then
    operate box >&2 || true
    echo "The launcher did not show its window." >&2
    return 1
  fi
  operate follow RTLog "$seconds" || return 1
  operate click bStart 4 || return 1
  operate close && operate wait-gone 30 && launcher_wait
}

# A Windows of the checkout's own, which keeps its settings from one run to the next.
windows_kept() {
  wine_find
  WINE_DIR=$(mktemp -d "${TMPDIR:-/tmp}/tarvo-wine.XXXXXX")
  trap wine_stop EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP
  export WINEPREFIX=$WINE_REPOSITORY/build/wine-prefix
  mkdir -p "$WINEPREFIX"
  [[ -e $WINEPREFIX/system.reg ]] || { echo "Preparing Windows ..." >&2; wine_run wineboot -i; }
}

run_on_display() {
  local root=$1
  if [[ -z ${DISPLAY:-} ]]; then
    wine_display
    echo "No display here; the launcher runs on the virtual display $DISPLAY." >&2
    echo "A picture of it: DISPLAY=$DISPLAY import -window root picture.png" >&2
  fi
  launcher_start "$root"
  launcher_wait
}
