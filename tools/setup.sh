#!/bin/bash
# Installs the Debian packages that are missing for the named groups of tasks; says nothing when
# there is nothing to do.
#
#     tools/setup.sh GROUP...        groups: build test show bench fuzz style
set -euo pipefail

packages() {
    case $1 in
        build)
            echo make             # the short commands
            echo cmake            # reads CMakeLists.txt
            echo ninja-build      # runs the compiler
            echo g++              # compiles
            echo libxml2-dev      # parses documents
            echo libgtest-dev     # tests are configured together with the program
            ;;
        show)
            echo chromium         # shows a page without a display
            echo chromium-driver  # is asked for the screenshot
            echo python3          # runs the tool that asks
            echo python3-selenium # speaks to the driver
            echo fonts-liberation # letters for the page
            ;;
        test)
            packages build
            packages show
            echo python3-pil      # draws the pictures of the examples
            echo poppler-utils    # reads printed pages
            ;;
        bench)
            packages build
            echo libbenchmark-dev # measures single procedures
            echo libxml2-utils    # xmllint, the yardstick
            echo python3          # makes the documents and the table
            ;;
        fuzz)
            packages build
            echo clang            # compiles for libFuzzer
            echo libclang-rt-dev  # libFuzzer and the sanitizers
            echo llvm             # names the lines in a report
            ;;
        style)
            packages build
            echo clang-format     # lays out the sources
            echo clang-tidy       # reads them for mistakes
            echo libclang-rt-dev  # headers of its own compiler
            ;;
        *)
            echo "tools/setup.sh: no group '$1'" >&2
            return 1
            ;;
    esac
}

wanted=$(for group in "$@"; do packages "$group"; done | sort -u)

if ! command -v apt-get > /dev/null; then
    if ! command -v cmake > /dev/null; then
        echo "No apt here. Install the counterparts of these Debian packages:" $wanted >&2
        exit 1
    fi
    exit 0
fi

missing=$(for package in $wanted; do
    status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2> /dev/null) || true
    [ "$status" = installed ] || echo "$package"
done)
[ -n "$missing" ] || exit 0

as_root=(env DEBIAN_FRONTEND=noninteractive)
if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo > /dev/null; then
        echo "Missing packages; as root: apt-get install" $missing >&2
        exit 1
    fi
    as_root=(sudo "${as_root[@]}")
fi

echo "Installing:" $missing >&2
"${as_root[@]}" apt-get -qq update
"${as_root[@]}" apt-get -qq install -y --no-install-recommends $missing > /dev/null
