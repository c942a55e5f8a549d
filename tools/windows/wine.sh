#!/bin/bash
# Runs a Windows program in a Wine prefix of its own, which it makes on first use.
#
#     tools/windows/wine.sh FOLDER PROGRAM...        the prefix is FOLDER/wine
set -euo pipefail
export WINEPREFIX=$1/wine WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
shift
# Neither is asked for, and looking for them opens boxes.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
wine=$(command -v wine64 || command -v /usr/lib/wine/wine64)

if [ ! -f "$WINEPREFIX/made" ]; then
    mkdir -p "$WINEPREFIX"
    (
        flock 9
        if [ ! -f "$WINEPREFIX/made" ]; then
            # Without a display, and with no streams of ours: its servers outlive this script.
            env -u DISPLAY "$wine" wineboot --init < /dev/null > "$WINEPREFIX/wineboot.log" 2>&1 9>&-
            touch "$WINEPREFIX/made"
        fi
    ) 9> "$WINEPREFIX.lock"
fi
exec "$wine" "$@"
