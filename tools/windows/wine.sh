#!/bin/bash
# Runs a Windows program in a Wine prefix of its own, which it makes on first use.
#
#     tools/windows/wine.sh FOLDER PROGRAM...
#
# The prefix is FOLDER/wine, or FOLDER/wine-N for programs on the display N: Wine's desktop belongs
# to one display, and tests on different ones run at the same time.
set -euo pipefail
export LC_ALL=${LC_ALL:-C.UTF-8}
folder=$1
shift
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# Neither is asked for, and looking for them opens boxes.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
server=$(command -v wineserver64 || echo /usr/lib/wine/wineserver64)

make_prefix() {
    [ ! -f "$folder/wine/made" ] || return 0
    export WINEPREFIX=$folder/wine
    env -u DISPLAY "$wine" wineboot --init
    "$server" -w
    touch "$folder/wine/made"
}

copy_prefix() {
    [ ! -f "$1/made" ] || return 0
    rm -rf "$1"
    cp -a --reflink=auto "$folder/wine" "$1"
}

# Wine's servers, and its desktop, outlive the program that starts them, and who reads its streams
# would wait for them, too. So they are started here, with no streams, and stay for the next program.
start_servers() {
    # Displays take each other's numbers; the key tells them apart.
    local display="${DISPLAY:-none} ${XAUTHORITY:-}"
    if [ "$(cat "$WINEPREFIX/display" 2> /dev/null)" != "$display" ]; then
        "$server" -k || true
        "$server" -w
        echo "$display" > "$WINEPREFIX/display"
    fi
    # Fails when it runs already.
    "$server" -p60 || return 0
    "$wine" cmd /c exit
}

# What is done once while others wait, without streams: locked LOCK COMMAND...
locked() {
    (
        flock 9
        ("${@:2}" < /dev/null >> "$folder/wine.log" 2>&1 9>&-) || true
    ) 9> "$1.lock"
}

mkdir -p "$folder"
export WINEPREFIX=$folder/wine
locked "$WINEPREFIX" make_prefix
if [ -n "${DISPLAY:-}" ]; then
    number=${DISPLAY##*:}
    export WINEPREFIX=$folder/wine-${number%.*}
    locked "$folder/wine" copy_prefix "$WINEPREFIX"
fi
locked "$WINEPREFIX" start_servers
exec "$wine" "$@"
