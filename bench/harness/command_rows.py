# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""Rows of whole commands: marvo-cli beside the usual tools."""
from . import inputs
from .measure import commands_in_turn
from .setting import CLI, DATA, SOURCE, available
from .table import at_most, faster, left_out, reported, seconds_text


def inspect():
    """The data of a recording; also when the walk for it goes through the whole film."""
    for end, name in (("zero", "data of a 60 s recording"), ("end", "the same, the walk runs through the film")):
        film = inputs.recording(end)
        peers = {"exiftool -ee": ["exiftool", "-ee", film],
                 "ffprobe -show_format": ["ffprobe", "-loglevel", "quiet", "-show_format", film]}
        there = {label: command for label, command in peers.items() if available(command[0])}
        ours, *theirs = commands_in_turn([CLI, "inspect", film], *there.values(), runs=5, warmup=1)
        for label, taken in zip(there, theirs):
            if end == "zero":
                yield faster(name, ours, label, taken, 15)
            else:  # 72 MB are read, which takes cat nearly as long
                yield reported(name, seconds_text(ours), label, seconds_text(taken), f"{taken / ours:.3g} x faster")
        for label in peers.keys() - there.keys():
            yield left_out(name, label)


def walk():
    """Through 2 GiB in the page cache."""
    film = inputs.long_walk()
    ours, cat = commands_in_turn([CLI, "inspect", film], ["cat", film], runs=1, warmup=1)
    yield at_most("walk to the end of 2 GiB", ours, "cat", cat, 1.5)


def list_recordings():
    """15,000 recordings in 100 folders."""
    folder = inputs.list_folder()
    peer = f"find -L '{folder}' -type f -iname '*.avi' | sort"
    for options in ("--json", ""):
        ours, find = commands_in_turn(f"'{CLI}' list '{folder}' {options}", peer, runs=5, warmup=1, shell=True)
        yield at_most(f"list of 15,000 recordings {options}".strip(), ours, "find -L, sort", find, 1.0)


def nmea():
    """100 MB of sentences."""
    text = inputs.nmea_text()
    commands = {"cat": ["cat", text]}
    if available("gpsbabel"):
        commands["gpsbabel to GPX"] = ["gpsbabel", "-i", "nmea", "-f", text, "-o", "gpx", "-F", "/dev/null"]
    ours, *theirs = commands_in_turn([CLI, "nmea", text], *commands.values(), warmup=0)
    taken = dict(zip(commands, theirs))
    if "gpsbabel to GPX" in taken:
        yield faster("NMEA text of 100 MB", ours, "gpsbabel to GPX", taken["gpsbabel to GPX"], 10)
    else:
        yield left_out("NMEA text of 100 MB", "gpsbabel")
    yield reported("NMEA text of 100 MB", seconds_text(ours), "cat", seconds_text(taken["cat"]),
                   f"{ours / taken['cat']:.3g}")


def log():
    """1,000,000 records to CSV."""
    drive, text = inputs.driving_log(), inputs.driving_log_csv()
    out = DATA / "out.csv"
    ours, copy, script = commands_in_turn(
        [CLI, "log", drive, "--csv", out], ["cp", text, out],
        ["python3", SOURCE / "bench" / "log_by_script.py", drive, out])
    out.unlink()
    yield at_most("1,000,000 log records to CSV", ours, "cp of the CSV", copy, 8)
    yield faster("1,000,000 log records to CSV", ours, "Python, struct and csv", script, 20)
