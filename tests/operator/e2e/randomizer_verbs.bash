# The randomizer's verbs, to be sourced behind story.sh.
#
#   items LIST                  # its entries, one a line
#   text CONTROL [INDEX]
#   xml ROOT ELEMENT...         # a document file as the launcher writes it
#   expect_bytes FILE TEXT      # the file beside the launcher holds exactly these bytes
#   put_ranges ELEMENT...       # writes randomize.xml, before the launcher is started
#   server_file                 # conf/battle_athena.conf

items() { operate items "$@" | tr -d '\r'; }
text() { operate text "$@" | tr -d '\r'; }
server_file() { printf '%s/conf/battle_athena.conf' "$ROOT"; }

# A mark behind the text keeps its last line end alive through "$(...)", and goes in expect_bytes.
xml() {
  local root=$1 element
  shift
  printf '<?xml version="1.0" encoding="ISO-8859-1" application="Tarvo Launcher"?>\r\n<%s>\r\n' "$root"
  for element in "$@"; do printf '\t%s\r\n' "$element"; done
  printf '</%s>\r\n#' "$root"
}

expect_bytes() {
  printf '%s' "${2%#}" >"$WINE_DIR/expected"
  cmp "$ROOT/$1" "$WINE_DIR/expected" || {
    od -c "$ROOT/$1" | head -40 >&2
    fail "$1 holds other bytes"
  }
}

put_ranges() {
  local document
  document=$(xml Randomize "$@")
  printf '%s' "${document%#}" >"$ROOT/randomize.xml"
}
