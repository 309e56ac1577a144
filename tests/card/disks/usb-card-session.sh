#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
# usb-card-session.sh COMMAND...: runs COMMAND beside a real disk service with FAT cards in "USB readers": loop devices
# that udev rules and a dressed-up device folder pass off as such. All of it lives in a mount namespace of its own and
# goes with it. Exit code 77, with the reason, where this machine cannot do that.
# MARVO_TEST_CARDS lists the cards as LABEL:MIB, LABEL:MIB:partition, or LABEL:MIB:fixed for what is no card but an
# external hard disk; each image lies on a small tmpfs of its own.
# COMMAND finds in MARVO_TEST_CARD_LABEL the device and the image of each ("/dev/loop3p1 /run/marvo/LABEL/card.img"), and
# of the first card the device in MARVO_TEST_DEVICE and its size in bytes in MARVO_TEST_DEVICE_SIZE.
set -euo pipefail

skip() { echo "skipped: $*"; exit 77; }

if [ "${1:-}" != --inside ]; then
    [ "$(id -u)" -eq 0 ] || skip "needs root for a loop device and a mount namespace"
    for tool in unshare flock losetup addpart dbus-daemon udevadm mkfs.fat sfdisk fusefat; do
        command -v "$tool" >/dev/null || skip "no $tool"
    done
    for daemon in /lib/systemd/systemd-udevd /usr/libexec/udisks2/udisksd /usr/lib/polkit-1/polkitd; do
        [ -x "$daemon" ] || skip "no $daemon"
    done
    unshare -m --propagation private true 2>/dev/null || skip "no mount namespace can be made here"
    # What the kernel tells of devices reaches every session, so there is one at a time.
    exec flock -o -w 170 "${TMPDIR:-/tmp}/marvo-usb-card-session.lock" \
        unshare -m --propagation private "$0" --inside "$@"
fi
shift

read -r -a cards <<<"${MARVO_TEST_CARDS:-OLDNAME:64}"
work=/run/marvo
disks=()
fixed=
pids=()

finish() {
    set +e
    # A file system in user space keeps the namespace alive for as long as it is mounted.
    for disk in "${disks[@]}"; do
        for device in "$disk"*; do while umount "$device" 2>/dev/null; do :; done; done
    done
    # The disk service waits for a bus that may have gone before it: none of them has anything left to put in order.
    [ "${#pids[@]}" -eq 0 ] || kill -KILL "${pids[@]}" 2>/dev/null
    wait 2>/dev/null
    for disk in "${disks[@]}"; do losetup -d "$disk" 2>/dev/null; done
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
# Where volumes get mounted, and where the disk service remembers them.
mount -t tmpfs tmpfs /media
[ ! -d /var/lib/udisks2 ] || mount -t tmpfs tmpfs /var/lib/udisks2

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
if [ "$(blockdev --getro "$1")" = 1 ]; then mode=ro; else mode=rw+; fi
exec fusefat -o "$mode,blkdev,fsname=$1,allow_other" "$1" "$2"
HELPER
    chmod +x "$work/sbin/mount.vfat"
    mount --bind "$work/sbin" "$system_sbin"
fi

# make_card LABEL MIB [partition]: its image in a reader; the disk's device is added to `disks`.
make_card() {
    local folder=$work/$1 image=$work/$1/card.img
    mkdir "$folder"
    mount -t tmpfs -o size=48m tmpfs "$folder"
    truncate -s "$2M" "$image"
    if [ "${3:-}" = partition ]; then
        echo '2048,,c' | sfdisk -q "$image"
        mkfs.fat -F 32 -n "$1" -h 2048 --offset 2048 "$image" $(($2 * 1024 - 1024)) >/dev/null
    else
        mkfs.fat -F 32 -n "$1" "$image" >/dev/null
    fi
    disks+=("$(losetup -P -f --show "$image")") || skip "no loop device"
}
for card in "${cards[@]}"; do
    IFS=: read -r label mib kind <<<"$card"
    make_card "$label" "$mib" "${kind:-}"
    device=${disks[-1]}
    if [ "${kind:-}" = partition ]; then
        # A kernel that reads no partition tables takes them one by one.
        [ -b "${device}p1" ] || addpart "$device" 1 2048 $((mib * 2048 - 2048)) || skip "no partitions on loop devices"
        device+=p1
    fi
    [ "${kind:-}" != fixed ] || fixed+=" ${disks[-1]} "
    export "MARVO_TEST_CARD_$label=$device $work/$label/card.img"
    if [ -z "${MARVO_TEST_DEVICE:-}" ]; then
        MARVO_TEST_DEVICE=$device
        MARVO_TEST_DEVICE_SIZE=$(blockdev --getsize64 "$device")
        export MARVO_TEST_DEVICE MARVO_TEST_DEVICE_SIZE
    fi
done

# The loop devices' folders under a parent that looks like a USB interface, and their media removable.
mkdir "$work/sys"
mount --bind "$(readlink -f /sys/devices/virtual/block)" "$work/sys"
mount -t tmpfs tmpfs /sys/devices/virtual/block
printf 'DEVTYPE=usb_interface\n' >/sys/devices/virtual/block/uevent
ln -s ../../../../bus/usb /sys/devices/virtual/block/subsystem
echo 1 >"$work/removable"
for disk in "${disks[@]}"; do
    name=$(basename "$disk")
    mkdir "/sys/devices/virtual/block/$name"
    mount --bind "$work/sys/$name" "/sys/devices/virtual/block/$name"
    flash=', ENV{ID_DRIVE_FLASH_SD}="1"'
    if [[ $fixed == *" $disk "* ]]; then
        flash=
    else
        mount --bind "$work/removable" "/sys/devices/virtual/block/$name/removable"
    fi
    # Readers are told apart by their serial numbers.
    cat >>/run/udev/rules.d/99-marvo-test.rules <<RULES
KERNEL=="$name|${name}p*", ENV{ID_BUS}="usb", ENV{ID_USB_DRIVER}="usb-storage", ENV{ID_MODEL}="Card_Reader", ENV{ID_MODEL_ENC}="Card\\x20Reader", ENV{ID_VENDOR}="Test", ENV{ID_VENDOR_ENC}="Test", ENV{ID_SERIAL}="Test_Card_Reader_$name", ENV{ID_SERIAL_SHORT}="$name"$flash, ENV{ID_INSTANCE}="0:0", ENV{UDISKS_SYSTEM}="0", ENV{UDISKS_IGNORE}="0"
RULES
done

export SYSTEMD_DEVICE_VERIFY_SYSFS=0
dbus-daemon --system --nofork --nopidfile >"$work/dbus.log" 2>&1 & pids+=($!)
wait_for 5 "the system bus" test -S /run/dbus/system_bus_socket
/lib/systemd/systemd-udevd >"$work/udev.log" 2>&1 & pids+=($!)
wait_for 5 "udev" test -S /run/udev/control
for disk in "${disks[@]}"; do udevadm trigger --action=add "/sys/class/block/$(basename "$disk")"*; done
udevadm settle --timeout=10 || true
# Who sits at the machine may mount; here nobody does.
mkdir "$work/rules.d"
echo 'polkit.addRule(function(action) {
    if (action.id == "org.freedesktop.udisks2.filesystem-mount" || action.id == "org.freedesktop.udisks2.rescan")
        return polkit.Result.YES;
});' >"$work/rules.d/10-test.rules"
chmod 755 /run "$work" "$work/rules.d"
mount --bind "$work/rules.d" /etc/polkit-1/rules.d
/usr/lib/polkit-1/polkitd --no-debug >"$work/polkit.log" 2>&1 & pids+=($!)
# Now and then the disk service misses at its start what a reader hangs on; it does not look again.
readers_known() {
    [ "$(gdbus call --system --dest org.freedesktop.UDisks2 --object-path /org/freedesktop/UDisks2 \
        --method org.freedesktop.DBus.ObjectManager.GetManagedObjects |
        grep -o "'ConnectionBus': <'usb'>" | wc -l)" -ge "${#disks[@]}" ]
}
for attempt in 1 2 3 4 5; do
    /usr/libexec/udisks2/udisksd --replace >"$work/udisks.log" 2>&1 & pids+=($!)
    for disk in "${disks[@]}"; do
        wait_for 10 "the disk service" gdbus introspect --system --dest org.freedesktop.UDisks2 --only-properties \
            --object-path "/org/freedesktop/UDisks2/block_devices/$(basename "$disk")"
    done
    ! readers_known || break
    echo "the disk service takes the readers for something else (attempt $attempt)"
    for disk in "${disks[@]}"; do udevadm trigger --settle --action=add "/sys/class/block/$(basename "$disk")"; done
done

"$@"
