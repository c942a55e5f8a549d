#!/bin/bash
# Runs a command as on a machine that is new: in a Debian with git and make alone and a clone of the
# last commit in the user's home. Nothing that is installed around it can be seen there, and nothing
# of it stays. To be run as root.
#
#     tools/freshMachine.sh USER COMMAND...       USER: root, or author, who may use sudo
#
# With TAVISK_KEEP=DIR what the clone's build/run holds afterwards is copied there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

if [ -z "${TAVISK_FRESH:-}" ]; then
    made=$("$here/cleanRoot.sh" fresh)
    echo "$made"
    roots=$(tail -1 <<< "$made")
    layer=$(mktemp -d "$roots/layer.XXXXXX")
    trap 'rm -rf "$layer"' EXIT
    TAVISK_FRESH="$roots/fresh:$layer:$(dirname "$roots")/packages" "$here/ownMounts.sh" "$0" "$@"
    exit
fi

IFS=: read -r below layer packages <<< "$TAVISK_FRESH"
user=$1
shift
root=$layer/root
mkdir "$root" "$layer/upper" "$layer/work"
# Volatile: nothing of it is to be on the disk in the end.
mount -t overlay overlay \
    -o "volatile,lowerdir=$below,upperdir=$layer/upper,workdir=$layer/work" "$root"
mount -t proc proc "$root/proc"
mount --rbind -o ro /sys "$root/sys"
mount --rbind /dev "$root/dev"
mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
mount --bind "$packages" "$root/var/cache/apt/archives"

home=$(chroot "$root" sh -c "echo ~$user")
git -c safe.directory='*' clone --quiet --no-hardlinks "$here/.." "$root$home/tavisk"
chroot "$root" chown -R "$user": "$home/tavisk"
# Not exec: what is kept is copied when it has ended.
status=0
chroot "$root" su --login "$user" --shell /bin/bash --command \
    "cd tavisk && LC_ALL=C.UTF-8 ${CI:+CI=$CI} $*" < /dev/null || status=$?
if [ -n "${TAVISK_KEEP:-}" ] && [ -d "$root$home/tavisk/build/run" ]; then
    cp -r "$root$home/tavisk/build/run/." "$TAVISK_KEEP"
fi
exit $status
