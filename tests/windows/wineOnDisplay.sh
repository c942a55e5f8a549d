#!/bin/bash
# Runs a Windows program that has windows, under Wine.
#
#     tests/windows/wineOnDisplay.sh WINE_SCRIPT FOLDER PROGRAM...
#
# Wine's desktop stays on the display that it was started on, so it ends with the program.
set -uo pipefail
script=$1 folder=$2
shift 2
server=$(command -v wineserver64 wineserver /usr/lib/wine/wineserver64 /usr/lib/wine/wineserver | head -1)
"$script" "$folder" "$@"
status=$?
WINEPREFIX=$folder/wine "$server" -k || true
WINEPREFIX=$folder/wine "$server" -w || true
exit $status
