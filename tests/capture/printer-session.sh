#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# printer-session.sh COMMAND...: runs COMMAND with a system bus of its own, which ippeveprinter does not start without,
# and without the machine's own print service. Exit code 77, with the reason, where that program is missing.
set -euo pipefail

PATH=$PATH:/usr/sbin
for tool in ippeveprinter dbus-daemon; do
    command -v "$tool" >/dev/null || { echo "skipped: no $tool"; exit 77; }
done
work=$(mktemp -d)
bus=
trap '[ -z "$bus" ] || kill "$bus" 2>/dev/null || true; rm -rf "$work"' EXIT

cat >"$work/bus.conf" <<END
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>unix:path=$work/bus</listen>
  <policy context="default"><allow user="*"/><allow own="*"/><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/></policy>
</busconfig>
END
dbus-daemon --config-file="$work/bus.conf" --nofork 2>"$work/bus.log" &
bus=$!
for _ in $(seq 100); do
    [ -S "$work/bus" ] && break
    sleep 0.02
done
export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$work/bus CUPS_SERVER=$work/no-service
"$@"
