#!/usr/bin/env bash
# browse-under-xvfb.sh [BUILD_FOLDER [PICTURE_FOLDER]]
#
# Uses the issue browser as a person would, with keys and mouse on a screen that nobody sees: filters,
# edits, saves, and opens what can't be opened. Fails if an edit doesn't reach the file. The pictures of it
# go to PICTURE_FOLDER (BUILD_FOLDER/pictures); that of the main window is the README's, too.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
build=${1:-build/release}
pictures=${2:-$build/pictures}

packages=(fonts-dejavu-core imagemagick openbox optipng xdotool xvfb)
if [ $# -eq 0 ]; then
    Scripts/install-packages.sh "${packages[@]}" qt5ct qttranslations5-l10n
    cmake --preset release
else
    Scripts/install-packages.sh "${packages[@]}"
fi
cmake --build "$build" --parallel "$(nproc)" \
    --target issue-browser bcflib-translations issue-browser-translations

scratch=$(mktemp -d)
started=()
clean_up() {
    kill "${started[@]}" 2>/dev/null || true
    rm -rf "$scratch"
}
trap clean_up EXIT
mkdir -p "$pictures"

# The same picture on every machine: screen, style, dates, name and settings.
export HOME=$scratch XDG_CONFIG_HOME=$scratch/config XDG_CACHE_HOME=$scratch/cache XDG_RUNTIME_DIR=$scratch
export TZ=UTC USER=maria.lindqvist@example.com QT_STYLE_OVERRIDE=Fusion LC_ALL=C.UTF-8
chmod 700 "$scratch"
mkfifo "$scratch/display"
exec 3<>"$scratch/display"
Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 2>"$scratch/xvfb.log" &
started+=($!)
read -r -t 20 number <&3
export DISPLAY=:$number
openbox 2>/dev/null &
started+=($!)

# A 3.0 archive as other tools write it, and one whose download broke off.
sample=Examples/Samples/coordination.bcf
python3 - "$sample" "$scratch/version 3.0.bcf" "$scratch/broken.bcf" <<'PYTHON'
import sys, zipfile
from xml.etree import ElementTree

sample, newer, broken = sys.argv[1:]
with zipfile.ZipFile(sample) as source, zipfile.ZipFile(newer, "w", zipfile.ZIP_DEFLATED) as target:
    for entry in source.infolist():
        data = source.read(entry)
        if entry.filename == "bcf.version":
            data = b'<?xml version="1.0"?>\n<Version VersionId="3.0"/>\n'
        elif entry.filename.endswith("markup.bcf"):
            # Comments and viewpoints stand inside the topic, each kind in a list of its own.
            markup = ElementTree.fromstring(data)
            for kind, plural, single in (("Comment", "Comments", "Comment"),
                                         ("Viewpoints", "Viewpoints", "ViewPoint")):
                elements = ElementTree.SubElement(markup.find("Topic"), plural)
                for element in markup.findall(kind):
                    markup.remove(element)
                    element.tag = single
                    elements.append(element)
            data = ElementTree.tostring(markup, "utf-8", xml_declaration=True)
        target.writestr(entry.filename, data)
with open(sample, "rb") as whole, open(broken, "wb") as part:
    data = whole.read()
    part.write(data[:len(data) // 2])
PYTHON

# browse ARCHIVE [NAME=VALUE...]: opens the browser and waits until its window has the archive.
browse() {
    local archive=$1
    shift
    rm -rf "$XDG_CONFIG_HOME/Tavrin"
    env "$@" "$build/bin/issue-browser" "$archive" &
    browser=$!
    started+=($browser)
    window=
    for ((tries = 0; tries < 50; ++tries)); do
        # A window that goes while it looks ends the search with an error.
        window=$(xdotool search --onlyvisible --pid $browser --name . 2>/dev/null | head -1) || true
        [ -z "$window" ] || break
        sleep 0.2
    done
    settle
}
# Lets the window draw what the last key has brought about.
settle() { sleep 1; }
keys() { xdotool key --clearmodifiers "$@" && settle; }
type() { xdotool type --delay 20 "$1" && settle; }
# click X Y: in the window.
click() { xdotool mousemove --window "$window" "$1" "$2" click --repeat "${3:-1}" --delay 80 1 && settle; }
picture() { import -window "${2:-root}" "$pictures/$1.png" && optipng -quiet -o2 "$pictures/$1.png"; }
quit() {
    keys ctrl+q
    wait "$browser"
}

archive="$scratch/coordination.bcf"
cp "$sample" "$archive"
browse "$archive"
xdotool mousemove 1279 899
picture main-window "$window"
cp "$pictures/main-window.png" Docs/issue-browser.png

keys ctrl+f
type "damper"
picture filtered
keys ctrl+a BackSpace
type "no such topic"
picture nothing-matches
keys ctrl+a BackSpace

click 300 97
keys F2
keys ctrl+a
type "Duct D-31 meets beam B-204"
keys Tab ctrl+s
settle
unzip -p "$archive" '*markup.bcf' | grep --count "<Title>Duct D-31 meets beam B-204</Title>"
quit

browse "$scratch/version 3.0.bcf"
picture version-3.0
kill "$browser"

browse "$scratch/broken.bcf"
picture broken
kill "$browser"

browse "$sample" LC_ALL= LC_CTYPE=C.UTF-8 LANG=de_DE.UTF-8
picture german
quit

mkdir -p "$XDG_CONFIG_HOME/qt5ct"
cat >"$XDG_CONFIG_HOME/qt5ct/qt5ct.conf" <<'SETTINGS'
[Appearance]
color_scheme_path=/usr/share/qt5ct/colors/darker.conf
custom_palette=true
style=Fusion
SETTINGS
ln -s qt5ct "$XDG_CONFIG_HOME/qt6ct"
theme=qt5ct
! ldd "$build/bin/issue-browser" | grep -q libQt6 || theme=qt6ct
browse "$sample" QT_QPA_PLATFORMTHEME=$theme
picture dark
quit

echo "The pictures are in $pictures"
