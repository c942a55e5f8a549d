#!/bin/bash
# Opens the editor of the build in build/ on a copy of a sample document; where there is no display,
# on one that nobody sees, with a tour through the window.
set -euo pipefail
cd "$(dirname "$0")/.."

document=examples/base-cabinet.xml
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    mkdir -p build/run
    cp "$document" build/run/
    build/tavisk edit build/run/base-cabinet.xml
    echo "Edited document: $PWD/build/run/base-cabinet.xml"
else
    tools/setup.sh tour
    echo "No display here: the editor opens where nobody sees it; pictures of a tour go to $PWD/build/run"
    mkdir -p build/run
    TAVISK_SCREEN=1280x900 tools/withDisplay.sh \
        /usr/bin/python3 tools/tour.py build "$document" build/run 2> build/tour.log ||
        { cat build/tour.log >&2; exit 1; }
fi
