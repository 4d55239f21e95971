#!/usr/bin/env bash
# usage: bits.sh [BUILDDIR]
#
# Compares the bits of the library's numbers between compilers and levels of optimisation: builds the numeric units and
# KVUtils/Tests/bits/BitsHash.cpp with each compiler found (g++, clang++, MinGW under Wine) and fails on a difference.
# The reference is g++ -O0. With BUILDDIR, a build of the library, the program also runs against that library and
# against a copy installed from it. Work files go to BUILDDIR/bits, or to build/bits.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:+$(cd "$1" && pwd)}
work=${build:-$root/build}/bits
rm -rf "$work"
mkdir -p "$work"

source=$root/KVUtils/Source
units=("$source"/colorimetry/*.cpp "$source"/colorimetry/detail/*.cpp "$source"/metrics/*.cpp "$source"/plots/Curve.cpp
       "$source"/plots/detail/*.cpp "$source"/controls/detail/NumberLadder.cpp "$source"/data/GString.cpp
       "$root"/SV/core/String.cpp "$root"/SV/core/Container.cpp "$root"/KVUtils/Tests/bits/Surroundings.cpp)
program=$root/KVUtils/Tests/bits/BitsHash.cpp
common=(-std=c++20 -ffunction-sections -fdata-sections "-I$root")
failures=0

# library NAME COMPILER FLAG...: the units as objects in $work/NAME. Flags as the project sets them, without the one that
# avoids the vectoriser's fault: the places that it mended have to hold by themselves.
library() {
    local name=$1
    shift
    mkdir -p "$work/$name"
    printf '%s\0' "${units[@]}" | (cd "$work/$name" && xargs -0 -n 6 -P "$(nproc)" "$@" -ffp-contract=off "${common[@]}" -c)
}

# compare NAME COMMAND...: runs the program and compares its lines with the reference's.
compare() {
    local name=$1
    shift
    "$@" 2>/dev/null | tr -d '\r' >"$work/$name.txt"
    [ -e "$work/reference.txt" ] || cp "$work/$name.txt" "$work/reference.txt"
    if cmp -s "$work/reference.txt" "$work/$name.txt"; then
        printf '%-28s %s\n' "$name" "$(tail -1 "$work/$name.txt" | cut -c1-16)"
    else
        printf '%-28s differs:\n' "$name"
        diff "$work/reference.txt" "$work/$name.txt" | grep '^[<>]' || true
        failures=$((failures + 1))
    fi
}

# program NAME LIBRARY COMPILER FLAG...: BitsHash with these flags, against the units of LIBRARY.
program() {
    local name=$1 objects=$work/$2
    shift 2
    "$@" "${common[@]}" -c "$program" -o "$work/$name.o"
    "$1" -Wl,--gc-sections "$work/$name.o" "$objects"/*.o -o "$work/$name.bits"
    compare "$name" "$work/$name.bits"
}

library g++-O0 g++ -O0
program g++-O0 g++-O0 g++ -O0 -ffp-contract=off
for level in -O1 -O2 -O3; do
    library "g++$level" g++ "$level"
    program "g++$level" "g++$level" g++ "$level" -ffp-contract=off
done
library g++-O3-v3 g++ -O3 -march=x86-64-v3
program g++-O3-v3 g++-O3-v3 g++ -O3 -march=x86-64-v3 -ffp-contract=off
# A user's program has the compiler's own flags.
program user-g++-O2-v3 g++-O0 g++ -O2 -march=x86-64-v3
program user-g++-O3 g++-O3 g++ -O3

if command -v clang++ >/dev/null; then
    library clang++-O2 clang++ -O2
    program clang++-O2 clang++-O2 clang++ -O2 -ffp-contract=off
    library clang++-O3 clang++ -O3
    program clang++-O3 clang++-O3 clang++ -O3 -ffp-contract=off
    program user-clang++-O3-v3 g++-O3 clang++ -O3 -march=x86-64-v3
fi

if command -v x86_64-w64-mingw32-g++ >/dev/null && command -v wine >/dev/null; then
    library mingw-O3 x86_64-w64-mingw32-g++ -O3
    x86_64-w64-mingw32-g++ -O3 "${common[@]}" -c "$program" -o "$work/mingw.o"
    objects=("$work/mingw.o" "$work"/mingw-O3/*.o)
    # This linker wants every symbol, also of the sections that it drops: those that nothing calls become traps.
    { x86_64-w64-mingw32-g++ -static -Wl,--gc-sections,--no-demangle "${objects[@]}" -o "$work/bits.exe" 2>&1 || true; } |
        sed -n "s/.*undefined reference to .\\([A-Za-z_][A-Za-z0-9_]*\\).*/\\1/p" | sort -u |
        sed 's/.*/.globl &\n&: ud2/' >"$work/traps.s"
    x86_64-w64-mingw32-g++ -c "$work/traps.s" -o "$work/traps.o"
    x86_64-w64-mingw32-g++ -static -Wl,--gc-sections "${objects[@]}" "$work/traps.o" -o "$work/bits.exe"
    compare mingw-O3 env WINEDEBUG=-all "WINEPREFIX=${WINEPREFIX:-$work/wine}" wine "$work/bits.exe"
fi

# What is behind the library's public interface comes from the units compiled here.
inner=("$work"/g++-O0/{AutoScale,PlotGeometry,NumberLadder}.o)
shared() {
    local found
    found=$(find "$2" -name 'libKVUtils.so' -o -name 'libKVUtils.a' | head -1)
    [ -n "$found" ] || { echo "no library below $2" >&2; exit 1; }
    g++ -O2 "${common[@]}" "$program" "${inner[@]}" "$found" "-Wl,-rpath,$(dirname "$found")" -o "$work/$1.bits"
    compare "$1" "$work/$1.bits"
}
if [ -n "$build" ]; then
    shared library "$build/KVUtils"
    cmake --install "$build" --prefix "$work/prefix" >/dev/null
    shared installed "$work/prefix"
fi
[ "$failures" = 0 ] || { echo "$failures builds differ from g++ -O0" >&2; exit 1; }
