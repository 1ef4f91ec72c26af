#!/usr/bin/env bash
# Sourced by ./run, ./test and ./bench: installs what is missing of Debian's packages and builds a preset.
# Does nothing that need not be done: when all is there, only dpkg and the build tool have a look.

# shellcheck disable=SC2034 # Whoever sources this uses them.
packages_run=(
    cmake dbus fonts-dejavu-core fonts-inter g++ libicu-dev libboost-dev libgl-dev libplist-dev ninja-build
    pkg-config python3 qt6-base-dev
)
# shellcheck disable=SC2034
packages_test=("${packages_run[@]}"
    at-spi2-core clang clang-format desktop-file-utils dpkg-dev file gir1.2-atspi-2.0 libclang-rt-14-dev
    libgtest-dev python3-gi python3-xlib strace xdotool xvfb
)
# shellcheck disable=SC2034
packages_bench=("${packages_run[@]}"
    libbenchmark-dev libcairo2-dev
)

say() { printf '%s\n' "$*" >&2; }

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        say "Installing packages needs root or sudo: $*"
        exit 1
    fi
}

# need_packages NAME...: installs those that are not there.
need_packages() {
    local missing
    missing=$(comm -23 <(printf '%s\n' "$@" | sort -u) \
        <(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p' | sort -u))
    [ -n "$missing" ] || return 0
    say "Installing $(tr '\n' ' ' <<<"$missing")"
    # shellcheck disable=SC2086 # One word a package.
    { as_root apt-get update -qq \
        && as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing; } >&2
}

# build_preset NAME [TARGET...]: configures once, then builds what has changed.
build_preset() {
    local preset=$1 log
    shift
    log=build/$preset.log
    mkdir -p build
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring ($preset)"
        cmake --preset "$preset" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
    fi
    local targets=()
    [ $# = 0 ] || targets=(--target "$@")
    if ! cmake --build --preset "$preset" "${targets[@]}" >"$log" 2>&1; then
        cat "$log" >&2
        say "The build ($preset) failed."
        exit 1
    fi
}
