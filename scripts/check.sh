#!/usr/bin/env bash
# Formats, builds with sanitizers, lints and runs all tests: before every commit. Words are the files to lint; without
# any, all but tests, fuzzers and benchmarks are. Every step is taken whatever came before, unless the build failed; the
# last lines tell how each went, and the status is 0 when all went well.
# shellcheck disable=SC2317 # The steps are called by way of `step`.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
need_packages "${packages_test[@]}" clang-tidy

format() {
    local sources
    mapfile -t sources < <(git ls-files '*.cpp' '*.h')
    clang-format -i "${sources[@]}"
}

build() { (build_preset asan); }

lint() {
    mkdir -p build/tidy
    # The commands are GCC's, some of whose warnings and options are its own.
    sed 's/ -fno-gnu-unique / /' build/asan/compile_commands.json >build/tidy/compile_commands.json
    # What it counts and holds back in the system's headers is of no interest.
    printf '%s\0' "$@" | xargs -0 -n 1 -P "$(nproc)" \
        clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p build/tidy \
        2> >(grep -Ev '^[0-9]+ warnings? generated\.$' >&2)
}

summary=()
status=0
step() {
    local name=$1 start=$SECONDS word=passed
    shift
    printf '== %s\n' "$name"
    "$@" || { word=FAILED; status=1; }
    summary+=("$(printf '%-7s %s, %d s' "$name" "$word" $((SECONDS - start)))")
    [ "$word" = passed ]
}

if [ $# -eq 0 ]; then
    mapfile -t sources < <(git ls-files '*.cpp' | grep -Ev '^(tests|fuzz|benchmarks)/')
    set -- "${sources[@]}"
fi
step format format || true
if step build build; then
    step lint lint "$@" || true
    step tests ./test || true
fi
printf '\n'
printf '%s\n' "${summary[@]}"
[ $status = 0 ] && printf 'All is well.\n' || printf 'Not all is well.\n'
exit $status
