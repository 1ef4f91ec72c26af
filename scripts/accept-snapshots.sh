#!/usr/bin/env bash
# Replaces the expected pictures in tests/snapshots/ by what the tests draw now. Look at each one before it is committed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
build_preset asan
VEKORA_ACCEPT_SNAPSHOTS=1 ctest --preset asan -R Snapshot
git status --short tests/snapshots
