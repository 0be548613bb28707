#!/usr/bin/env bash
# check-format.sh [--fix]
#
# Fails if a source differs from what clang-format makes of it; with --fix it is changed instead.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

Scripts/install-packages.sh clang-format
mode=(--dry-run --Werror)
if [ "${1:-}" = --fix ]; then
    mode=(-i)
fi
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format "${mode[@]}"
