#!/usr/bin/env bash
# build-docs.sh
#
# Builds the API reference in build/release/docs/html. Every gap in the headers' comments is an error.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."

Scripts/install-packages.sh doxygen graphviz
cmake --preset release
cmake --build --preset release --target docs
