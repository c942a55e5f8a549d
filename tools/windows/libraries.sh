#!/bin/bash
# Builds the static libraries that the Windows build links, from Debian's source packages with
# Debian's patches, and keeps them outside the clone. Says one line when everything is there already.
#
#     tools/windows/libraries.sh x64|x86            builds what is missing
#     tools/windows/libraries.sh --where x64|x86    prints the folder, or fails
#     tools/windows/libraries.sh --refresh          asks the archive for newer source packages
#
# The folder is .../windows/ARCH-KEY below TAVISK_CACHE (or ~/.cache/tavisk). KEY stands for the
# versions of the sources, the compiler and libraryRecipes.sh; a change of any of them builds anew.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cache=${TAVISK_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tavisk}/windows
apt_folder=$cache/apt
arch=
. "$here/libraryRecipes.sh"

# The archive's source packages, without touching the system's own settings.
apt_settings() {
    printf '%s\n' "Dir::Etc::sourcelist \"$apt_folder/sources.list\";" \
        'Dir::Etc::sourceparts "-";' "Dir::State::lists \"$apt_folder/lists\";" \
        'Dir::Cache::pkgcache "";' 'Dir::Cache::srcpkgcache "";' \
        'APT::Sandbox::User "root";' 'APT::Get::List-Cleanup "false";' 'Acquire::Languages "none";'
}

refresh() {
    mkdir -p "$apt_folder/lists/partial"
    local signed='[signed-by=/usr/share/keyrings/debian-archive-keyring.gpg]' suite
    suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
    printf '%s\n' "deb-src $signed http://deb.debian.org/debian $suite main" \
        "deb-src $signed http://deb.debian.org/debian-security $suite-security main" \
        > "$apt_folder/sources.list"
    apt_settings > "$apt_folder/apt.conf"
    export APT_CONFIG=$apt_folder/apt.conf
    apt-get -qq update
    local source number
    for source in "${sources[@]}"; do
        number=$(download "$source")
        echo "$source $number"
    done > "$apt_folder/versions.new"
    mv "$apt_folder/versions.new" "$apt_folder/versions"
}

# The newest version that the archive really has; its index can be ahead of it.
download() {
    local number
    mkdir -p "$cache/download"
    cd "$cache/download"
    for number in $(apt-cache showsrc --only-source "$1" | sed -n 's/^Version: //p' | sort -Vru); do
        if apt-get -qq source --download-only "$1=$number" > "$apt_folder/$1.log" 2>&1; then
            echo "$number"
            return
        fi
    done
    cat "$apt_folder/$1.log" >&2
    return 1
}

if [ "${1:-}" = --refresh ]; then
    refresh
    exit
fi
only_where=
if [ "${1:-}" = --where ]; then
    only_where=yes
    shift
fi
arch=${1:-}
case $arch in
    x64) triplet=x86_64-w64-mingw32 ;;
    x86) triplet=i686-w64-mingw32 ;;
    *)
        sed -n '2,9s/^# \{0,1\}//p' "$0" >&2
        exit 2
        ;;
esac

if [ ! -s "$apt_folder/versions" ]; then
    if [ -n "$only_where" ]; then
        echo "No libraries for Windows yet: make windows-libraries" >&2
        exit 1
    fi
    refresh
fi

. "$here/libraryRecipes.sh" # again, now that the architecture is known
compiler=$triplet-g++-posix
key=$({
    cat "$apt_folder/versions" "$here/libraryRecipes.sh"
    $compiler --version
} | sha256sum | cut -c1-12)
prefix=$cache/$arch-$key
if [ -f "$prefix/complete" ]; then
    if [ -n "$only_where" ]; then
        echo "$prefix"
    else
        echo "Libraries for Windows ($arch) are in $prefix"
    fi
    exit
fi
if [ -n "$only_where" ]; then
    echo "No libraries for Windows ($arch) yet: make windows-libraries" >&2
    exit 1
fi

mkdir -p "$cache"
exec 9> "$cache/$arch.lock"
flock 9
if [ -f "$prefix/complete" ]; then
    echo "Libraries for Windows ($arch) are in $prefix"
    exit
fi

version() { sed -n "s/^$1 //p" "$apt_folder/versions"; }

# The sources, unpacked and patched once for both architectures.
unpack() {
    local source=$1 numbers folder
    numbers=$(version "$source")
    numbers=${numbers#*:}
    folder=$cache/source/$source-$numbers
    mkdir -p "$cache/source"
    (
        flock 8
        [ ! -d "$folder" ] || exit 0
        rm -rf "$folder.part"
            dpkg-source --no-check -x "$cache/download/${source}_$numbers.dsc" "$folder.part" >&2 &&
            mv "$folder.part" "$folder"
    ) 8> "$cache/source.lock" || return
    echo "$folder"
}

logs=$prefix-logs
work=$cache/work-$arch-$key
rm -rf "$prefix" "$work" "$logs"
mkdir -p "$prefix/lib" "$work" "$logs"

cat > "$work/toolchain.cmake" << END
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR $([ $arch = x64 ] && echo AMD64 || echo X86))
set(CMAKE_C_COMPILER $triplet-gcc-posix)
set(CMAKE_CXX_COMPILER $triplet-g++-posix)
set(CMAKE_RC_COMPILER $triplet-windres)
set(CMAKE_FIND_ROOT_PATH $prefix)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
END

fails() {
    echo "Building $1 for Windows ($arch) failed; the end of $logs/$1.log:" >&2
    tail -40 "$logs/$1.log" >&2
    exit 1
}

# with_cmake SOURCE [OPTION...]; builds the target `only` and installs nothing if that is set
with_cmake() {
    local source=$1 folder
    shift
    echo "Building $source $(version "$source") for Windows ($arch)"
    folder=$(unpack "$source" 2> "$logs/$source.log") || fails "$source"
    {
        cmake -G Ninja -S "$folder" -B "$work/$source" -DCMAKE_BUILD_TYPE=None \
            -DCMAKE_TOOLCHAIN_FILE="$work/toolchain.cmake" -DCMAKE_INSTALL_PREFIX="$prefix" \
            -DCMAKE_INSTALL_LIBDIR="$prefix/lib" -DCMAKE_C_FLAGS="$compile_flags" -DCMAKE_CXX_FLAGS="$compile_flags" \
            -DBUILD_SHARED_LIBS=OFF "$@" &&
            cmake --build "$work/$source" --target "${only:-install}"
    } >> "$logs/$source.log" 2>&1 || fails "$source"
    licence "$source" "$folder"
}

# The package goes out with the licence of everything in it.
licence() {
    mkdir -p "$prefix/licences"
    cp "$2/debian/copyright" "$prefix/licences/$1.txt"
}

# with_configure SOURCE [OPTION...]
with_configure() {
    local source=$1 folder log=$logs/$1.log
    shift
    echo "Building $source $(version "$source") for Windows ($arch)"
    folder=$(unpack "$source" 2> "$log") || fails "$source"
    mkdir -p "$work/$source"
    (
        cd "$work/$source" &&
            "$folder/configure" --host=$triplet --prefix="$prefix" --disable-shared "$@" \
                CC=$triplet-gcc-posix CXX=$triplet-g++-posix AR=$triplet-ar \
                RANLIB=$triplet-ranlib WINDRES=$triplet-windres PKG_CONFIG=false \
                CFLAGS="$compile_flags" CXXFLAGS="$compile_flags" \
                CPPFLAGS="-I$prefix/include" LDFLAGS="-L$prefix/lib" &&
            make -j"${TAVISK_JOBS:-$(nproc)}" && make install
    ) >> "$log" 2>&1 || fails "$source"
    licence "$source" "$folder"
}

begin=$SECONDS
build_libraries
touch "$prefix/complete"
rm -rf "$work"
echo "Libraries for Windows ($arch) are in $prefix, built in $((SECONDS - begin)) s"
