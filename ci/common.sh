# shellcheck shell=bash
# What the scripts of this folder share. Sourced with the project's root as the current folder.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# need PACKAGE...: installs the Debian packages that this machine lacks, and says so.
need() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "kr: installing ${missing[*]}" >&2
    local root=()
    [ "$(id -u)" -eq 0 ] || root=(sudo)
    "${root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${root[@]}" apt-get install -y -qq "${missing[@]}" >&2
}

need_build() {
    need g++ cmake ninja-build ccache libicu-dev libcli11-dev python3
}

need_tests() {
    need_build
    need libgtest-dev zlib1g-dev pkg-config python3-ezdxf gdb
}

# build PRESET [TARGET...]: configures and builds. The compiler cache ignores where the tree lies, so that a fresh clone
# profits from an earlier one.
build() {
    local preset=$1
    shift
    export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros
    cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
