#!/usr/bin/env bash
# install-packages.sh [--qt6] [PACKAGE...]
#
# Installs the Debian packages that the build and the tests need, with Qt 5 or with Qt 6, and those that
# are named, as far as they are missing.
set -euo pipefail

qt_packages=(libquazip1-qt5-dev qtbase5-dev qttools5-dev-tools)
if [ "${1:-}" = --qt6 ]; then
    qt_packages=(libquazip1-qt6-dev qt6-base-dev qt6-l10n-tools)
    shift
fi

packages=(
    build-essential
    cmake
    libexpat1-dev
    libicu-dev
    liblog4cplus-dev
    libopenscenegraph-dev
    ninja-build
    pkg-config
    python3
    python3-jsonschema
    unzip
    zlib1g-dev
    "${qt_packages[@]}"
    "$@"
)

missing=()
for package in "${packages[@]}"; do
    state=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "Missing packages: ${missing[*]}. Install them as root, or install sudo." >&2
        exit 1
    }
    as_root=(sudo)
fi

echo "Installing ${missing[*]}"
"${as_root[@]}" apt-get update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install --yes --no-install-recommends "${missing[@]}"
