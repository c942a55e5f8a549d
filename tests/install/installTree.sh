#!/bin/bash
# Installs what is built into a tree of its own, and builds the examples with nothing but that tree,
# each the way that it says itself.
set -euo pipefail
source=$(cd "$(dirname "$0")/../.." && pwd)
cmake=$1

rm -rf "$TAVISK_TREE" "$TAVISK_EXAMPLES"
"$cmake" --install "$TAVISK_BUILD" --prefix "$TAVISK_TREE" > /dev/null
mkdir -p "$TAVISK_EXAMPLES/c"

export PKG_CONFIG_PATH=$TAVISK_LIBRARY_FOLDER/pkgconfig
# A sanitized component brings its own libraries when it is loaded, not when it is linked.
lenient=
if grep -q __asan_init "$TAVISK_LIBRARY_FOLDER/libtavisk.so"; then
    lenient=-Wl,--allow-shlib-undefined
fi
"$CC" -std=c11 -Wall -Wextra -Wpedantic -Werror "$source/examples/c/edit.c" \
    -o "$TAVISK_EXAMPLES/c/edit" $lenient $(pkg-config --cflags --libs tavisk libxml-2.0)

LDFLAGS=$lenient CXXFLAGS="-Wall -Wextra -Wpedantic -Werror" \
    "$cmake" -S "$source/examples/cpp" -B "$TAVISK_EXAMPLES/cpp" \
    -DCMAKE_PREFIX_PATH="$TAVISK_TREE" > /dev/null
"$cmake" --build "$TAVISK_EXAMPLES/cpp"
