#!/bin/sh
# Makes the reference in build/doc/html. A warning is an error, and so is an exported function that
# the reference lacks.
set -eu
cd "$(dirname "$0")/.."
rm -rf build/doc
mkdir -p build/doc
doxygen docs/Doxyfile
export LC_ALL=C
sed -n '/global:/,/local:/s/^ *\([A-Za-z0-9_]*\);.*/\1/p' src/exports.map src/safe/exports.map core/exports.map |
    sort >build/doc/exported
sed -n '/kind="function"/,/<\/member>/s/.*<name>\(.*\)<\/name>.*/\1/p' build/doc/zelm.tag |
    sort -u >build/doc/described
missing=$(comm -23 build/doc/exported build/doc/described)
if [ ! -s build/doc/exported ] || [ -n "$missing" ]; then
    echo "doc.sh: the reference lacks" $missing >&2
    exit 1
fi
echo "build/doc/html/index.html describes $(wc -l <build/doc/exported) functions"
