#!/usr/bin/env bash
# The document library's tool on Windows: a template that calls a component of the system.
#
#   tests/windows/xmltool_test.sh [BUILD-FOLDER]      (TARVO_WINDOWS_BUILD goes before it)
set -u
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
source "$repository/scripts/wine-env.sh"
export TARVO_NETNS=${TARVO_NETNS:-1}
wine_own_network "$0" "$@"
build=${TARVO_WINDOWS_BUILD:-${1:-$repository/build/windows-64}}
program=$build/xmltool.exe
[[ -f $program ]] || { echo "There is no $program: build the preset windows-64 first." >&2; exit 1; }
failures=0

# render NAME TEMPLATE WANTED: the tool's output, its complaint behind it. Of a WANTED that ends with
# "..." only the beginning is compared, and something has to follow.
render() {
  local name=$1 template=$2 wanted=$3 actual
  printf '%s' "$template" >page.tpl
  actual=$(wine_run "$program" render page.tpl guild.xml 2>complaint)
  actual+=$(grep -a '^xmltool: ' complaint | tr -d '\r')
  if [[ $actual == "$wanted" || ($wanted == *... && $actual == "${wanted%...}"?*) ]]; then
    echo "ok      $name"
  else
    echo "FAILED  $name: wanted \"$wanted\", got \"$actual\""
    failures=1
  fi
}

wine_start
trap wine_stop EXIT
cd "$WINE_DIR" || exit 1
printf '<guild><folder>C:\\windows</folder><A\361o>7</A\361o></guild>' >guild.xml

render "a value goes to the component and its result into the text" \
  '[<@field ext(Scripting.FileSystemObject, BuildPath, VAR(folder), notepad.exe)>]' \
  '[C:\windows\notepad.exe]'
render "a result that is no text becomes one" \
  '<@field ext(Scripting.FileSystemObject, FolderExists, VAR(folder))>' 'True'
render "a component that is not there is an error with its description" \
  '<@field ext(No.Such, Do)>' 'xmltool: 10107 parse.external: No.Such.Do: ...'
render "a method that is not there, too" \
  '<@field ext(Scripting.FileSystemObject, NoSuch)>' \
  'xmltool: 10107 parse.external: Scripting.FileSystemObject.NoSuch: ...'
render "an exception of the method, too" \
  '<@field ext(Scripting.FileSystemObject, GetFile, C:\none.txt)>' \
  'xmltool: 10107 parse.external: Scripting.FileSystemObject.GetFile: ...'
render "names are compared by the letters of the code page" $'<@field a\321O>' '7'
render "line ends stay as they are" $'a\nb\r\nc' $'a\nb\r\nc'
exit "$failures"
