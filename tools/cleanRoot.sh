#!/bin/bash
# Makes two roots of Debian from its packages and keeps them outside the clone; says one line when
# they are there already. To be run as root, in Debian.
#
#     tools/cleanRoot.sh DEB...     for these packages; the last line is the roots' folder
#
# bare/ is the smallest Debian with what DEB... depend on, but without them; full/ has in addition
# what builds hosts and drives windows (tools/setup.sh root). The folder is .../root/KEY below
# TAVISK_CACHE (or ~/.cache/tavisk), where KEY stands for the dependencies, the tools and this file.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
cache=${TAVISK_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tavisk}/root

if [ "$(id -u)" != 0 ]; then
    echo "A clean root can only be made by root: sudo make test-package" >&2
    exit 1
fi
suite=$(. /etc/os-release && echo "$VERSION_CODENAME")
own=$(for package in "$@"; do dpkg-deb -f "$package" Package; done)
needed=$(for package in "$@"; do dpkg-deb -f "$package" Depends; done | sed 's/, /\n/g' | sort -u)
# They depend on each other, too.
for name in $own; do
    needed=$(grep -v "^$name " <<< "$needed" || true)
done
tools=$("$here/setup.sh" --list root)

key=$({
    echo "$suite $(dpkg --print-architecture)" "$needed" "$tools"
    cat "$0"
} | sha256sum | cut -c1-12)
roots=$cache/$key
mkdir -p "$cache"
exec 9> "$cache/lock"
flock 9
# What was not used for a month.
find "$cache" -mindepth 1 -maxdepth 1 -type d -mtime +30 -exec rm -rf {} +
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
        exec chroot "$0" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 \
            DEBIAN_FRONTEND=noninteractive "$@"' "$root" "$@"
}

make_bare() {
    local bare=$roots/bare
    debootstrap --variant=minbase "$suite" "$bare" "$mirror"
    sed 's|.*|deb & main|' <<< "$mirrors" > "$bare/etc/apt/sources.list"
    apt-config dump | grep '^Acquire::https\?::Proxy ' > "$bare/etc/apt/apt.conf.d/proxy" || true
    cp -L /etc/resolv.conf "$bare/etc/resolv.conf"
    # Nothing is started there, and nothing has to survive a power cut.
    printf '#!/bin/sh\nexit 101\n' > "$bare/usr/sbin/policy-rc.d"
    chmod +x "$bare/usr/sbin/policy-rc.d"
    echo force-unsafe-io > "$bare/etc/dpkg/dpkg.cfg.d/unsafe"
    in_root "$bare" useradd --create-home author
    in_root "$bare" apt-get update
    in_root "$bare" apt-get -y --no-install-recommends satisfy "$(paste -sd, <<< "$needed")"
    in_root "$bare" apt-get clean
}

make_full() {
    cp -a --reflink=auto "$roots/bare" "$roots/full"
    # shellcheck disable=SC2086
    in_root "$roots/full" apt-get -y --no-install-recommends install $tools
    in_root "$roots/full" apt-get clean
}

for step in make_bare make_full; do
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
