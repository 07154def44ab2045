#!/bin/sh
# Runs within the fresh root of the piece debian-package: installs the package that lies in /qel with what it depends
# on, builds and runs a host with it, and removes it again.
set -eu
export DEBIAN_FRONTEND=noninteractive
apt-get install -y -qq --no-install-recommends -o Dpkg::Use-Pty=0 /qel/package.deb g++ pkg-config
qel --version
qel date 7-3-24
# shellcheck disable=SC2046
g++ -std=c++20 /qel/dates.cpp $(pkg-config --cflags --libs QelCoreTypes) -o /qel/dates
shown=$(/qel/dates)
[ "$shown" = "2024-04-16  Tus 7 Shawwal 1445" ] || { echo "\"$shown\" was shown"; exit 1; }
test -s /usr/share/doc/qelcoretypes/README.md
apt-get purge -y -qq -o Dpkg::Use-Pty=0 qelcoretypes
left=$(find /usr /etc /var/lib/dpkg/info -iname '*qelcoretypes*')
[ -z "$left" ] || { echo "The package leaves behind:" "$left"; exit 1; }
