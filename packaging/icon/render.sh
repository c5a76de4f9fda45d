#!/bin/sh
# Makes the icon files from the drawing: nestlet-companion.icns for the app bundle on macOS, and
# nestlet-companion.png for everything else. Both are kept in the repository; run this after a change
# of the drawing. Needs rsvg-convert (librsvg2-bin), png2icns (icnsutils) and Python 3.
set -eu
cd "$(dirname "$0")"

pictures=$(mktemp -d)
trap 'rm -r "$pictures"' EXIT

for size in 16 32 64 128 256 512 1024; do
    rsvg-convert --width "$size" --height "$size" --output "$pictures/$size.png" \
        nestlet-companion.svg
done
png2icns "$pictures/small.icns" "$pictures/16.png" "$pictures/32.png" >/dev/null
python3 makeicns.py nestlet-companion.icns "$pictures/small.icns" "$pictures"
cp "$pictures/256.png" nestlet-companion.png
