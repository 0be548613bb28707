#!/usr/bin/env bash
# run.sh BUILD CXX
#
# Installs a build to a scratch folder, moves that folder away, and builds the first of the example hosts as
# it is installed there and runs it on the installed sample: once with CMake, once with pkg-config and a
# plain call of the compiler.
set -euo pipefail

host=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$1
cxx=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset DESTDIR
export XDG_CACHE_HOME=$scratch/cache

cmake --install "$build" --prefix "$scratch/made" >"$scratch/log"
mv "$scratch/made" "$scratch/moved"
examples=$(find "$scratch/moved" -type d -name Examples)
sample=$examples/Samples/coordination.bcf
"$host/../check-links.py" "${examples%/*}"

newer=$scratch/newer.bcf
python3 - "$sample" "$newer" <<'EOF'
import sys, zipfile
with zipfile.ZipFile(sys.argv[1]) as sample, zipfile.ZipFile(sys.argv[2], 'w') as newer:
    for name in sample.namelist():
        newer.writestr(name, sample.read(name).replace(b'VersionId="2.1"', b'VersionId="3.0"'))
EOF

run()
{
    "$1" "$sample" "$scratch/$2.bcf" >"$scratch/$2.json" 2>"$scratch/log" || { cat "$scratch/log" >&2; exit 1; }
    "$host/check.py" "$sample" "$scratch/$2.bcf" <"$scratch/$2.json"

    # What is read only in part is told so, and not replaced by that part.
    cp "$newer" "$scratch/before"
    if "$1" "$newer" "$newer" >"$scratch/log" 2>&1; then exit 1; fi
    cmp "$newer" "$scratch/before"
    "$1" "$newer" "$scratch/part.bcf" >/dev/null 2>"$scratch/log"
    grep -q 'are not read' "$scratch/log"
}

pc=$(find "$scratch/moved" -name tavrin-bcflib.pc)
export PKG_CONFIG_PATH=${pc%/*}
qt=$(pkg-config --print-requires tavrin-bcflib | sed -n 's/^Qt\(.\)Core.*/\1/p')

cmake -S "$host" -B "$scratch/cmake" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" -DQT="$qt" \
    -DCMAKE_PREFIX_PATH="$scratch/moved" -DFIRST_HOST="$examples/FirstHost/main.cpp" >"$scratch/log" || { cat "$scratch/log" >&2; exit 1; }
cmake --build "$scratch/cmake" >"$scratch/log" || { cat "$scratch/log" >&2; exit 1; }
run "$scratch/cmake/host" CMake

static=$(find "$scratch/moved" -name '*.a' -printf --static -quit)
# Unquoted, as everybody writes it.
"$cxx" -std=c++17 -fPIC "$scratch/cmake/all_headers.cpp" "$examples/FirstHost/main.cpp" -o "$scratch/host" \
    $(pkg-config $static --cflags --libs tavrin-bcflib "quazip1-qt$qt")
LD_LIBRARY_PATH=$(pkg-config --variable=libdir tavrin-bcflib)
export LD_LIBRARY_PATH
run "$scratch/host" pkg-config
