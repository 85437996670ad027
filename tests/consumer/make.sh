#!/bin/sh
# `make install` in a tree of its own, as its users do: by the tree's owner and, where this test is
# run by root, by root in the tree of another user.
#   make.sh SOURCE_DIRECTORY BUILD_DIRECTORY CC CXX
set -eu
source=$1 build=$2
export CC="$3" CXX="$4"
unset ARGS CMAKE_ARGS DESTDIR JOBS PREFIX MAKEFLAGS MAKELEVEL MAKEOVERRIDES
unset CFLAGS CXXFLAGS CPPFLAGS LDFLAGS
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
tree=$work/zelm
user=$(id -u)
[ "$user" -ne 0 ] || user=12345
fail() {
    echo "make test: $1"
    exit 1
}
# owner LOG COMMAND..., root LOG COMMAND...: in the tree. Not being root, the two are the same.
root() {
    log=$work/$1
    shift
    (cd "$tree" && "$@") >"$log" 2>&1 || fail "$* fails: $(cat "$log")"
}
owner() {
    log=$1
    shift
    if [ "$(id -u)" -eq 0 ]; then
        root "$log" setpriv --reuid $user --regid $user --clear-groups env HOME=/ "$@"
    else
        root "$log" "$@"
    fi
}
all_is_the_owners() {
    found=$(find "$tree" ! -uid $user)
    [ -z "$found" ] || fail "not the owner's: $found"
}
nothing_is_compiled() { ! grep Building "$1" || fail "$2 compiles what is there"; }

mkdir -p "$tree" "$work/objects/build/release" "$work/by-owner"
(cd "$source" && cp -R CMakeLists.txt CMakePresets.json Makefile cmake core include src "$tree")
# Objects are taken from the build at hand, but for a file that gives a warning.
cp "$source/tests/consumer/reuse.sh" "$work"
(cd "$build" && cp -R --parents core/CMakeFiles src/CMakeFiles "$work/objects/build/release")
find "$work/objects" -name '*.d' -exec sed -i "s#$source/#$tree/#g" {} +
export CMAKE_CXX_COMPILER_LAUNCHER="$work/reuse.sh;$work/objects"
warned=src/frame/version.cpp
echo 'static int nobody_reads_this;' >>"$tree/$warned"
rm -f "$work/objects/build/release/src/CMakeFiles/zelm.dir/frame/version.cpp.o"
[ "$(id -u)" -ne 0 ] || chown -R $user:$user "$tree" "$work/by-owner"

root first make install PREFIX=/opt/zelm DESTDIR="$work/by-root"
grep -q 'warning: .*nobody_reads_this' "$work/first" || fail "no warning that could be an error"
[ -e "$work/by-root/opt/zelm/include/zelm.h" ] || fail "nothing is installed"
found=$(find "$work/by-root" ! -uid "$(id -u)")
[ -z "$found" ] || fail "installed, and not of the one who installs: $found"
all_is_the_owners
owner second make
nothing_is_compiled "$work/second" "make after make install"
owner third make install PREFIX=/opt/zelm DESTDIR="$work/by-owner"
root fourth make install PREFIX=/opt/zelm DESTDIR="$work/by-root"
all_is_the_owners

# With warnings as errors what is there stays, and what is compiled from then on must have none.
owner fifth sh -c 'cmake --preset release -DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=OFF &&
    cmake --build --preset release'
nothing_is_compiled "$work/fifth" "a build with warnings as errors"
echo >>"$tree/$warned"
(owner sixth cmake --build --preset release) >"$work/error" && fail "a warning is no error"
grep -q 'error: .*nobody_reads_this' "$work/error" || fail "no error but $(cat "$work/error")"
[ "$(id -u)" -eq 0 ] || echo "Not run by root: one user has done everything."
