# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""The one table."""
from dataclasses import dataclass
from typing import Optional


@dataclass
class Row:
    what: str
    ours: str
    against: str
    peer: str = ""
    ratio: str = ""
    reach: str = ""
    met: Optional[bool] = None  # none: nothing to reach, or nothing to compare with


HEAD = ("what", "this program", "against", "measured", "ratio", "reach", "met")


def seconds_text(seconds):
    for unit, size in (("s", 1), ("ms", 1e-3), ("µs", 1e-6)):
        if seconds >= size:
            return f"{seconds / size:.3g} {unit}" if seconds < 1000 * size else f"{seconds / size:.0f} {unit}"
    return f"{seconds * 1e9:.0f} ns"


def faster(what, ours, against, peer, reach):
    """A row of times (in seconds) that must be at least so many times shorter than the peer's."""
    ratio = peer / ours
    return Row(what, seconds_text(ours), against, seconds_text(peer), f"{ratio:.3g} x faster",
               f">= {reach} x faster", ratio >= reach)


def at_most(what, ours, against, peer, reach, text=seconds_text):
    """A row whose cost may be at most so many times the peer's."""
    ratio = ours / peer
    return Row(what, text(ours), against, text(peer), f"{ratio:.3g}", f"<= {reach}", ratio <= reach)


def reported(what, ours, against="", peer="", ratio=""):
    return Row(what, ours, against, peer, ratio, "reported")


def left_out(what, against):
    return Row(what, "", against, "not to be had here")


def _cells(row):
    met = {None: "", True: "met", False: "MISSED"}[row.met]
    return (row.what, row.ours, row.against, row.peer, row.ratio, row.reach, met)


def as_markdown(rows):
    lines = [HEAD] + [_cells(row) for row in rows]
    widths = [max(len(line[i]) for line in lines) for i in range(len(HEAD))]
    shown = ["| " + " | ".join(cell.ljust(width) for cell, width in zip(line, widths)) + " |" for line in lines]
    shown.insert(1, "|" + "|".join("-" * (width + 2) for width in widths) + "|")
    return "\n".join(shown)
