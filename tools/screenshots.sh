#!/bin/bash
# Makes the pictures of docs/images/ with the build in build/.
set -euo pipefail
cd "$(dirname "$0")/.."

document=examples/base-cabinet.xml
images=docs/images
mkdir -p "$images"
for theme in Adwaita Adwaita:dark; do
    out=build/tour-$theme
    GTK_THEME=$theme TAVISK_SCREEN=1280x900 tools/withDisplay.sh \
        /usr/bin/python3 tools/tour.py build "$document" "$out" > /dev/null 2> build/tour.log ||
        { cat build/tour.log >&2; exit 1; }
done
convert build/tour-Adwaita/05-picture.png -trim +repage -strip "$images/editor.png"
convert build/tour-Adwaita:dark/05-picture.png -trim +repage -strip "$images/editor-dark.png"
convert build/tour-Adwaita/06-preview.png -trim +repage -strip "$images/preview.png"

build/tavisk render "$document" --folder build/screenshot --evaluate
/usr/bin/python3 tools/screenshot.py build/screenshot/temp.html "$images/page.png"
