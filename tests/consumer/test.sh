#!/bin/sh
# Builds and runs a program that uses the library, as its users do.
#   test.sh installed|subdirectory WORK_DIRECTORY BUILD_DIRECTORY CMAKE CC CXX
set -eu
way=$1 work=$2 build=$3 cmake=$4 cc=$5 cxx=$6
here=$(cd "$(dirname "$0")" && pwd)
unset DESTDIR LD_LIBRARY_PATH PKG_CONFIG_PATH CFLAGS CXXFLAGS CPPFLAGS LDFLAGS
fail() {
    echo "consumer test: $1"
    exit 1
}
run() {
    echo "run $1"
    output=$("$1") || fail "$1 failed: $output"
    [ "$output" = "status 0, the last solution: 1.000 2.000 3.000" ] || fail "$1 prints: $output"
}
# consumer DIRECTORY OPTION...: builds the CMake project
consumer() {
    directory=$1
    shift
    "$cmake" -S "$here" -B "$directory" -DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx" "$@"
    "$cmake" --build "$directory" --parallel "$(nproc)"
    for program in c90 c99 cxx17 front; do run "$directory/$program"; done
    for program in threads companion; do
        "$directory/$program" || fail "$program: the companion library does not answer"
    done
}
# The same with nothing but a compiler: each_language DIRECTORY FLAG...
each_language() {
    directory=$1
    shift
    mkdir "$directory"
    for language in c90 c99 c++17; do
        compiler=$cc
        [ $language = c++17 ] && compiler="$cxx -x c++"
        $compiler -std=$language -Wall -Wextra -Wpedantic -Werror "$here/ten_lines.c" -x none \
            -o "$directory/$language" "$@"
        run "$directory/$language"
    done
    $cxx -std=c++17 -Wall -Wextra -Wpedantic -Werror "$here/front.cpp" -o "$directory/front" "$@"
    run "$directory/front"
    $cc "$here/threads.c" -o "$directory/threads" "$@"
    "$directory/threads" || fail "$directory/threads: the companion library does not answer"
    readelf -d "$directory/c99" | grep 'NEEDED.*libzel\(core\|msafe\)' && fail "a library that is not needed"
    true
}

rm -rf "$work"
mkdir -p "$work"
if [ "$way" = subdirectory ]; then
    # How it is put together is tested, not once more how it compiles, which takes minutes.
    build=$(cd "$build" && pwd)
    consumer "$work/subdirectory" -DZELM_SOURCE_DIR="$here/../.." \
        -DCMAKE_CXX_COMPILER_LAUNCHER="$here/reuse.sh;$build" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON
    # Without a build type the libraries are optimised, and nothing else is.
    grep '"command"' "$work/subdirectory/compile_commands.json" >"$work/commands"
    grep -E 'CMakeFiles/(zelm|zelmsafe|zelcore)\.dir/' "$work/commands" >"$work/own" || fail "no commands"
    grep -v -e ' -O[23] ' "$work/own" && fail "compiled without optimisation"
    grep -vE 'CMakeFiles/(zelm|zelmsafe|zelcore)\.dir/' "$work/commands" >"$work/others"
    grep -e ' -O' "$work/others" && fail "optimised without being asked"
    exit 0
fi

awk '/^```c$/ { on = 1; next } /^```$/ && on { exit } on' "$here/../../README.md" >"$work/shown"
sed -n '/#include <zelm.h>/,/^}/p' "$here/ten_lines.c" | cmp - "$work/shown" ||
    fail "README.md shows another program"

# Installed for /opt/before by way of a staging directory, and used at another place.
DESTDIR=$work/stage "$cmake" --install "$build" --prefix /opt/before >/dev/null
prefix=$work/moved
mv "$work/stage/opt/before" "$prefix"
[ -z "$(find "$work/stage" -type f)" ] || fail "files outside the prefix: $(find "$work/stage")"
libraries=$(dirname "$(find "$prefix" -name libzelmy8.so)")
for library in zelmy8 zelmsafe zelcore; do
    file=lib$library.so.7.1
    [ "$(readlink "$libraries/lib$library.so")" = $file ] || fail "lib$library.so is no link to it"
    readelf -d "$libraries/$file" >"$work/dynamic"
    grep -q "SONAME.*\[$file\]" "$work/dynamic" || fail "SONAME of $file"
    grep -q "(RPATH)" "$work/dynamic" && fail "$file has an RPATH"
done
readelf -d "$libraries/libzelmy8.so.7.1" | grep -q 'RUNPATH.*\[$ORIGIN\]' || fail "RUNPATH"
build_path=$(cd "$build" && pwd)
fixed=$(grep -rIl -e /opt/before -e "$build_path" "$prefix" || true)
[ -z "$fixed" ] || fail "fixed paths in $fixed"

consumer "$work/package" -DCMAKE_PREFIX_PATH="$prefix"

export PKG_CONFIG_PATH="$libraries/pkgconfig"
flags=$(pkg-config --cflags --libs zelm)
# shellcheck disable=SC2086 # a list of flags
each_language "$work/pkg-config" $flags "-Wl,-rpath,$(pkg-config --variable=libdir zelm)"
pkg-config --exact-version=7.1.1 zelm || fail "version of zelm.pc"

tried=
for linker in bfd gold lld mold; do
    echo 'int main(void) { return 0; }' >"$work/empty.c"
    $cc -fuse-ld=$linker "$work/empty.c" -o "$work/empty" 2>/dev/null || continue
    for name in "-L$libraries -lzelm" "$libraries/libzelm.so"; do
        tried="$tried $linker"
        # shellcheck disable=SC2086 # two flags
        each_language "$work/bare$(echo "$tried" | wc -w)" "-I$prefix/include" -fuse-ld=$linker \
            $name "-Wl,-rpath,$libraries"
    done
done
[ -n "$tried" ] || fail "no linker"
echo "linked by$tried"
