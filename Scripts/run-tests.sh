#!/usr/bin/env bash
# run-tests.sh [PRESET [CMAKE OPTION...]]
#
# Builds everything with a preset of CMakePresets.json, by default "release", and runs all tests. The
# preset "qt6" builds with Qt 6 in place of Qt 5.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-release}
shift || true

qt=()
[ "$preset" != qt6 ] || qt=(--qt6)
Scripts/install-packages.sh "${qt[@]}"
cmake --preset "$preset" -DTAVRIN_TESTS=ON "$@"
cmake --build --preset "$preset" --parallel "$(nproc)"
ctest --preset "$preset" --parallel "$(nproc)"
