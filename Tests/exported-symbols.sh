#!/usr/bin/env bash
# exported-symbols.sh [--update] LIBRARY
#
# Fails if the library exports more or less than exported-symbols.txt lists, so that nothing gets out
# or lost by accident. With --update the list is written anew; look the difference over before
# it is committed, because what a host can link to has changed.
set -euo pipefail

list=$(dirname "${BASH_SOURCE[0]}")/exported-symbols.txt

# The variants of one constructor or destructor have one name here, and so have the lists that are classes
# of their own in Qt 5 alone.
exported()
{
    nm --dynamic --defined-only --demangle "$1" | cut --delimiter=' ' --fields=3- |
        sed 's/\<QStringList\>/QList<QString>/g; s/\<QVector</QList</g' | LC_ALL=C sort --unique
}

if [ "$1" = --update ]; then
    exported "$2" >"$list"
else
    exported "$1" | diff --unified=0 --label "listed" --label "exported" "$list" -
fi
