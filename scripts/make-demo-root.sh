#!/usr/bin/env bash
# Makes a demo server root: conf files, the three sample servers and, when it is built, the launcher.
#
#   scripts/make-demo-root.sh FOLDER [LOGIN-PORT CHAR-PORT MAP-PORT]
#
# FOLDER is made when it is missing; files that it holds already are replaced, others left alone.
# The ports are those that the servers listen at and the launcher probes (6900, 6121, 5121 unless
# given). TARVO_WINDOWS_BUILD names the Windows build (build/windows-64 otherwise).
set -eu
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
if [[ $# -ne 1 && $# -ne 4 ]]; then
  sed -n '2,8s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
  exit 2
fi
root=$1
ports=("${2:-6900}" "${3:-6121}" "${4:-5121}")
for port in "${ports[@]}"; do
  if [[ ! $port =~ ^[0-9]{1,5}$ ]] || ((port < 1 || port > 65535)); then
    echo "$port is no port" >&2
    exit 2
  fi
done
build=${TARVO_WINDOWS_BUILD:-$repository/build/windows-64}

mkdir -p "$root/conf"
for file in login char map battle; do
  # The line ends are CR LF and stay so: only the digits behind the key change.
  sed -e "s/^login_port: [0-9]*/login_port: ${ports[0]}/" \
    -e "s/^char_port: [0-9]*/char_port: ${ports[1]}/" \
    -e "s/^map_port: [0-9]*/map_port: ${ports[2]}/" \
    "$repository/tests/servers/demo-root/conf/${file}_athena.conf" >"$root/conf/${file}_athena.conf"
done

for server in login char map; do
  if [[ ! -f $build/servers/$server-server.exe ]]; then
    echo "There is no $build/servers/$server-server.exe: build the preset windows-64 first." >&2
    exit 1
  fi
  # A new file, not new bytes in the old one: a server of that root may be running.
  cp --remove-destination "$build/servers/$server-server.exe" "$root/"
done
if [[ -f $build/tarvo-launcher.exe ]]; then
  cp --remove-destination "$build/tarvo-launcher.exe" "$root/"
fi
