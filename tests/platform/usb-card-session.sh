#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# usb-card-session.sh COMMAND...: runs COMMAND beside a real disk service with a FAT card in a "USB reader": a loop device
# that udev rules and a dressed-up device folder pass off as one. All of it lives in a mount namespace of its own and
# goes with it. COMMAND finds the device in MARVO_TEST_DEVICE and the card's size in bytes in MARVO_TEST_DEVICE_SIZE.
# Exit code 77, with the reason, where this machine cannot do that.
set -euo pipefail

skip() { echo "skipped: $*"; exit 77; }

if [ "${1:-}" != --inside ]; then
    [ "$(id -u)" -eq 0 ] || skip "needs root for a loop device and a mount namespace"
    for tool in unshare losetup dbus-daemon udevadm mkfs.fat fusefat; do
        command -v "$tool" >/dev/null || skip "no $tool"
    done
    for daemon in /lib/systemd/systemd-udevd /usr/libexec/udisks2/udisksd /usr/lib/polkit-1/polkitd; do
        [ -x "$daemon" ] || skip "no $daemon"
    done
    unshare -m --propagation private true 2>/dev/null || skip "no mount namespace can be made here"
    exec unshare -m --propagation private "$0" --inside "$@"
fi
shift

card_mb=${MARVO_TEST_CARD_MB:-64}
work=/run/marvo
device=
pids=()

finish() {
    set +e
    # A file system in user space keeps the namespace alive for as long as it is mounted.
    [ -z "$device" ] || while umount "$device" 2>/dev/null; do :; done
    # The disk service waits for a bus that may have gone before it: none of them has anything left to put in order.
    [ "${#pids[@]}" -eq 0 ] || kill -KILL "${pids[@]}" 2>/dev/null
    wait 2>/dev/null
    [ -z "$device" ] || losetup -d "$device" 2>/dev/null
}
trap finish EXIT

# wait_for SECONDS WHAT COMMAND...
wait_for() {
    local tries=$(($1 * 20)) what=$2
    shift 2
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || { echo "gave up waiting for $what"; tail -n 20 "$work"/*.log; exit 1; }
        sleep 0.05
    done
}

mount -t tmpfs tmpfs /run || skip "no tmpfs on /run"
mkdir -p /run/dbus /run/udev/rules.d /run/lock "$work"

# The kernel of a build machine often has no vfat; the mount command then finds this helper.
if ! grep -qw vfat /proc/filesystems && ! modprobe vfat 2>/dev/null; then
    # Only this namespace sees it, in a folder of links that stands in for the system's own.
    system_sbin=$(readlink -f /sbin)
    mkdir "$work/system_sbin" "$work/sbin"
    mount --bind "$system_sbin" "$work/system_sbin"
    ln -s "$work/system_sbin"/* "$work/sbin/"
    rm -f "$work/sbin/mount.vfat"
    cat >"$work/sbin/mount.vfat" <<'HELPER'
#!/bin/sh
exec fusefat -o rw+ -o "blkdev,fsname=$1,allow_other" "$1" "$2"
HELPER
    chmod +x "$work/sbin/mount.vfat"
    mount --bind "$work/sbin" "$system_sbin"
fi

truncate -s "${card_mb}M" "$work/card.img"
mkfs.fat -F 32 -n "${MARVO_TEST_CARD_LABEL:-OLDNAME}" "$work/card.img" >/dev/null
device=$(losetup -f --show "$work/card.img") || skip "no loop device"
name=$(basename "$device")

cat >/run/udev/rules.d/99-marvo-test.rules <<RULES
KERNEL=="$name", ENV{ID_BUS}="usb", ENV{ID_USB_DRIVER}="usb-storage", ENV{ID_MODEL}="Card_Reader", ENV{ID_MODEL_ENC}="Card\\x20Reader", ENV{ID_VENDOR}="Test", ENV{ID_VENDOR_ENC}="Test", ENV{ID_SERIAL}="Test_Card_Reader_0001", ENV{ID_SERIAL_SHORT}="0001", ENV{ID_DRIVE_FLASH_SD}="1", ENV{ID_INSTANCE}="0:0", ENV{UDISKS_SYSTEM}="0", ENV{UDISKS_IGNORE}="0"
RULES

# The loop device's folder under a parent that looks like a USB interface, and its medium removable.
real=$(readlink -f "/sys/class/block/$name")
mkdir "$work/loop"
mount --bind "$real" "$work/loop"
mount -t tmpfs tmpfs /sys/devices/virtual/block
printf 'DEVTYPE=usb_interface\n' >/sys/devices/virtual/block/uevent
ln -s ../../../../bus/usb /sys/devices/virtual/block/subsystem
mkdir "/sys/devices/virtual/block/$name"
mount --bind "$work/loop" "/sys/devices/virtual/block/$name"
echo 1 >"$work/removable"
mount --bind "$work/removable" "/sys/devices/virtual/block/$name/removable"

export SYSTEMD_DEVICE_VERIFY_SYSFS=0
dbus-daemon --system --nofork --nopidfile >"$work/dbus.log" 2>&1 & pids+=($!)
wait_for 5 "the system bus" test -S /run/dbus/system_bus_socket
/lib/systemd/systemd-udevd >"$work/udev.log" 2>&1 & pids+=($!)
wait_for 5 "udev" test -S /run/udev/control
udevadm trigger --action=add "$real" 2>/dev/null || udevadm trigger --action=add --subsystem-match=block
udevadm settle --timeout=10 || true
/usr/lib/polkit-1/polkitd --no-debug >"$work/polkit.log" 2>&1 & pids+=($!)
/usr/libexec/udisks2/udisksd >"$work/udisks.log" 2>&1 & pids+=($!)
bus_object=/org/freedesktop/UDisks2/block_devices/$name
wait_for 10 "the disk service" \
    gdbus introspect --system --dest org.freedesktop.UDisks2 --object-path "$bus_object" --only-properties

MARVO_TEST_DEVICE=$device MARVO_TEST_DEVICE_SIZE=$(blockdev --getsize64 "$device") "$@"
