#!/usr/bin/env bash
# Runs a command on another machine's software: a Debian of another architecture in a folder of its own.
#
#   scripts/other-machine.sh i386 bookworm COMMAND...     its programs of 32 bits, Wine among them
#   scripts/other-machine.sh amd64 trixie COMMAND...      a newer Debian, and so a newer Wine
#
# The root is made by debootstrap at the first time, a few minutes, from the mirror that this machine takes its packages
# from, and is kept in ~/.cache/tarvo-machines (TARVO_MACHINES names another folder). The repository and /tmp are
# where they are here; what the command changes elsewhere stays in the root. Wants root's rights.
set -euo pipefail
repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
[[ $# -ge 3 ]] || { sed -n '2,8s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2; exit 2; }
architecture=$1
suite=$2
shift 2
root=${TARVO_MACHINES:-$HOME/.cache/tarvo-machines}/$suite-$architecture
# A prefix of one Wine is none for another.
export TARVO_WINE_TEMPLATE=$repository/build/wine-prefix-$suite-$architecture

packages=(wine xvfb xauth openbox iproute2 procps util-linux perl fonts-liberation fonts-wine libgl1
  libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1
  cmake imagemagick xdotool python3 python3-aiosmtpd python3-prometheus-client)
[[ $architecture == i386 ]] && packages+=(wine32) || packages+=(wine64)
[[ $suite == bookworm ]] && packages+=(libgnutls30) || packages+=(libgnutls30t64)

missing() {
  echo "other-machine: $*" >&2
  exit 1
}

# The first archive that this machine's apt is told of.
mirror() {
  { cat /etc/apt/sources.list /etc/apt/sources.list.d/*.list /etc/apt/sources.list.d/*.sources 2>/dev/null || true; } |
    sed -nE 's/^URIs: *([^ ]+).*/\1/p; s/^deb +(\[[^]]*\] +)?([^ ]+) .*/\2/p' | sed -n 1p
}

make_root() {
  local from
  from=$(mirror)
  [[ -n $from ]] || missing "no mirror in /etc/apt"
  echo "Making $root, which takes some minutes ..." >&2
  mkdir -p "$(dirname "$root")"
  rm -rf "$root"
  debootstrap --variant=minbase --arch="$architecture" "$suite" "$root" "$from" >"$root.log" 2>&1 ||
    { tail -5 "$root.log" >&2; missing "debootstrap failed, see $root.log"; }
}

add_packages() {
  in_root bash -euc 'export DEBIAN_FRONTEND=noninteractive
    apt-get update && apt-get install -y --no-install-recommends "$@" && apt-get clean' _ "${packages[@]}" \
    >>"$root.log" 2>&1 || { tail -5 "$root.log" >&2; missing "the packages could not be installed, see $root.log"; }
  echo "${packages[*]}" >"$root/.complete"
}

# Mounts of its own, which go with the last process.
in_root() {
  ROOT=$root REPOSITORY=$repository FOLDER=$PWD ARCHITECTURE=${architecture/amd64/x86_64} \
    unshare --mount --propagation private bash -euc '
    mkdir -p "$ROOT$REPOSITORY"
    mount --bind "$REPOSITORY" "$ROOT$REPOSITORY"
    mount --bind /tmp "$ROOT/tmp"
    touch "$ROOT/etc/hosts"
    mount --bind /etc/hosts "$ROOT/etc/hosts"
    mount --rbind /dev "$ROOT/dev"
    mount -t proc proc "$ROOT/proc"
    mount --rbind /sys "$ROOT/sys"
    exec setarch "$ARCHITECTURE" chroot "$ROOT" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TARVO_WINDOWS_BUILD="${TARVO_WINDOWS_BUILD:-}" \
      TARVO_WINE_TEMPLATE="$TARVO_WINE_TEMPLATE" bash -c "cd \"\$1\" && shift && exec \"\$@\"" _ "$FOLDER" "$@"' _ "$@"
}

[[ $(id -u) == 0 ]] || missing "wants root's rights, for debootstrap and chroot"
"$repository/scripts/install-packages.sh" machines
[[ -e $root/.complete ]] || make_root
[[ -e $root/.complete && $(<"$root/.complete") == "${packages[*]}" ]] || add_packages
in_root "$@"
