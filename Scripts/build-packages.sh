#!/usr/bin/env bash
# build-packages.sh
#
# Builds the Debian packages in build/packages and has lintian look them over.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

Scripts/install-packages.sh desktop-file-utils dpkg-dev file gzip lintian shared-mime-info
desktop-file-validate packaging/desktop/*.desktop
cmake --preset release -B build/packages -DCMAKE_INSTALL_PREFIX=/usr -DTAVRIN_TESTS=OFF
cmake --build build/packages --parallel "$(nproc)"
cd build/packages
rm -f ./*.deb
cpack
lintian --fail-on error --tag-display-limit 0 ./*.deb
