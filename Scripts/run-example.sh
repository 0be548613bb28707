#!/usr/bin/env bash
# run-example.sh [ARCHIVE...]
#
# Builds the library and prints what stands in the archives, by default in the samples.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# In the project's folder, where the presets are; the archives are named from the caller's.
(
    cd "$root"
    Scripts/install-packages.sh
    cmake --preset release
    cmake --build --preset release --parallel "$(nproc)" --target bin/bcf-inspect
)

if [ $# -eq 0 ]; then
    set -- "$root"/Examples/Samples/*.bcf*
fi
exec "$root/build/release/bin/bcf-inspect" "$@"
