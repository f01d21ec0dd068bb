#!/bin/sh
# Prepares the big-endian (s390x) cross build: the host's cross compiler and qemu, and a sysroot of
# s390x Debian packages unpacked under the build folder; what an earlier run fetched is reused.
# Usage: s390x-sysroot.sh SYSROOT
set -e
SYSROOT="$1"
[ -n "$SYSROOT" ] || { echo "usage: $0 SYSROOT" >&2; exit 2; }
DEBS="$SYSROOT.debs"
HOST_PACKAGES="g++-s390x-linux-gnu qemu-user cmake make qtbase5-dev"
# Qt 5 Core with what it loads, GoogleTest and zlib, and the C++ runtime the programs run on.
TARGET_PACKAGES="libqt5core5a qtbase5-dev qt5-qmake libicu72 libdouble-conversion3 libpcre2-16-0
libpcre2-8-0 libzstd1 libglib2.0-0 libffi8 libmount1 libselinux1 libblkid1 zlib1g zlib1g-dev
libgtest-dev libgmock-dev libstdc++6 libgcc-s1 libc6"

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else echo "please run as root: $*" >&2; exit 1; fi
}

missing=""
for p in $HOST_PACKAGES; do dpkg -s "$p" >/dev/null 2>&1 || missing="$missing $p"; done
if [ -n "$missing" ]; then
    echo "installing:$missing"
    as_root apt-get -o DPkg::Lock::Timeout=900 update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=900 install -y -qq $missing
fi

# The stamp names the package list, so that a changed list unpacks again.
stamp="$SYSROOT/.unpacked-$(echo $TARGET_PACKAGES | cksum | cut -d' ' -f1)"
if [ ! -f "$stamp" ]; then
    if ! dpkg --print-foreign-architectures | grep -qx s390x; then
        as_root dpkg --add-architecture s390x
    fi
    mkdir -p "$DEBS"
    todo=""
    for p in $TARGET_PACKAGES; do
        ls "$DEBS/${p}_"*_s390x.deb >/dev/null 2>&1 || ls "$DEBS/${p}_"*_all.deb >/dev/null 2>&1 ||
            todo="$todo $p:s390x"
    done
    if [ -n "$todo" ]; then
        # apt's multiarch install is not used: the s390x lists can lag the host's security updates,
        # and only the files are needed, never the packages' scripts.
        if ! apt-cache show libc6:s390x >/dev/null 2>&1; then as_root apt-get -o DPkg::Lock::Timeout=900 update -qq; fi
        (cd "$DEBS" && apt-get download $todo)
    fi
    rm -rf "$SYSROOT"
    mkdir -p "$SYSROOT"
    for deb in "$DEBS"/*.deb; do dpkg -x "$deb" "$SYSROOT"; done
    # Qt's CMake files look for its code generators and qmake inside the sysroot: the host's serve.
    for d in usr/lib/qt5/bin usr/lib/s390x-linux-gnu/qt5/bin; do
        mkdir -p "$SYSROOT/$d"
        for t in moc rcc qmake; do ln -sf "/usr/lib/qt5/bin/$t" "$SYSROOT/$d/$t"; done
    done
    touch "$stamp"
fi
echo "s390x sysroot ready in $SYSROOT"
