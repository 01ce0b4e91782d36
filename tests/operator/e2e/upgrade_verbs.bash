# What the stories of the upgrade share, sourced behind story.sh: three newly built servers in a
# folder of their own, told from the old ones by bytes behind their end and by their dates.

BUILD_DAY=10

# new_builds NAME...: makes (or makes anew, a day later) the new executables of these servers in $NEWS.
new_builds() {
  local name
  NEWS=$WINE_DIR/new
  mkdir -p "$NEWS"
  ((++BUILD_DAY))
  for name; do
    rm -f "$NEWS/$name-server.exe"
    cp "$ROOT/$name-server.exe" "$NEWS/$name-server.exe"
    printf 'build %s of %s' "$BUILD_DAY" "$name" >>"$NEWS/$name-server.exe"
    touch -d "2026-01-$BUILD_DAY 12:34:56 UTC" "$NEWS/$name-server.exe"
  done
}

new_path() { wine_path "$NEWS/$1-server.exe"; }

type_paths() {
  operate set nPath 0 "$(new_path login)"
  operate set nPath 1 "$(new_path char)"
  operate set nPath 2 "$(new_path map)"
}

# keep_old: the bytes of the root's executables, to compare with later.
keep_old() {
  mkdir -p "$WINE_DIR/old"
  cp -p "$ROOT"/{login,char,map}-server.exe "$WINE_DIR/old/"
}

expect_same() { cmp -s "$1" "$2" || fail "$3: $1 is not $2"; }

# The root holds the new builds whole, with their dates.
expect_new_in_root() {
  local name
  for name in login char map; do
    expect_same "$ROOT/$name-server.exe" "$NEWS/$name-server.exe" "the root's $name"
    expect_equal "$(stat -c %Y "$ROOT/$name-server.exe")" \
      "$(stat -c %Y "$NEWS/$name-server.exe")" "date of $name"
  done
}

expect_old_in_root() {
  local name
  for name in login char map; do
    expect_same "$ROOT/$name-server.exe" "$WINE_DIR/old/$name-server.exe" "the root's $name"
  done
}

# The newest backup holds what `keep_old` kept, three files of one stamp.
expect_old_in_backup() {
  local name newest stamp
  newest=$(ls "$ROOT/LBackup" | sort | tail -1)
  stamp=${newest%%_*}
  [[ $stamp =~ ^20[0-9]{10}$ ]] || fail "the backup's stamp is '$stamp'"
  for name in login char map; do
    expect_same "$ROOT/LBackup/${stamp}_$name-server.exe" "$WINE_DIR/old/$name-server.exe" "backup"
  done
}

expect_nothing_beside() {
  local left
  left=$(find "$ROOT" -name '*.tarvo-copy')
  [[ -z $left ]] || fail "left beside: $left"
}

expect_no_backup() { [[ ! -e $ROOT/LBackup ]] || fail "there is a backup: $(ls "$ROOT/LBackup")"; }
