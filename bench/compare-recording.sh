#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# Times `marvo-cli` beside the usual tools on the same files; those that are not installed are left out.
# Usage: compare-recording.sh MARVO-CLI RECORDING.avi [LARGE.avi] [TEXT.nmea]
set -eu
cli=$1 recording=$2 large=${3:-} text=${4:-}

# Shortest of five runs, in milliseconds.
measure() {
    command -v "$1" >/dev/null || return 0
    local best=
    for _ in 1 2 3 4 5; do
        local start=$EPOCHREALTIME
        "$@" >/dev/null 2>&1 || true
        local end=$EPOCHREALTIME
        local spent=$(((${end/./} - ${start/./}) / 100))
        if [ -z "$best" ] || [ "$spent" -lt "$best" ]; then best=$spent; fi
    done
    printf '%8d.%d ms  %s\n' $((best / 10)) $((best % 10)) "$*"
}

measure "$cli" inspect "$recording" --json
measure exiftool -ee "$recording"
measure ffprobe "$recording"
if [ -n "$large" ]; then
    measure "$cli" inspect "$large"
    measure cat "$large"
fi
if [ -n "$text" ]; then
    measure "$cli" nmea "$text" --json
    measure gpsbabel -i nmea -f "$text" -o unicsv -F /dev/null
fi
