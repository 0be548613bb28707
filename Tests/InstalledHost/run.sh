#!/usr/bin/env bash
# run.sh BUILD CXX
#
# Installs a build to a scratch folder, moves that folder away, and builds and runs the host against
# it: once with CMake, once with pkg-config and a plain call of the compiler.
set -euo pipefail

host=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$1
cxx=$2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
unset DESTDIR

cmake --install "$build" --prefix "$scratch/made" >"$scratch/log"
mv "$scratch/made" "$scratch/moved"

run()
{
    told=$("$1" "$scratch/$2.bcf")
    [ "$told" = "Duct runs through beam" ] || {
        echo "The host built with $2 told \"$told\"" >&2
        exit 1
    }
}

cmake -S "$host" -B "$scratch/cmake" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_PREFIX_PATH="$scratch/moved" >"$scratch/log" || { cat "$scratch/log" >&2; exit 1; }
cmake --build "$scratch/cmake" >"$scratch/log" || { cat "$scratch/log" >&2; exit 1; }
run "$scratch/cmake/host" CMake

pc=$(find "$scratch/moved" -name tavrin-bcflib.pc)
export PKG_CONFIG_PATH=${pc%/*}
# Unquoted, as everybody writes it.
"$cxx" -std=c++17 -fPIC "$host/main.cpp" -o "$scratch/host" $(pkg-config --cflags --libs tavrin-bcflib)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir tavrin-bcflib)
export LD_LIBRARY_PATH
run "$scratch/host" pkg-config
