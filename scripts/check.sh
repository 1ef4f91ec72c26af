#!/usr/bin/env bash
# Formats, lints, builds with sanitizers and runs all tests: before every commit.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
need_packages "${packages_test[@]}" clang-tidy
mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format -i "${sources[@]}"
build_preset asan
clang-tidy --quiet -p build/asan "${@:-$(git ls-files '*.cpp' | grep -v '^tests/')}"
exec ./test
