#!/bin/bash
# Fails where a Windows program or library needs anything but the system's own DLLs; prints the size
# of each file and what it imports.
#
#     tools/windows/checkImports.sh FILE...
set -euo pipefail

# On every Windows since 7, without installing anything.
system=" advapi32 bcrypt comctl32 comdlg32 gdi32 gdiplus imm32 kernel32 msimg32 msvcrt ntdll ole32
 oleacc oleaut32 rpcrt4 shell32 shlwapi urlmon user32 usp10 uxtheme version wininet winmm winspool
 ws2_32 wsock32 "

status=0
for file in "$@"; do
    imports=$(x86_64-w64-mingw32-objdump -p "$file" | sed -n 's/^[[:space:]]*DLL Name: //p' |
        sort -fu)
    echo "$(basename "$file"): $(stat -c %s "$file") bytes, imports" $imports
    for name in $imports; do
        plain=${name,,}
        plain=${plain%.dll}
        case $system in
            *[[:space:]]"${plain%.drv}"[[:space:]]*) ;;
            *)
                echo "$file: $name is no DLL of the system" >&2
                status=1
                ;;
        esac
    done
done
exit $status
