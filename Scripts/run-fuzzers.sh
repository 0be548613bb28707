#!/usr/bin/env bash
# run-fuzzers.sh SECONDS [TARGET...]
#
# Builds the fuzz targets and runs each, or those named, for that many seconds. Fails on a finding,
# which stays in build/fuzz/findings; "build/fuzz/bin/TARGET FILE" shows it again.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:?Usage: Scripts/run-fuzzers.sh SECONDS [TARGET...]}
shift
[ $# -gt 0 ] || set -- FuzzArchive FuzzMarkup FuzzViewpoint FuzzVariant FuzzDoor

Scripts/install-packages.sh clang libclang-rt-dev
cmake --preset fuzz
cmake --build --preset fuzz --parallel "$(nproc)"

export ASAN_OPTIONS=allocator_may_return_null=1:detect_leaks=1
mkdir -p build/fuzz/findings
for target in "$@"; do
    # What earlier runs have found out is where the next one goes on.
    mkdir -p "build/fuzz/corpus/$target"
    echo "$target for $seconds seconds"
    "build/fuzz/bin/$target" -max_total_time="$seconds" -dict=Fuzz/bcf.dict -timeout=25 -rss_limit_mb=4096 \
        -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$target-" \
        "build/fuzz/corpus/$target" "build/fuzz/Fuzz/seeds/$target"
done
