#!/bin/sh
# The binary interface of the libraries against the one that is kept in abi/.
#   abi.sh check|update [BUILD_DIRECTORY]
# The build must have debug information, for the types are read from it. Without a directory, one is
# made in build/abi.
set -eu
cd "$(dirname "$0")/.."
action=${1-} build=${2-build/abi}
case $action in check | update) ;; *)
    sed -n '2,5s/^# //p' "cmake/$(basename "$0")" >&2
    exit 2
    ;;
esac
if [ $# -lt 2 ]; then
    cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O1 -g -fno-var-tracking" \
        -DZELM_BUILD_TESTS=OFF -DZELM_BUILD_EXAMPLES=OFF
    cmake --build "$build" --parallel "$(nproc)"
fi

new=$(mktemp -d)
trap 'rm -rf "$new"' EXIT
changed=
for library in src/libzelmy8 src/libzelmsafe core/libzelcore; do
    name=${library#*/lib}
    # No more than what a program can depend on: neither paths nor what the library itself needs.
    abidw --no-corpus-path --no-comp-dir-path --no-show-locs --no-parameter-names --no-elf-needed \
        --exported-interfaces-only --type-id-style hash --out-file "$new/$name.abi" \
        "$build/$library.so.7.1"
    # Sources are named from the project's root.
    sed -i "s#path='[^']*/\(core\|src\)/#path='\1/#" "$new/$name.abi"
    # Without debug information only the names of symbols would be compared.
    grep -q '<function-decl' "$new/$name.abi" || {
        echo "abi.sh: $build/$library.so.7.1 has no debug information" >&2
        exit 1
    }
    if [ $action = update ]; then
        mkdir -p abi
        cp "$new/$name.abi" "abi/$name.abi"
    else
        abidiff "abi/$name.abi" "$new/$name.abi" || changed="$changed $name"
    fi
done
if [ -n "$changed" ]; then
    echo "abi.sh: the binary interface has changed:$changed. If that is meant: cmake/abi.sh update" >&2
    exit 1
fi
