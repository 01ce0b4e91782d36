#!/usr/bin/env bash
# Installs what is missing of the named groups of Debian packages; does nothing when all is there.
#
#   scripts/install-packages.sh windows wine native
#   scripts/install-packages.sh --list windows    prints what is missing, a package a line, and installs nothing
set -euo pipefail
list=0
[[ ${1:-} != --list ]] || { list=1; shift; }

declare -A groups=(
  [windows]="cmake ninja-build g++-mingw-w64-x86-64-win32 binutils-mingw-w64-x86-64 googletest"
  [windows-32]="g++-mingw-w64-i686-win32 binutils-mingw-w64-i686"
  [wine]="python3 python3-pefile wine64 wine xvfb xauth openbox iproute2 procps util-linux fonts-liberation fonts-wine libgl1
    libgnutls30 libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1 python3-prometheus-client"
  [native]="cmake ninja-build g++ libgtest-dev googletest python3-aiosmtpd python3-markdown python3-prometheus-client
    nlohmann-json3-dev"
  [lint]="git clang-format clang-tidy python3"
  [bench]="cmake ninja-build g++ libpugixml-dev libtinyxml2-dev libctemplate-dev"
  [pictures]="imagemagick xdotool"
  [fuzz]="clang libclang-rt-14-dev nlohmann-json3-dev"
  [mutate]="git python3-clang libclang-common-14-dev"
  [machines]="debootstrap"
  [release]="git cmake ninja-build python3 python3-markdown python3-pefile"
)

missing=()
for group in "$@"; do
  for package in ${groups[$group]:?no such group: $group}; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $status == installed || " ${missing[*]:-} " == *" $package "* ]] || missing+=("$package")
  done
done
[[ ${#missing[@]} -gt 0 ]] || exit 0
[[ $list == 0 ]] || { printf '%s\n' "${missing[@]}"; exit 0; }

as_root=()
if [[ $(id -u) -ne 0 ]]; then
  command -v sudo >/dev/null || { echo "These packages are missing: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}" >&2
export DEBIAN_FRONTEND=noninteractive
log=$(mktemp)
trap 'rm -f "$log"' EXIT
{ "${as_root[@]}" apt-get update &&
  "${as_root[@]}" apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1 ||
  { cat "$log" >&2; exit 1; }
