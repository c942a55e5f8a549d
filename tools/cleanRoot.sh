#!/bin/bash
# Makes roots of Debian from its packages and keeps them outside the clone; says one line when they
# are there already. To be run as root, in Debian.
#
#     tools/cleanRoot.sh fresh          a new machine: the smallest Debian with git and make, and a
#                                       user `author` who may use sudo
#     tools/cleanRoot.sh DEB...         two roots for these packages
#
# The last line is the folder of the roots: fresh/, or bare/, the smallest Debian with what DEB...
# depend on, but without them, and full/, which has in addition what builds hosts and drives windows
# (tools/setup.sh root). The folder is .../root/KEY below TAVISK_CACHE (or ~/.cache/tavisk), where KEY
# stands for the dependencies, the tools and this file. What the package manager downloads is kept in
# .../packages there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cache=${TAVISK_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tavisk}/root

if [ "$(id -u)" != 0 ]; then
    echo "A clean root can only be made by root: sudo $0" >&2
    exit 1
fi
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
if [ "${1:-}" = fresh ]; then
    steps="make_fresh"
    needed=
    tools="git make sudo"
else
    steps="make_bare make_full"
    own=$(for package in "$@"; do dpkg-deb -f "$package" Package; done)
    needed=$(for package in "$@"; do dpkg-deb -f "$package" Depends; done | sed 's/, /\n/g' | sort -u)
    # They depend on each other, too.
    for name in $own; do
        needed=$(grep -v "^$name " <<< "$needed" || true)
    done
    tools=$("$here/setup.sh" --list root)
fi

key=$({
    echo "$suite $(dpkg --print-architecture)" "$needed" "$tools"
    cat "$0"
} | sha256sum | cut -c1-12)
roots=$cache/$key
packages=$cache/packages
mkdir -p "$packages/partial"
exec 9> "$cache/lock"
flock 9
# What was not used for a month.
find "$cache" -mindepth 1 -maxdepth 1 -type d ! -name packages -mtime +30 -exec rm -rf {} +
find "$packages" -maxdepth 1 -name '*.deb' -atime +30 -mtime +30 -delete
if [ -f "$roots/complete" ]; then
    touch "$roots"
    echo "Clean roots are there already:"
    echo "$roots"
    exit
fi
rm -rf "$roots"
mkdir -p "$roots"
begin=$SECONDS

# Where the system's own packages come from.
find_mirrors() {
    apt-get indextargets --format '$(REPO_URI) $(SUITE)' 'Created-By: Packages' 'Origin: Debian' |
        sed "s/ \(old\)*stable/ $suite/" | sort -u
}
mirrors=$(find_mirrors)
if [ -z "$mirrors" ]; then
    apt-get -qq update
    mirrors=$(find_mirrors)
fi
mirror=$(sed -n "s/ $suite\$//p" <<< "$mirrors" | head -1)

in_root() {
    local root=$1
    shift
    "$here/ownMounts.sh" bash -c '
        mount -t proc proc "$0/proc"
        mount --bind "$1" "$0/var/cache/apt/archives"
        exec chroot "$0" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive "${@:2}"' "$root" "$packages" "$@"
}

# Leaves the package manager's own folder as it leaves it itself, where packages are not kept.
settle() {
    "$here/ownMounts.sh" chroot "$1" /usr/bin/apt-get clean
}

install() {
    in_root "$1" apt-get -y --no-install-recommends install "${@:2}"
}

make_smallest() {
    local root=$1
    debootstrap --variant=minbase --cache-dir="$packages" "$suite" "$root" "$mirror"
    sed 's|.*|deb & main|' <<< "$mirrors" > "$root/etc/apt/sources.list"
    apt-config dump | grep '^Acquire::https\?::Proxy ' > "$root/etc/apt/apt.conf.d/proxy" || true
    cp -L /etc/resolv.conf "$root/etc/resolv.conf"
    # What the installer of a machine writes.
    printf '127.0.0.1 localhost\n127.0.1.1 %s\n::1 localhost\n' "$(hostname)" > "$root/etc/hosts"
    # Nothing is started there, and nothing has to survive a power cut.
    printf '#!/bin/sh\nexit 101\n' > "$root/usr/sbin/policy-rc.d"
    chmod +x "$root/usr/sbin/policy-rc.d"
    echo force-unsafe-io > "$root/etc/dpkg/dpkg.cfg.d/unsafe"
    in_root "$root" useradd --create-home --shell /bin/bash author
    in_root "$root" apt-get update
}

make_fresh() {
    make_smallest "$roots/fresh"
    # shellcheck disable=SC2086
    install "$roots/fresh" $tools
    echo 'author ALL=(ALL) NOPASSWD: ALL' > "$roots/fresh/etc/sudoers.d/author"
    # As a new machine: no lists of packages yet.
    rm -rf "$roots"/fresh/var/lib/apt/lists/*
}

make_bare() {
    make_smallest "$roots/bare"
    in_root "$roots/bare" apt-get -y --no-install-recommends satisfy "$(paste -sd, <<< "$needed")"
    settle "$roots/bare"
}

make_full() {
    cp -a --reflink=auto "$roots/bare" "$roots/full"
    # shellcheck disable=SC2086
    install "$roots/full" $tools
    settle "$roots/full"
}

for step in $steps; do
    # A subshell that the shell does not test, so that it ends with the first failure.
    set +e
    (set -e; $step) > "$roots/log" 2>&1
    failed=$?
    set -e
    if [ $failed != 0 ]; then
        tail -40 "$roots/log" >&2
        exit 1
    fi
done
touch "$roots/complete"
echo "Clean roots were made in $((SECONDS - begin)) s:"
echo "$roots"
