#!/bin/bash
# Runs a command with a display of its own that nobody sees: a screen, a window manager (without one
# no window gets the focus) and a message bus for screen readers.
#
#     tools/withDisplay.sh COMMAND...        TAVISK_SCREEN=WIDTHxHEIGHT sets the screen's size
set -euo pipefail

if [ -z "${TAVISK_INSIDE_DISPLAY:-}" ]; then
    export TAVISK_INSIDE_DISPLAY=1
    unset WAYLAND_DISPLAY
    # The accessibility bus lives here; one for all displays would end with the first of them.
    XDG_RUNTIME_DIR=$(mktemp -d)
    export XDG_RUNTIME_DIR XAUTHORITY=$XDG_RUNTIME_DIR/authority
    server=
    clean_up() {
        [ -z "$server" ] || kill "$server" 2> /dev/null || true
        # What the command leaves running for a moment can still write there.
        for _ in {1..50}; do
            rm -rf "$XDG_RUNTIME_DIR" 2> /dev/null && break
            sleep 0.1
        done
    }
    trap clean_up EXIT
    (umask 077 && : > "$XAUTHORITY")
    cookie=$(mcookie)
    xauth -q add :0 . "$cookie"
    # The server finds a free number itself: many may start at the same time.
    mkfifo "$XDG_RUNTIME_DIR/number"
    Xvfb -displayfd 3 -auth "$XAUTHORITY" -screen 0 "${TAVISK_SCREEN:-1600x1200}x24" -nolisten tcp \
        3> "$XDG_RUNTIME_DIR/number" > /dev/null 2>&1 &
    server=$!
    read -r number < "$XDG_RUNTIME_DIR/number"
    xauth -q add ":$number" . "$cookie"
    export DISPLAY=:$number
    dbus-run-session -- "$0" "$@"
    exit
fi

export GDK_BACKEND=x11 NO_AT_BRIDGE=${NO_AT_BRIDGE:-0}
# It says when it is ready: a window that was there before gets no focus from it.
mkfifo "$XDG_RUNTIME_DIR/managed"
exec 3<> "$XDG_RUNTIME_DIR/managed"
start_manager() {
    openbox --sm-disable --startup "sh -c 'echo > \"$XDG_RUNTIME_DIR/managed\"'" \
        > /dev/null 2>&1 3>&- &
    manager=$!
}
start_manager
trap 'kill $manager 2> /dev/null || true' EXIT
tries=0
until read -r -t 1 -u 3; do
    kill -0 $manager 2> /dev/null && continue
    # On a busy machine the first connections to a new display can be refused.
    if [ $((++tries)) = 50 ]; then
        echo "withDisplay.sh: no window manager on display $DISPLAY" >&2
        exit 1
    fi
    start_manager
done
exec 3>&-
"$@"
