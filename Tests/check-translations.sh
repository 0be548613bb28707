#!/usr/bin/env bash
# check-translations.sh LUPDATE
#
# Fails if a catalogue lacks a text of the sources, holds one that is gone, or leaves one untranslated.
# After a change of texts: cmake --build BUILD_FOLDER --target update-translations
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cp Translations/*.ts "$scratch"
Translations/update.sh "$1" "$scratch"
for catalogue in Translations/*.ts; do
    diff -u "$catalogue" "$scratch/$(basename "$catalogue")"
done
if grep -n 'type="unfinished"' Translations/*.ts; then
    exit 1
fi
