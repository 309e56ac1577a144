# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""Rows of windows and playing, on a virtual display."""
import time

from . import inputs, players
from .display import Display, end
from .measure import cpu_share, google_benchmark, medians, pss_megabytes
from .setting import MARVO, available, tool
from .table import at_most, faster, left_out, reported

SETTLE = 3  # seconds until a player that was just started plays evenly
WATCH = 5  # seconds of looking at one


def start():
    """From starting the program to its window."""
    commands = {"ours": [MARVO, inputs.empty_folder()]}
    peers = {"gpxsee": ["gpxsee"], "vlc": ["vlc", "--intf=qt", "--no-qt-privacy-ask"]}
    commands.update({name: command for name, command in peers.items() if available(command[0])})
    with Display() as display:
        def shown(command):
            return lambda: [float(display.output([tool("window"), *command])) / 1000]
        for command in commands.values():  # once for the page cache and the programs' own set-up
            shown(command)()
        ours, *theirs = medians([shown(command) for command in commands.values()])
    taken = dict(zip(list(commands)[1:], theirs))
    for name in peers:
        if name not in taken:
            yield left_out("start to a shown window", name)
    if taken:
        name = min(taken, key=taken.get)
        yield at_most("start to a shown window", ours, f"{name}, the faster", taken[name], 1.0)


def first_frame():
    """From a double click to the first picture, in programs that run already."""
    folder = inputs.recordings_folder()
    films = sorted(folder.iterdir())
    starts = 3  # a round
    with Display() as display:
        def ours():
            lines = display.output([tool("application"), "starts", folder, starts + 1]).split()
            return [float(line) / 1000 for line in lines[1:]]  # the very first loads the library's plug-ins

        def theirs(player):
            def measure():
                program = player(display)
                try:
                    taken = []
                    for i in range(starts + 1):
                        taken.append(program.first_frame(films[i % len(films)]))
                        time.sleep(0.4)
                    return taken[1:]
                finally:
                    program.close()
            return measure

        peers = {"mpv": players.Mpv, "vlc": players.Vlc}
        there = [name for name in peers if available(name)]
        mine, *taken = medians([ours] + [theirs(peers[name]) for name in there])
    for name, seconds in zip(there, taken):
        yield at_most("double click to first picture", mine, name, seconds, 1.0)
    for name in peers.keys() - set(there):
        yield left_out("double click to first picture", name)


class OurPlayer:
    """The application, playing; the picture's size in pixels."""

    def __init__(self, display, panel="list"):
        self.program = players.lines_of(display, [tool("application"), "play", inputs.recordings_folder(), panel])
        self.size = self.program.stdout.readline().strip()
        if not self.size:
            raise RuntimeError("the application does not play")


def _watched(start_player, look):
    """Starts a player, lets it settle, and looks at it."""
    program = start_player()
    try:
        time.sleep(SETTLE)
        return [look(program.pid)]
    finally:
        end(program)


def cpu():
    """Share of a core that playing takes, the picture as large in each."""
    film = inputs.recording()
    percent = "{:.0%} of a core".format
    with Display() as display:
        first = OurPlayer(display)
        end(first.program)
        starts = {"ours": lambda: OurPlayer(display).program,
                  "vlc": lambda: players.start_vlc(display, film, first.size),
                  "mpv": lambda: players.start_mpv(display, film, first.size)}
        starts = {name: begin for name, begin in starts.items() if name == "ours" or available(name)}
        look = lambda process: cpu_share(process, WATCH)  # noqa: E731
        starts["the decoder alone"] = lambda: players.start_decoder(display, film)
        ours, *theirs = medians([lambda begin=begin: _watched(begin, look) for begin in starts.values()])
    what = f"playing 1080p30 H.264 as {first.size}"
    taken = dict(zip(list(starts)[1:], theirs))
    better = min(taken.keys() - {"the decoder alone"}, key=taken.get, default=None)
    for name, share in taken.items():
        if name == better:
            yield at_most(what, ours, f"{name}, the better", share, 0.7, percent)
        else:
            yield reported(what, percent(ours), name, percent(share), f"{ours / share:.3g}")


def memory():
    """All processes of a player that plays, what they share counted once."""
    film = inputs.recording()
    with Display() as display:
        starts = {"map not shown": lambda: OurPlayer(display).program,
                  "map shown": lambda: OurPlayer(display, "map").program}
        if available("vlc"):
            starts["vlc"] = lambda: players.start_vlc(display, film, "640x360", "qt")
        taken = dict(zip(starts, medians([lambda begin=begin: _watched(begin, pss_megabytes)
                                          for begin in starts.values()])))
    megabytes = "{:.0f} MB".format
    vlc = taken.pop("vlc", None)
    for what, size in taken.items():
        yield reported(f"memory while playing, {what}", megabytes(size), "vlc (Qt)", megabytes(vlc) if vlc else "",
                       f"{size / vlc:.3g}" if vlc else "")


def graph():
    """A cursor move at 1920 pixels with 36,000 readings."""
    with Display() as display:
        taken = google_benchmark(tool("graph"), "^(cursorMove|fullRedraw)$", {**display.environment})
    yield faster("cursor move of the graph", taken["cursorMove"], "full redraw", taken["fullRedraw"], 20)


