#!/usr/bin/env bash
# make-screenshot.sh [BUILD FOLDER]
#
# Makes Docs/issue-browser.png: the issue browser with the sample archive, drawn without a display.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

# A font, since the offscreen platform brings none, and what makes the picture small.
packages=(fonts-dejavu-core optipng)
if ! dpkg-query --show "${packages[@]}" >/dev/null 2>&1; then
    as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "${packages[@]}"
fi

build=${1:-build/release}
if [ $# -eq 0 ]; then
    Scripts/install-packages.sh
    cmake --preset release
fi
cmake --build "$build" --parallel "$(nproc)" --target issue-browser

# One picture on every machine: the style, the size of the letters, the dates, the user's name.
mkdir -p Docs
QT_QPA_PLATFORM=offscreen QT_STYLE_OVERRIDE=Fusion QT_FONT_DPI=78 \
    LC_ALL=C.UTF-8 TZ=UTC USER=maria.lindqvist@example.com \
    "$build/bin/issue-browser" --screenshot Docs/issue-browser.png Examples/Samples/coordination.bcf
optipng -quiet -o4 Docs/issue-browser.png
