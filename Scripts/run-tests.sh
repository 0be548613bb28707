#!/usr/bin/env bash
# run-tests.sh [PRESET [CMAKE OPTION...]]
#
# Builds everything with a preset of CMakePresets.json, by default "release", and runs all tests.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

preset=${1:-release}
shift || true

Scripts/install-packages.sh
cmake --preset "$preset" "$@"
cmake --build --preset "$preset" --parallel "$(nproc)"
ctest --preset "$preset" --parallel "$(nproc)"
