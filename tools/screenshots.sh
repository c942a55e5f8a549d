#!/bin/bash
# Makes the pictures of the documents.
#
#     tools/screenshots.sh [BUILD [OUT]]        BUILD holds the command: build; OUT: docs/images
set -euo pipefail
cd "$(dirname "$0")/.."

build=${1:-build}
images=${2:-docs/images}
document=examples/base-cabinet.xml
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$images" "$work/config/gtk-3.0"

# The same picture at any moment: no blinking, no movement, no scroll bars that fade.
cat > "$work/config/gtk-3.0/settings.ini" << 'END'
[Settings]
gtk-cursor-blink=0
gtk-enable-animations=0
gtk-overlay-scrolling=0
END
# The same letters on any machine: these fonts and no others, which it may have besides. A slanted
# face that one machine has is made from the upright one on another.
mkdir "$work/fonts"
ln -s /usr/share/fonts/truetype/dejavu/DejaVuSans.ttf \
    /usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf \
    /usr/share/fonts/truetype/liberation*/LiberationSans-*.ttf "$work/fonts"
cat > "$work/fonts.conf" << END
<fontconfig>
  <dir>$work/fonts</dir>
  <cachedir>$work/fontCache</cachedir>
  <include>/etc/fonts/conf.d</include>
</fontconfig>
END
export FONTCONFIG_FILE=$work/fonts.conf
XDG_CONFIG_HOME=$work/config GTK_THEME=Adwaita TAVISK_SCREEN=1280x900 tools/withDisplay.sh \
    /usr/bin/python3 tools/guide.py "$build" "$document" "$images" > /dev/null 2> "$work/log" ||
    { cat "$work/log" >&2; exit 1; }

"$build/tavisk" render "$document" --folder "$work/page" --evaluate
/usr/bin/python3 tools/screenshot.py "$work/page/temp.html" "$images/page.png"
