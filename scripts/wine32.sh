#!/usr/bin/env bash
# 32-bit Wine in a small i386 system of its own, since its packages do not stand beside those of a 64-bit system.
#
#   wine32.sh --setup           makes it where it is not there yet, from the mirror that apt is set to
#   wine32.sh PROGRAM ARG...    runs a program of this folder in it; what the program starts ends with it
#
# Exit status 3 of --setup: it cannot be made here, and why.
set -euo pipefail
cache=${XDG_CACHE_HOME:-$HOME/.cache}/tickmux
root=$cache/wine32

refuse() {
    echo "$0: 32-bit Wine needs $1" >&2
    exit 3
}

if [ "${1:-}" = --setup ]; then
    [ "$(id -u)" = 0 ] || refuse "root rights, to enter a system of its own"
    unshare --mount --pid --fork chroot / true 2>/dev/null || refuse "the right to mount and to change the root"
    [ -d "$root" ] && exit 0
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' | head -1)
    suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mkdir -p "$cache"
    rm -rf "$root.part"
    log=$(mktemp)
    echo "making an i386 system with Wine"
    if ! debootstrap --arch=i386 --variant=minbase --include=wine,wine32 "$suite" "$root.part" "$mirror" >"$log" 2>&1; then
        tail -20 "$log" >&2
        rm -f "$log"
        refuse "packages of i386, which could not be installed"
    fi
    rm -f "$log"
    mv "$root.part" "$root"
    exit 0
fi

here=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$root$here"
export here root
exec unshare --mount --pid --fork --kill-child bash -euc '
    mount --bind "$here" "$root$here"
    mount -t proc proc "$root/proc"
    exec chroot "$root" env -i HOME=/tmp PATH=/usr/bin:/bin WINEPREFIX=/tmp/prefix WINEARCH=win32 WINEDEBUG=-all \
        /usr/lib/wine/wine "$@"' "$0" "$@"
