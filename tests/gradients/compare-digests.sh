#!/bin/sh
# compare-digests.sh PROGRAM...: all must print the same digest, with each kind of instructions.
set -u
first=
for program in "$@"; do
    for instructions in portable avx2 avx512; do
        digest=$("$program" "$instructions") || exit 1
        echo "$digest $(basename "$program") $instructions"
        first=${first:-$digest}
        [ "$digest" = "$first" ] || differ=yes
    done
done
[ -n "$first" ] && [ -z "${differ-}" ]
