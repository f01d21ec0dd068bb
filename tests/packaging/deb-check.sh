#!/bin/sh
# Installs the four Debian packages from DEB_DIR into this system, uses each of them (the tool, a
# consumer built with CMake and with pkg-config, the module under /usr/bin/python3), then purges
# them and checks that nothing they brought is left. Needs root; changes the system while it runs.
set -eu
deb_dir=$(cd "$1" && pwd)
source_dir=$(cd "$2" && pwd)
packages="libepromdatablock1 libepromdatablock-dev epromtool python3-epromdatablock"
sample="$source_dir/examples/sample.eeprom"
[ "$(id -u)" = 0 ] || { echo "deb-check installs packages: run it as root"; exit 1; }
work=$(mktemp -d)
installed=""

fail() { echo "deb-check: $*"; exit 1; }
# dpkg's state of a package unless it has none (never installed, or purged).
known() { dpkg-query -W -f '${Status}' "$1" 2>/dev/null | grep -v "not-installed$"; }
purge() {
    [ -n "$installed" ] || return 0
    installed=""
    DEBIAN_FRONTEND=noninteractive apt-get purge -y -qq $packages > "$work/purge.log" 2>&1 ||
        { cat "$work/purge.log"; return 1; }
}
# Whatever fails, the system is left without the packages.
trap 'status=$?; purge || status=1; rm -rf "$work"; exit $status' EXIT

for p in $packages; do
    [ -z "$(known "$p")" ] || fail "$p is on this system already ($(known "$p")); purge it first"
done

# Every path the packages carry that the system does not have yet must be gone after the purge.
for deb in "$deb_dir"/*.deb; do
    dpkg-deb --fsys-tarfile "$deb" | tar -t | sed 's|^\./|/|; s|/$||' | grep -v '^\.\?$'
done | sort -u > "$work/paths"
while read -r path; do
    [ -e "$path" ] || [ -L "$path" ] || echo "$path"
done < "$work/paths" > "$work/new-paths"
echo "== the packages bring $(wc -l < "$work/new-paths") new paths"

echo "== apt-get install ./*.deb"
installed=yes
(cd "$deb_dir" && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq ./*.deb) \
    > "$work/install.log" 2>&1 || { cat "$work/install.log"; fail "apt-get install failed"; }
version=$(dpkg-query -W -f '${Version}' epromtool)

echo "== epromtool verify $sample"
[ "$(command -v epromtool)" = /usr/bin/epromtool ] || fail "epromtool is not /usr/bin/epromtool"
epromtool --version | grep -qF "$version" || fail "epromtool --version does not say $version"
(cd "$work" && epromtool verify "$sample") || fail "epromtool verify exited with $?"

echo "== consumer through find_package(EpromDatablock)"
cmake -S "$source_dir/tests/consumer" -B "$work/cmake" > "$work/cmake.log" 2>&1 &&
    cmake --build "$work/cmake" >> "$work/cmake.log" 2>&1 ||
    { cat "$work/cmake.log"; fail "the CMake consumer did not build"; }
grep -q "^EpromDatablock_DIR:PATH=/usr/lib/.*/cmake/EpromDatablock$" "$work/cmake/CMakeCache.txt" ||
    fail "find_package did not take the installed package: $(grep EpromDatablock_DIR "$work/cmake/CMakeCache.txt")"
"$work/cmake/consumer" "$sample" | grep -qx "consumer: ok" || fail "the CMake consumer failed"

echo "== consumer through pkg-config"
flags=$(env -u PKG_CONFIG_PATH pkg-config --cflags --libs EpromDatablock)
# shellcheck disable=SC2086
c++ -std=c++17 -fPIC "$source_dir/tests/consumer/main.cpp" $flags -o "$work/pkgconfig-consumer" ||
    fail "the pkg-config consumer did not build with: $flags"
"$work/pkgconfig-consumer" "$sample" | grep -qx "consumer: ok" || fail "the pkg-config consumer failed"
loaded=$(ldd "$work/pkgconfig-consumer" | sed -n 's/.*libEpromDatablock\.so\.1 => \([^ ]*\).*/\1/p')
[ "$(readlink -f "$loaded")" = "$(readlink -f "$(dpkg -L libepromdatablock1 | grep '\.so\.1$')")" ] ||
    fail "the consumer loads ${loaded:-no libEpromDatablock.so.1}, not the installed library"

echo "== import epromdatablock under /usr/bin/python3"
out=$(cd "$work" && env -u PYTHONPATH /usr/bin/python3 -c "import epromdatablock as m, os
print(m.__file__)
print(os.path.exists(os.path.join(os.path.dirname(m.__file__), 'epromdatablock.pyi')))
print(m.Image.open('$sample'))")
echo "$out"
printf '%s\n' "$out" | grep -q '^/usr/lib/python3/dist-packages/epromdatablock\..*\.so$' ||
    fail "the module does not come from /usr/lib/python3/dist-packages"
printf '%s\n' "$out" | grep -qx 'True' || fail "the stub is not beside the module"
printf '%s\n' "$out" | grep -qx '<Image 32768 bytes, 14 blocks, end block at 0x2d1c, ok>' ||
    fail "the module read the sample wrongly"

echo "== apt-get purge"
purge || fail "apt-get purge failed"
for p in $packages; do
    [ -z "$(known "$p")" ] || fail "$p is still known to dpkg: $(known "$p")"
done
left=0
while read -r path; do
    if [ -e "$path" ] || [ -L "$path" ]; then
        echo "left after the purge: $path"
        left=$((left + 1))
    fi
done < "$work/new-paths"
[ "$left" = 0 ] || fail "$left paths left"
echo "deb-check: installed, used and purged $version; nothing left"
