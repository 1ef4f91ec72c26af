#!/usr/bin/env bash
# Formats, lints, builds with sanitizers and runs all tests: before every commit.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
need_packages "${packages_test[@]}" clang-tidy
mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format -i "${sources[@]}"
build_preset asan
if [ $# -eq 0 ]; then
    mapfile -t sources < <(git ls-files '*.cpp' | grep -Ev '^(tests|fuzz|benchmarks)/')
    set -- "${sources[@]}"
fi
# The commands are GCC's, some of whose warnings and options are its own.
mkdir -p build/tidy
sed 's/ -fno-gnu-unique / /' build/asan/compile_commands.json >build/tidy/compile_commands.json
clang-tidy --quiet --extra-arg=-Wno-unknown-warning-option -p build/tidy "$@"
exec ./test
