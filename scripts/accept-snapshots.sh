#!/usr/bin/env bash
# Replaces the expected pictures in tests/snapshots/ by what the tests draw now. Look at each one before it is committed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
mkdir -p tests/snapshots
build_preset asan
for program in picker_tests driver_tests; do
    QT_QPA_PLATFORM=offscreen VEKORA_ACCEPT_SNAPSHOTS=1 "build/asan/bin/$program" --gtest_brief=1 --gtest_filter='*Snapshots*'
done
git status --short tests/snapshots
