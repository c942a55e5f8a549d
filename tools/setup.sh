#!/bin/bash
# Installs the Debian packages that are missing for the named groups of tasks; says nothing when
# there is nothing to do.
#
#     tools/setup.sh GROUP...           groups: build display show test bench fuzz windows package
#                                       root style ci
#     tools/setup.sh --list GROUP...    prints the groups' packages
set -euo pipefail

packages() {
    case $1 in
        build)
            echo make                   # the short commands
            echo cmake                  # reads CMakeLists.txt
            echo ninja-build            # runs the compiler
            echo g++                    # compiles
            echo pkg-config             # tells where the libraries are
            echo libxml2-dev            # parses documents
            echo libwxgtk3.2-dev        # the windows
            echo libwxgtk-webview3.2-dev # the preview's browser
            echo libgtk-3-dev           # what the windows ask of the desktop directly
            echo libwebkit2gtk-4.0-dev  # what the preview asks of its browser directly
            echo libgtest-dev           # tests are configured together with the program
            ;;
        display)
            echo xvfb                   # a display that nobody sees
            echo xauth                  # its key
            echo openbox                # without a window manager no window gets the focus
            echo dbus                   # the message bus
            echo at-spi2-core           # the bus of screen readers
            echo libatk-adaptor         # the toolkit's way to it
            echo adwaita-icon-theme     # pictures of boxes and lists
            echo gnome-themes-extra     # the dark theme
            echo fonts-dejavu-core      # letters for the windows
            ;;
        show)
            packages display
            echo chromium               # shows a page without a window
            echo chromium-driver        # is asked for the screenshot
            echo python3                # runs the tools that ask
            echo python3-selenium       # speaks to the driver
            echo python3-gi             # speaks to the bus of screen readers
            echo gir1.2-atspi-2.0       # what is spoken there
            echo xdotool                # keyboard and mouse
            echo wmctrl                 # the cross in a window's frame
            echo imagemagick            # screenshots of windows
            echo fonts-liberation       # letters for the page
            ;;
        test)
            packages build
            packages show
            echo python3-pil            # draws the pictures of the examples
            echo poppler-utils          # reads printed pages
            echo libxml2-utils          # xmllint, for the schema of documents
            echo locales                # a host with another way to write numbers
            echo man-db                 # reads the manual page
            echo bash-completion        # completes command lines
            echo shared-mime-info       # reads what is said of types of files
            echo desktop-file-utils     # reads the desktop entry
            ;;
        bench)
            packages build
            packages display
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
        windows)
            packages build
            echo g++-mingw-w64-x86-64-posix # compiles for Windows
            echo g++-mingw-w64-i686-posix   # compiles for its 32-bit programs
            echo mingw-w64-tools            # widl: makes the type library
            echo dpkg-dev                   # unpacks the libraries' sources
            echo wine                       # runs what was built
            echo wine64                     # its 64-bit half is enough
            echo libwine-dev                # the system's interfaces, for widl
            ;;
        package)
            packages build
            echo dpkg-dev                   # finds what the packages depend on
            echo lintian                    # Debian's rules for packages
            echo debootstrap                # makes a clean root to try them in
            ;;
        root) # in the clean root, to try the packages there
            packages display
            echo python3                # drives the windows
            echo python3-gi             # speaks to the bus of screen readers
            echo gir1.2-atspi-2.0       # what is spoken there
            echo xdotool                # keyboard and mouse
            echo desktop-file-utils     # finds the program for a document
            echo g++                    # builds hosts
            echo make                   # for CMake
            echo cmake                  # find_package
            echo pkg-config             # its elder
            echo libxml2-dev            # the hosts' own XML
            ;;
        style)
            packages build
            echo clang-format     # lays out the sources
            echo clang-tidy       # reads them for mistakes
            echo libclang-rt-dev  # headers of its own compiler
            ;;
        ci)
            packages test
            packages windows
            packages package
            packages fuzz
            packages style
            echo ccache           # keeps what was compiled before
            ;;
        *)
            echo "tools/setup.sh: no group '$1'" >&2
            return 1
            ;;
    esac
}

only_list=
if [ "${1:-}" = --list ]; then
    only_list=yes
    shift
fi
wanted=$(for group in "$@"; do packages "$group"; done | sort -u)
if [ -n "$only_list" ]; then
    echo "$wanted"
    exit
fi

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
