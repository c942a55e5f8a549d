#!/bin/bash
# Prepares build/windows/ARCH; from scratch when the libraries are others than before.
#
#     tools/windows/configure.sh x64|x86
set -euo pipefail
cd "$(dirname "$0")/../.."
libraries=$(tools/windows/libraries.sh --where "$1")
fresh=
grep -qsF "$libraries/" "build/windows/$1/CMakeCache.txt" || fresh=--fresh
cmake --preset "windows-$1" $fresh > "build/windows-$1.log" 2>&1 || {
    cat "build/windows-$1.log" >&2
    exit 1
}
