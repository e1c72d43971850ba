# shellcheck shell=bash disable=SC2034
# Sourced by ./run and ./test: what brings a fresh Debian 12 to the point where the project builds.
# Each step says one line when it has something to do and nothing otherwise; details go to build/log/.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
logs=$root/build/log
mkdir -p "$logs"

# Qt asks for it; outside a desktop session nobody has set it.
if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
    export XDG_RUNTIME_DIR=$root/build/runtime
    [ -d "$XDG_RUNTIME_DIR" ] || mkdir -m 700 "$XDG_RUNTIME_DIR"
fi

build_packages=(cmake ninja-build g++ qt6-base-dev libasmjit-dev libgtest-dev libgmock-dev libbenchmark-dev
    fonts-liberation2)
cross_packages=(g++-mingw-w64-x86-64-posix wine64 googletest imagemagick) # for Windows, beside those

say() { printf '==> %s\n' "$*"; }

# quietly NAME COMMAND...: runs the command with its output in build/log/NAME.txt, and shows the end of that if it fails.
quietly() {
    local log=$logs/$1.txt
    shift
    "$@" >"$log" 2>&1 </dev/null && return
    tail -n 60 "$log"
    say "Failed: $* (all of its output: $log)"
    return 1
}

# The packages among the arguments that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

apt_get() {
    local as_root=
    [ "$(id -u)" = 0 ] || as_root=sudo
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -y "$@"
}

install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "Not a Debian system: going on in the hope that these are here: $*"
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} = 0 ] && return
    say "Installing packages: ${missing[*]}"
    quietly package-lists apt_get update && quietly packages apt_get install --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures build/PRESET if that was never done, and builds what is out of date.
build() {
    local preset=$1
    shift
    cd "$root" || return
    command -v ccache >/dev/null && export CMAKE_CXX_COMPILER_LAUNCHER=ccache
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring build/$preset"
        quietly "configure-$preset" cmake --preset "$preset" || return
    fi
    ninja -C "build/$preset" -n "$@" 2>/dev/null | grep -q 'no work to do' && return
    say "Building ${*:-everything} in build/$preset (the first time takes minutes)"
    quietly "build-$preset" ninja -C "build/$preset" "$@"
}
