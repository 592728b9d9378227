# shellcheck shell=bash disable=SC2034  # the lists are for the scripts that source this
# Functions to install what is missing and to build a preset; to be sourced by bash in the project's root folder.

PACKAGES_WINDOWS=(cmake ninja-build ccache g++-mingw-w64-x86-64-posix doctest-dev libcli11-dev rapidjson-dev wine wine64
    fonts-wine fonts-ipafont-gothic)
PACKAGES_SCREEN=(xvfb openbox imagemagick xdotool x11-utils)
LOGS=build/logs
mkdir -p "$LOGS" || exit 1

# Some callers give no home; Wine and the compiler cache need one.
if [ -z "${HOME:-}" ]; then
    HOME=$(getent passwd "$(id -u)" | cut -d: -f6)
    export HOME=${HOME:-/tmp}
fi
[ -w "$HOME" ] || export CCACHE_DIR=$PWD/build/ccache
# A clone in another folder finds the objects of the first one.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1

# as_root COMMAND...: as the user that may install packages.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        if [ -t 0 ]; then sudo "$@"; else sudo -n "$@"; fi
    else
        echo "Packages are missing, and neither root nor sudo is here to install them." >&2
        return 1
    fi
}

# install_missing PACKAGE...: asks the local list first, so that it costs nothing when all are there.
install_missing() {
    local installed package missing=()
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null)
    for package; do
        grep -qx "$package installed" <<<"$installed" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    echo "Installing ${missing[*]} (log: $LOGS/install.log)"
    if as_root apt-get -q update </dev/null >"$LOGS/install.log" 2>&1 &&
        as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 \
            install --no-install-recommends "${missing[@]}" </dev/null >>"$LOGS/install.log" 2>&1; then
        return 0
    fi
    tail -n 20 "$LOGS/install.log" >&2
    echo "Installing failed." >&2
    return 1
}

# configure PRESET: makes build/PRESET ready for building; ninja itself sees later changes of the build files.
configure() {
    local folder=build/$1 launcher=()
    if [ "$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$folder/CMakeCache.txt" 2>/dev/null)" != "$PWD" ]; then
        rm -rf "$folder"  # made by a clone that has since moved
    fi
    [ "$folder/build.ninja" -nt CMakePresets.json ] && return 0
    command -v ccache >/dev/null && launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake --preset "$1" "${launcher[@]}"
}

# build PRESET [TARGET]: configures and builds; the output goes to a log, the end of it to the screen when it fails.
build() {
    local log=$LOGS/build-$1.log target=()
    [ -n "${2:-}" ] && target=(--target "$2")
    if { configure "$1" && cmake --build "build/$1" "${target[@]}" -j "$(nproc)"; } </dev/null >"$log" 2>&1; then
        return 0
    fi
    { grep -E -m 20 '(error|warning): |CMake Error' "$log"; tail -n 10 "$log"; } | cut -c 1-300 >&2
    echo "Building $1 failed; see $log" >&2
    return 1
}
