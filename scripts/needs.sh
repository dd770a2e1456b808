# Installs Debian packages that are missing. To be sourced.
#
#   needs PACKAGE...      install what is not there; with no_install=1 only name it and fail
#
# An ordinary user's installs go through sudo.

no_install=0

needs() {
    if ! command -v dpkg-query >/dev/null; then
        echo "$0: this is not a Debian system; install by hand what stands for: $*" >&2
        return 1
    fi
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$no_install" = 1 ]; then
        echo "$0: missing packages: ${missing[*]}; install them, or leave out --no-install" >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "$0: missing packages, and no sudo to install them; as root: apt-get install ${missing[*]}" >&2
            return 1
        fi
        echo "$0: installing with sudo: ${missing[*]}"
        as_root=(sudo)
    else
        echo "$0: installing: ${missing[*]}"
    fi
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        echo "$0: the packages could not be installed" >&2
        return 1
    fi
    rm -f "$log"
}

# What every build needs.
build_packages=(g++ cmake ninja-build ccache libgtest-dev libbenchmark-dev libcli11-dev libpcap-dev)

# What the fuzz targets need beyond that.
fuzz_packages=(clang-14 libclang-rt-14-dev)

# What has been compiled before, in any folder of this machine, is not compiled again.
export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# build PRESET: configures and builds; what the tools print is shown where they fail.
build() {
    local log
    log=$(mktemp)
    echo "building $1"
    if ! { cmake --preset "$1" && cmake --build --preset "$1"; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        echo "$0: building $1 failed" >&2
        return 1
    fi
    rm -f "$log"
}
