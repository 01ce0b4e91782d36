#!/usr/bin/env bash
# The short list of clang-tidy's checks over the product's sources; every finding is fatal.
#
#   scripts/check-tidy.sh              what has changed since the last commit that passed here, or else since main;
#                                      everything when there is neither, or when the list has changed
#   scripts/check-tidy.sh --changed    the same, but only what is not committed when there is neither
#   scripts/check-tidy.sh --all        everything
#
# Wants the preset native configured, for the header that it generates. The sources for Windows are read as clang's
# mingw target with the headers of the mingw compiler; every check of the list works there.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p build/lint

base() {
  local passed=build/lint/passed commit
  if [[ -s $passed ]] && git merge-base --is-ancestor "$(<"$passed")" HEAD 2>/dev/null; then
    cat "$passed"
    return
  fi
  for commit in main origin/main; do
    commit=$(git merge-base HEAD "$commit" 2>/dev/null) || continue
    [[ $commit == "$(git rev-parse HEAD)" ]] || echo "$commit"
    return
  done
}

# Sources that differ from the commit, and for each header that does one source that includes it.
changed_since() {
  local file
  { git diff --name-only "$1" && git ls-files --others --exclude-standard; } | while read -r file; do
    [[ $file != *.h ]] || file=$(git grep -lF "#include \"$file\"" -- '*.cpp' ':!tests' ':!benches' ':!fuzz' | head -1 || true)
    [[ $file != *.cpp || ! -e $file ]] || echo "$file"
  done | sort -u
}

product() { grep -vE '^(tests|benches|fuzz)/' || true; }

# tidy FILE...: each by itself.
tidy() {
  local flags=(-std=c++20 -I"$PWD" -I"$PWD/build/native/generated")
  if [[ $1 == */windows/* || $1 == app/main.cpp || ${1##*/} == windows_* ]]; then
    local headers
    headers=$(dirname "$(x86_64-w64-mingw32-g++-win32 -print-libgcc-file-name)")/include/c++
    flags+=(--target=x86_64-w64-mingw32 -stdlib++-isystem"$headers" -isystem"$headers/x86_64-w64-mingw32"
      -D_WIN32_WINNT=0x0601 -DWIN32_LEAN_AND_MEAN -DNOMINMAX)
  fi
  clang-tidy --quiet --header-filter="^$PWD/.*" "$@" -- "${flags[@]}" 2>/dev/null
}

# tidy_room FILE...: some sources of one room. The system's headers take most of the time, so the sources are read
# as one; where that cannot be, two of them having a name in common, or finds something, each half is read by itself.
tidy_room() {
  (($# > 1)) || { tidy "$1"; return; }
  local together half=$(($# / 2)) found=0
  together=$(mktemp "build/lint/$([[ $1 != */windows/* ]] || echo windows_)XXXXXX.cpp")
  printf '#include "%s"\n' "$@" >"$together"
  if ! tidy "$together" >/dev/null; then
    tidy_room "${@:1:half}" || found=1
    tidy_room "${@:half+1}" || found=1
  fi
  rm "$together"
  return $found
}
export -f tidy tidy_room

since= passed=1
[[ ${1:-} == --all ]] || since=$(base)
if [[ ${1:-} == --changed ]] && { [[ -z $since ]] || ! git diff --quiet "$since" -- .clang-tidy scripts/check-tidy.sh; }; then
  sources=$(changed_since "${since:-HEAD}" | product)
  passed=0
elif [[ -n $since ]] && git diff --quiet "$since" -- .clang-tidy scripts/check-tidy.sh; then
  sources=$(changed_since "$since" | product)
else
  sources=$(git ls-files '*.cpp' | product)
fi
[[ $sources != */windows/* ]] || scripts/install-packages.sh windows

# A line of at most forty sources of one room, or of one folder for Windows or a tool, the longest first. What has
# names in common with its neighbours stands alone.
awk '{ room = $0
    if (/\/(windows|tool)\//) { if (!/_panel/) sub(/[^\/]*$/, "", room) } else if ($0 != "app/main.cpp") sub(/\/.*/, "", room)
    group = room " " int(count[room] / 40)
    line[group] = line[group] $0 " "
    ++count[room] }
  END { for (i in line) print length(line[i]), line[i] }' <<<"$sources" | sort -rn | cut -d' ' -f2- |
  sed '/^ *$/d' | xargs -r -P "$(nproc)" -d '\n' -I{} bash -c 'set -f; tidy_room {}'
[[ $passed == 0 ]] || git rev-parse HEAD >build/lint/passed
