# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# Sourced by ./run and ./check from the repository's root: puts on the machine what building needs, and builds.

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# install_missing_packages [PACKAGE...]: installs those of packaging/apt-packages.txt, and the named ones, that are
# missing; asks apt nothing when none is.
install_missing_packages() {
    command -v dpkg-query >/dev/null ||
        die "This is not a Debian system. Needed: $(tr '\n' ' ' < packaging/apt-packages.txt)"
    local wanted=() missing=()
    mapfile -t wanted < <(grep -v '^#' packaging/apt-packages.txt; [ $# -eq 0 ] || printf '%s\n' "$@")
    # A Node.js from elsewhere does as well as Debian's.
    if command -v node >/dev/null && command -v npm >/dev/null; then
        mapfile -t wanted < <(printf '%s\n' "${wanted[@]}" | grep -vx -e nodejs -e npm)
    fi
    mapfile -t missing < <(comm -23 <(printf '%s\n' "${wanted[@]}" | sort) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n 's/^installed //p' | sort -u))
    [ "${#missing[@]}" -eq 0 ] && return 0
    say "Installing ${#missing[@]} package(s) with apt: ${missing[*]}"
    local log=build/apt.log
    mkdir -p build
    if ! { as_root apt-get update && as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"; } </dev/null >"$log" 2>&1; then
        die "Could not fetch or install with apt (no network?): ${missing[*]} - see $log"
    fi
}

# build_targets PRESET [TARGET...]; extra configuration in the array configure_options.
build_targets() {
    local preset=$1 log
    shift
    log=build/$preset.log
    mkdir -p build
    # Configuring again costs seconds; ninja does it by itself when a build file has changed.
    if [ ! -f "build/$preset/build.ninja" ] || [ "${#configure_options[@]}" -gt 0 ]; then
        say "Configuring ($preset)"
        cmake --preset "$preset" "${configure_options[@]}" >"$log" 2>&1 || { tail -n 25 "$log" >&2; die "Configuring failed; see $log"; }
    fi
    if [ -f "build/$preset/.ninja_log" ]; then
        say "Bringing the build up to date ($preset)"
    else
        say "Building ($preset, $(nproc) cores)"
    fi
    if ! ninja -C "build/$preset" "$@" >"$log" 2>&1; then
        # A step that explains itself in one line should not be buried under the build tool's own words.
        grep '^marvo: ' "$log" >&2 || grep -E -A12 'FAILED|error' "$log" | head -n 60 >&2
        die "The build failed; see $log"
    fi
}

has_display() { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }
