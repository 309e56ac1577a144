#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# bus-session.sh MARVO: looks at the main window as a screen reader does, over a real AT-SPI bus of its own.
# Ends with 77 where there is no such bus to be had.
set -eu
launcher=/usr/libexec/at-spi-bus-launcher
[ -x "$launcher" ] && /usr/bin/python3 -c 'import pyatspi' 2>/dev/null || exit 77
here=$(dirname "$(readlink -f "$0")")
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME=$home XDG_RUNTIME_DIR=$home XDG_CONFIG_HOME=$home/config QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 NO_AT_BRIDGE=0
chmod 700 "$home"
dbus-run-session -- bash -c '
    "$1" --launch-immediately &
    launcher=$!
    "$2" --card "$HOME" >"$HOME/marvo.log" 2>&1 &
    marvo=$!
    code=0
    timeout 60 /usr/bin/python3 "$3" || code=$?
    kill $marvo $launcher 2>/dev/null || true
    wait $marvo 2>/dev/null || true
    [ $code = 0 ] || cat "$HOME/marvo.log" >&2
    exit $code
' session "$launcher" "$1" "$here/look.py"
