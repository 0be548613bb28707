#!/usr/bin/env bash
# run-benchmarks.sh [--quick]
#
# Builds the library and measures it. Prints the figures, and puts them into Docs/Performance.md and
# Docs/growth.svg. A quick run leaves out the largest archives, and leaves the page as it is.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

build=build/benchmarks
figures=$build/figures.json

Scripts/install-packages.sh libbenchmark-dev python3-matplotlib
cmake --preset release -B "$build" -DTAVRIN_BENCHMARKS=ON -DTAVRIN_TESTS=OFF -DTAVRIN_EXAMPLES=OFF
cmake --build "$build" --parallel "$(nproc)"
"$build/bin/bcf-benchmarks" "$@" --benchmark_out="$figures" --benchmark_out_format=json

if [ $# -eq 0 ]; then
    Scripts/benchmark-table.py "$figures" Docs/Performance.md
    Scripts/plot-growth.py "$figures" Docs/growth.svg
else
    Scripts/benchmark-table.py "$figures"
    Scripts/plot-growth.py "$figures" "$build/growth.svg"
fi
