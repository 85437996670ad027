#!/bin/sh
# Uses the package as it is installed: in a tree that was moved, with PYTHONPATH and nothing else.
#   installed.sh CMAKE BUILD WORK PYTHON
set -eu
cmake=$1 build=$2 work=$3 python=$4
tests=$(cd "$(dirname "$0")" && pwd)
unset PYTHONPATH PYTHONHOME LD_LIBRARY_PATH DESTDIR

rm -rf "$work"
"$cmake" --install "$build" --prefix "$work/first" >"$work.log"
mv "$work/first" "$work/moved"
packages=$(cd "$work/moved" && find . -path '*/zelm/__init__.py')
packages=$work/moved/${packages%/zelm/__init__.py}

export PYTHONPATH="$packages" PYTHONDONTWRITEBYTECODE=1
cd /
"$python" - "$work/moved" <<'EOF'
import sys, zelm
assert zelm.__file__.startswith(sys.argv[1]), zelm.__file__
with open("/proc/self/maps") as maps:
    libraries = {line.split()[-1] for line in maps if "libzel" in line}
assert len(libraries) == 3, libraries
assert all(path.startswith(sys.argv[1]) for path in libraries), libraries
EOF
"$python" -m unittest discover -s "$tests" -p test_doc.py
