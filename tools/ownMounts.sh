#!/bin/bash
# Runs a command with mounts and processes of its own, which end with it. To be run as root.
#
#     tools/ownMounts.sh COMMAND...
set -euo pipefail
how=()
# A chroot's root need not be a mount, and then nothing can be said about it.
unshare --mount true 2> /dev/null || how=(--propagation unchanged)
exec unshare --mount "${how[@]}" --pid --fork --kill-child --mount-proc "$@"
