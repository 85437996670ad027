#!/bin/sh
# A compiler launcher: takes the object from a build of the same sources where it is there, else
# compiles.   reuse.sh BUILD_DIRECTORY COMPILER ARGUMENT...
set -eu
build=$1
shift
object=
previous=
for argument in "$@"; do
    [ "$previous" = -o ] && object=$argument
    previous=$argument
done
built=$build/${PWD##*/zelm/}/$object
case $PWD in */zelm/*) [ -f "$built" ] && [ -f "$built.d" ] && {
    cp "$built" "$object"
    cp "$built.d" "$object.d"
    exit 0
} ;; esac
exec "$@"
