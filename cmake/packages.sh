#!/bin/sh
# Installs the Debian packages of the named groups that are not there yet: packages.sh GROUP...
# Nothing is asked of the network when all are there. PACKAGES_MAY_REPLACE=1 lets apt-get remove
# packages that are in conflict with one of them.
set -eu

group() {
    case $1 in
    build) echo g++ make cmake ;;
    example) echo libpng-dev libeigen3-dev ;;
    test) echo libgtest-dev pkg-config python3 ;;
    python) echo python3-dev python3-numpy ;;
    wheel) echo python3-pip python3-setuptools python3-wheel ;;
    bench)
        echo libbenchmark-dev python3 libeigen3-dev libglm-dev libcglm-dev liblapacke-dev \
            libopenblas-dev gfortran libxsmm-dev
        ;;
    # One LLVM: the OpenMP runtimes of two versions cannot be installed side by side.
    sanitize) echo clang-19 libclang-rt-19-dev libomp-19-dev llvm-19 ;;
    abi) echo abigail-tools ;;
    format) echo clang-format-14 ;;
    doc) echo doxygen ;;
    ci) echo git ;;
    *)
        echo "packages.sh: no group $1" >&2
        return 1
        ;;
    esac
}
# "ii": to be installed, and installed. A program in PATH serves as well as its package.
present() {
    case $(dpkg-query -W -f '${db:Status-Abbrev} ' "$1" 2>/dev/null) in *i\ *) return 0 ;; esac
    case $1 in
    g++ | make | cmake | pkg-config | python3 | git | doxygen | clang-format-14)
        command -v "$1" >/dev/null
        ;;
    *) return 1 ;;
    esac
}

missing=
for name in "$@"; do
    packages=$(group "$name")
    for package in $packages; do
        case " $missing " in *" $package "*) continue ;; esac
        present "$package" || missing="$missing${missing:+ }$package"
    done
done
[ -n "$missing" ] || exit 0

if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    echo "packages.sh: this is not a Debian system. Going on without having checked for" >&2
    echo "    $missing" >&2
    exit 0
fi
give_up() {
    echo "packages.sh: $1. Missing are" >&2
    echo "    $missing" >&2
    echo "Install them with: apt-get install $missing" >&2
    exit 1
}
root=
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || give_up "this user may not install packages and there is no sudo"
    root=sudo
fi
replace=--no-remove
[ "${PACKAGES_MAY_REPLACE-}" = 1 ] && replace=
apt() {
    $root env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600 "$@"
}

echo "Installing $missing"
# Another repository of this machine may be out of reach; whether these packages can be had shows
# at the next step.
apt update || true
# shellcheck disable=SC2086 # lists of words
apt install -y $replace --no-install-recommends $missing || give_up "apt-get failed"
