#!/bin/bash
# Runs a Windows program in a Wine prefix of its own, which it makes on first use.
#
#     tools/windows/wine.sh FOLDER PROGRAM...        the prefix is FOLDER/wine
set -euo pipefail
export LC_ALL=${LC_ALL:-C.UTF-8}
export WINEPREFIX=$1/wine WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
shift
# Neither is asked for, and looking for them opens boxes.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
server=$(command -v wineserver64 || echo /usr/lib/wine/wineserver64)

# Wine's servers outlive the program that starts them, and who reads its streams would wait for
# them, too. So they are started here, with no streams and no display, and stay for the next program.
mkdir -p "$WINEPREFIX"
start_servers() {
    unset DISPLAY
    # Fails when it runs already.
    local started=
    "$server" -p60 && started=yes
    if [ ! -f "$WINEPREFIX/made" ]; then
        "$wine" wineboot --init
        touch "$WINEPREFIX/made"
    elif [ -n "$started" ]; then
        "$wine" cmd /c exit
    fi
}
(
    flock 9
    (start_servers < /dev/null > "$WINEPREFIX/servers.log" 2>&1 9>&-) || true
) 9> "$WINEPREFIX.lock"
exec "$wine" "$@"
