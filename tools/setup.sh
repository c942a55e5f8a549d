#!/bin/bash
# Installs the Debian packages that are missing for the named groups of tasks; says nothing when
# there is nothing to do, else what it does and how far it is.
#
#     tools/setup.sh GROUP...           groups: build debug display tour show test bench fuzz
#                                       windows package root style ci
#     tools/setup.sh --list GROUP...    prints the groups' packages
set -euo pipefail

# The browser engine that wxWidgets' own web view is linked with: two in one process would end it.
webkit_version() {
    local view='libwxgtk-webview3.2-1*' needs
    needs=$(dpkg-query -W -f '${Depends}' "$view" 2> /dev/null) || needs=
    [ -n "$needs" ] || needs=$(apt-cache depends "^${view%\*}" 2> /dev/null) || true
    grep -o -m 1 'webkit2gtk-4\.[01]' <<< "$needs" | grep -o '4\..' | head -1 || echo 4.0
}

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
            echo "libwebkit2gtk-$(webkit_version)-dev" # what the preview asks of it directly
            ;;
        debug)
            packages build
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
            echo fonts-dejavu-core      # letters for the windows
            echo fonts-liberation       # letters for the page
            echo librsvg2-common        # ticks in check boxes
            ;;
        tour)
            packages display
            echo python3                # makes the tour
            echo python3-gi             # speaks to the bus of screen readers
            echo gir1.2-atspi-2.0       # what is spoken there
            echo xdotool                # keyboard and mouse
            echo imagemagick            # screenshots of windows
            ;;
        show)
            packages tour
            echo gnome-themes-extra     # the dark theme
            echo chromium               # shows a page without a window
            echo chromium-driver        # is asked for the screenshot
            echo python3-selenium       # speaks to the driver
            ;;
        test)
            packages debug
            packages show
            echo wmctrl                 # the cross in a window's frame
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
            packages debug
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
            packages debug
            echo g++-mingw-w64-x86-64-posix # compiles for Windows
            echo g++-mingw-w64-i686-posix   # compiles for its 32-bit programs
            echo mingw-w64-tools            # widl: makes the type library
            echo dpkg-dev                   # unpacks the libraries' sources
            echo wine                       # runs what was built
            echo wine64                     # its 64-bit half is enough
            echo libwine-dev                # the system's interfaces, for widl
            ;;
        package)
            packages debug
            echo python3                    # makes the manual page
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
            packages debug
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
list() {
    for group in "$@"; do packages "$group"; done | sort -u
}
if [ -n "$only_list" ]; then
    list "$@"
    exit
fi

if ! command -v apt-get > /dev/null; then
    if ! command -v cmake > /dev/null; then
        echo "No apt here. Install the counterparts of these Debian packages:" $(list "$@") >&2
        exit 1
    fi
    exit 0
fi

find_missing() {
    local package status
    missing=$(for package in $(list "$@"); do
        status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2> /dev/null) || true
        [ "$status" = installed ] || echo "$package"
    done)
}
find_missing "$@"
[ -n "$missing" ] || exit 0

as_root=(env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8)
if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo > /dev/null; then
        echo "Missing packages; as root: apt-get install" $missing >&2
        exit 1
    fi
    as_root=(sudo "${as_root[@]}")
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT

# As apt-get, with its progress on the screen; what it says itself is for a failure.
run_apt() {
    if ! "${as_root[@]}" sh -c 'exec apt-get -y -q -o APT::Status-Fd=3 "$@" 3>&1 >&2' sh "$@" \
        2> "$log" | show_progress; then
        tail -20 "$log" >&2
        return 1
    fi
}

# Reads lines "kind:package:percent:..."; on a terminal in one line, else a line for each kind of work
# and every few seconds, whether anything is heard or not.
show_progress() {
    local line kind= percent status doing="  waiting" known= shown= last=0
    while true; do
        status=0
        IFS= read -r -t 5 line || status=$?
        if [ $status = 0 ]; then
            IFS=: read -r kind _ percent _ <<< "$line"
            case $kind in
                dlstatus) doing="  fetching, ${percent%%.*} %" ;;
                pmstatus) doing="  installing, ${percent%%.*} %" ;;
            esac
        elif [ $status -le 128 ]; then
            break
        fi
        if [ -t 2 ]; then
            printf '\r%-22s' "$doing" >&2
            shown=yes
        elif [ "$kind" != "$known" ] || [ $((SECONDS - last)) -ge 5 ]; then
            echo "$doing" >&2
            known=$kind
            last=$SECONDS
        fi
    done
    [ -z "$shown" ] || printf '\r%-22s\r' '' >&2
}

echo "Reading Debian's lists of packages" >&2
run_apt update
find_missing "$@" # what is called otherwise on this system is known now
extent=$("${as_root[@]}" apt-get -q --assume-no --no-install-recommends install $missing |
    sed -n 's/.* \([0-9]*\) newly installed.*/\1 packages/p
            s/^Need to get \(.* [kMG]\?B\).* of archives.*/\1 to fetch/p
            s/^After this operation, \(.*\) of additional.*/\1 on the disk/p' |
    paste -sd ';' | sed 's/;/, /g') || true
echo "Installing $(wc -w <<< $missing) packages and what they need ($extent):" $missing >&2
run_apt --no-install-recommends install $missing
