#!/usr/bin/env bash
# Makes the Debian package of the program: build/package/vekora-host_VERSION_MACHINE.deb. Words are handed to cpack.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
need_packages "${packages_run[@]}" dpkg-dev file
build_preset release
# What the package gives must not depend on who makes it.
umask 022
rm -rf build/package
cpack --config build/release/CPackConfig.cmake -B build/package "$@" >build/package.log 2>&1 \
    || { cat build/package.log >&2; exit 1; }
printf 'The package is %s\n' build/package/*.deb
