#!/usr/bin/env bash
# Makes the README's pictures anew, with the driver; the inspector's on a screen of its own. Look at each one before it is
# committed.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
. scripts/setup.sh
need_packages "${packages_run[@]}" python3-xlib xdotool xvfb
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
same=(--root "$root" --now 2014-01-05T10:17:42 --timezone Europe/Berlin --locale en_US --statusbar)
./run drive "${same[@]}" >/dev/null <<'SCRIPT'
tap "Vekora Now"
tap "Button Color"
tap 187 119
paste "#3366CC"
answer "Save"
shot docs/pictures/color.png
back
shot docs/pictures/main.png
SCRIPT
./run drive "${same[@]}" --bundle build/release/Gallery.bundle --size 375x900 >/dev/null <<'SCRIPT'
scroll 440
shot docs/pictures/gallery.png
SCRIPT
# Debian's Python, as Xlib is a package of its.
/usr/bin/python3 scripts/draw-inspector.py build/release/bin/vekora-host "$root/inspector" docs/pictures/inspector.png
git status --short docs/pictures
