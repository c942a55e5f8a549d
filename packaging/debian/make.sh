#!/bin/bash
# Makes the packages from what is built, and fails where they break Debian's rules.
#
#     packaging/debian/make.sh BUILD CPACK
set -euo pipefail
build=$1
rm -rf "$build/packages"
umask 022
# The same files give the same bytes.
SOURCE_DATE_EPOCH=$(date -d "$(sed -n 's/^ -- .*>  //p' "$build/install/changelog.Debian")" +%s)
export SOURCE_DATE_EPOCH
"$2" --config "$build/CPackConfig.cmake" > "$build/packages.log" 2>&1 || {
    cat "$build/packages.log" >&2
    exit 1
}
rm -rf "$build/packages/_CPack_Packages"
# They are not meant for Debian's own archive.
lintian --allow-root --suppress-tags initial-upload-closes-no-bugs --fail-on error,warning \
    --tag-display-limit 0 "$build"/packages/*.deb
ls -s --block-size=1K --format=single-column "$build"/packages/*.deb
