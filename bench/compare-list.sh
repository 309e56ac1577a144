#!/bin/sh
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# Times `marvo-cli list` on 15,000 recordings in 100 folders beside find and sort. Needs hyperfine.
# Usage: bench/compare-list.sh [MARVO-CLI]
set -eu
cli=${1:-build/release/src/cli/marvo-cli}
card=$(mktemp -d)
trap 'rm -rf "$card"' EXIT
awk -v card="$card" 'BEGIN {
    for (i = 0; i < 15000; ++i) {
        if (i % 150 == 0)
            system(sprintf("mkdir %s/%03d", card, i / 150))
        file = sprintf("%s/%03d/alwa_201305%02d_%02d%02d00_%s.avi", card, i / 150, i / 1440 + 1,
                       i / 60 % 24, i % 60, i % 2 ? "R" : "F")
        printf "" > file
        close(file)
    }
}'
hyperfine --warmup 5 --min-runs 40 "$cli list $card --json" "$cli list $card" \
    "find -L $card -type f -iname '*.avi' | sort" "$cli --version"
