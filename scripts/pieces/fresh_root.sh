#!/bin/sh
# Run as root within a mount namespace of its own: makes a root in memory that holds nothing but Debian, from where
# this machine has its packages, and lets host_in_root.sh try there the package that is given. Whatever is mounted
# goes with the namespace.
set -eu
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
sources=$(find /etc/apt -name debian.sources -o -path /etc/apt/sources.list -size +0 | head -n 1)
TMPDIR=$(mktemp -d)
export TMPDIR
trap 'umount --recursive "$TMPDIR" || true; rm -rf --one-file-system "$TMPDIR"' EXIT
mount -t tmpfs -o mode=755 tmpfs "$TMPDIR" || chmod 755 "$TMPDIR"
mkdir "$TMPDIR/fetched" "$TMPDIR/work"

# The packages that this machine has at hand are not fetched again, and its own stay as they are. Where nothing may
# be laid over them, all are fetched.
at_hand="mount -t overlay overlay \"\$1/var/cache/apt/archives\" \
  -o lowerdir=/var/cache/apt/archives,upperdir=$TMPDIR/fetched,workdir=$TMPDIR/work || true"

# Nobody reads manuals in this root: only what is ours is unpacked of them.
# shellcheck disable=SC2016  # $1 is the fresh root
mmdebstrap --mode=root --variant=apt --skip=download/empty,essential/unlink,cleanup \
  --dpkgopt='path-exclude=/usr/share/doc/*' --dpkgopt='path-exclude=/usr/share/man/*' \
  --dpkgopt='path-exclude=/usr/share/locale/*' --dpkgopt='path-include=/usr/share/doc/qelcoretypes/*' \
  --dpkgopt=force-unsafe-io --aptopt='Acquire::Languages "none"' \
  --setup-hook='mkdir -p "$1/var/cache/apt/archives"' --setup-hook="$at_hand" \
  --customize-hook='mkdir "$1/qel"' \
  --customize-hook="cp '$1' examples/dates.cpp scripts/pieces/host_in_root.sh \"\$1/qel\"" \
  --customize-hook='chroot "$1" sh /qel/host_in_root.sh' \
  --customize-hook='umount "$1/var/cache/apt/archives" || true' \
  "$release" /dev/null "$sources"
