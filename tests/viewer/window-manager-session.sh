#!/bin/sh
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# Runs a program on a display of its own that has a window manager.
exec xvfb-run -a -s "-screen 0 1600x1000x24" sh -c '
    openbox --sm-disable >/dev/null 2>&1 &
    manager=$!
    for attempt in $(seq 50); do
        wmctrl -m >/dev/null 2>&1 && break
        sleep 0.1
    done
    "$@"
    ended=$?
    kill $manager
    exit $ended' session "$@"
