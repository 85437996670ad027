#!/bin/sh
# What a shared library shows and needs:
#   exports_test.sh LIBRARY NAMES NM READELF [sanitized]
# NAMES is an export map, or a header that declares all functions.
set -eu
library=$1 names=$2 nm=$3 readelf=$4 sanitized=${5-}
export LC_ALL=C
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() {
    echo "exports_test: $1"
    exit 1
}

case $names in
*.h) pattern='s/^ZELM_API int \([A-Za-z0-9_]*\)(.*/\1/p' ;;
*) pattern='/global:/,/local:/s/^ *\([A-Za-z0-9_]*\);.*/\1/p' ;;
esac
sed -n "$pattern" "$names" | sort >"$work/wanted"
"$nm" -D --defined-only -P "$library" | sed 's/ .*//; s/@.*//' | sort >"$work/exported"
[ -s "$work/wanted" ] || fail "no names in $names"
diff "$work/wanted" "$work/exported" >"$work/diff" ||
    fail "exports differ from the list (< missing, > too many): $(cat "$work/diff")"

name=${library##*/}
case $name in
libzelmsafe.*) # as many as there are solvers, for two types
    [ "$(wc -l <"$work/wanted")" -eq 18 ] || fail "not 18 names in $names" ;;
esac

# Each exported function of the first library is an alias of its hidden entry.
"$nm" -P "$library" 2>/dev/null | sed 's/@@*[^ ]*//' | sort >"$work/symbols"
if [ -s "$work/symbols" ] && [ "${name#libzelmy8.}" != "$name" ]; then
    awk '$2 ~ /[tT]/ { address[$1] = $3; type[$1] = $2 }
         END {
             while ((getline name < wanted) > 0)
                 if (type["y8_" name] != "t" || address["y8_" name] != address[name])
                     print name
         }' wanted="$work/wanted" "$work/symbols" >"$work/orphans"
    [ -s "$work/orphans" ] && fail "not an alias of a hidden y8_ entry: $(cat "$work/orphans")"
fi

"$readelf" -dW "$library" >"$work/dynamic"
value() { sed -n "s/.*($1).*\[\(.*\)\]/\1/p" "$work/dynamic"; }
[ "$(value SONAME)" = "${name%%.so*}.so.7.1" ] || fail "SONAME is $(value SONAME)"
[ -z "$(value RPATH)" ] || fail "RPATH instead of RUNPATH: the companion could not be replaced"
value NEEDED | grep -qx libzelcore.so.7.1 || fail "libzelcore.so.7.1 is not needed"
if [ -z "$sanitized" ]; then
    others=$(value NEEDED | grep -vxE \
        'lib(gomp|omp|iomp5)\.so\.[0-9]+|libomp5?\.so|libm\.so\.6|libc\.so\.6|libzelcore\.so\.7\.1|ld-linux-x86-64\.so\.2' ||
        true)
    [ -z "$others" ] || fail "also needs $others"
fi
echo "$(wc -l <"$work/wanted") exports are as listed"
