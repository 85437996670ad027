#!/bin/sh
# Runs a command as the owner of this tree where root works in the tree of another user, for instance
# by sudo: what root makes in build/ its owner could not make again.   as_owner.sh COMMAND...
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
user=$(stat -c %u "$root")
if [ "$(id -u)" -eq 0 ] && [ "$user" -ne 0 ]; then
    owner="setpriv --reuid $user --regid $(stat -c %g "$root") --clear-groups"
    # Sources that were unpacked where their owner has no access are root's after all.
    if $owner test -w "$root" 2>/dev/null; then
        home=$(getent passwd "$user" | cut -d : -f 6)
        export HOME="${home:-/}"
        exec $owner "$@"
    fi
fi
exec "$@"
