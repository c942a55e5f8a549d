#!/bin/bash
# Fails where a Windows library exports anything but what its definition file says.
#
#     tools/windows/checkExports.sh DEFINITION LIBRARY
set -euo pipefail
wanted=$(tr -d '\r' < "$1" | awk '/^EXPORTS/ { on = 1; next } on && NF && !/^;/ { print $1 }' | sort)
found=$(x86_64-w64-mingw32-objdump -p "$2" |
    sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/s/^[[:space:]]*\[[ 0-9]*\] //p' | sort)
[ "$wanted" = "$found" ] || {
    diff <(echo "$wanted") <(echo "$found") | head -20 >&2 || true
    echo "$2 does not export what $1 says (<)" >&2
    exit 1
}
echo "$(basename "$2") exports" $found
