#!/bin/bash
# Renders every document of examples/ with the built command and shows the first page: in the
# browser where there is a display, else as a picture taken without one.
set -euo pipefail
cd "$(dirname "$0")/.."

mkdir -p build/pages
first=
for document in examples/*.xml; do
    folder=build/pages/$(basename "$document" .xml)
    build/tavisk render "$document" --folder "$folder" --evaluate
    echo "Rendered $document to $folder/temp.html"
    first=${first:-$folder}
done

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && command -v xdg-open > /dev/null; then
    xdg-open "$first/temp.html"
else
    tools/setup.sh show
    /usr/bin/python3 tools/screenshot.py "$first/temp.html" "$first.png"
    echo "Page:       $PWD/$first/temp.html"
    echo "Screenshot: $PWD/$first.png"
fi
