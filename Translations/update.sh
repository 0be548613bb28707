#!/usr/bin/env bash
# update.sh LUPDATE FOLDER
#
# Brings the catalogues in FOLDER up to date with the texts of the sources.
set -euo pipefail

folder=$(realpath "$2")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

lupdate=("$1" -silent -locations none -no-obsolete)
"${lupdate[@]}" Core -ts "$folder"/bcflib_*.ts
"${lupdate[@]}" Examples/IssueBrowser Examples/Common -ts "$folder"/issue-browser_*.ts
