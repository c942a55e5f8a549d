#!/bin/bash
# Tries the packages in clean roots; what is mounted and started there ends with the test.
#
#     packagesTest.sh PYTHON PACKAGES
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
made=$("$here/../../tools/cleanRoot.sh" "$2"/*.deb)
echo "$made"
exec "$here/../../tools/ownMounts.sh" \
    env PYTHONDONTWRITEBYTECODE=1 "$1" "$here/packagesTest.py" "$(tail -1 <<< "$made")" "$2"
