# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""Other players, told what to play while they run, as a user has them open."""
import json
import os
import socket
import subprocess
import time

from .display import end

PATIENCE = 20  # seconds
MPV = ["mpv", "--no-config", "--vo=x11", "--ao=null", "--hwdec=no", "--no-terminal"]
VLC = ["vlc", "--no-qt-privacy-ask", "--vout=xcb_x11", "--aout=dummy", "--avcodec-hw=none", "--no-video-title-show"]


def _connected(path):
    limit = time.monotonic() + PATIENCE
    while True:
        try:
            peer = socket.socket(socket.AF_UNIX)
            peer.settimeout(PATIENCE)
            peer.connect(path)
            return peer
        except OSError:
            peer.close()
            if time.monotonic() > limit:
                raise
            time.sleep(0.05)


def _until(lines, wanted):
    for line in lines:
        if wanted(line):
            return time.monotonic()
    raise RuntimeError("the player ended or said nothing more")


class Mpv:
    """mpv, idle with its window open."""

    def __init__(self, display):
        path = f"{display.home}/mpv-{time.monotonic_ns()}"
        self.program = display.start(MPV + ["--idle=yes", "--force-window=yes", f"--input-ipc-server={path}"])
        self.peer = _connected(path)
        self.lines = self.peer.makefile()
        time.sleep(1)

    def first_frame(self, film):
        """Seconds from telling it to play until playback has begun."""
        begun = time.monotonic()
        self._tell("loadfile", str(film), "replace")
        # The answer to the command and what belongs to the film before come first.
        _until(self.lines, lambda line: json.loads(line).get("event") == "start-file")
        return _until(self.lines, lambda line: json.loads(line).get("event") == "playback-restart") - begun

    def _tell(self, *words):
        self.peer.sendall(json.dumps({"command": words}).encode() + b"\n")

    def close(self):
        self.peer.close()
        end(self.program)


class Vlc:
    """VLC, idle, told over its remote control; what it does it tells in its log."""

    def __init__(self, display):
        path = f"{display.home}/vlc-{time.monotonic_ns()}"
        log, its_log = os.pipe()
        self.program = display.start(
            VLC + ["-vv", "--intf=dummy", "--extraintf=oldrc", f"--rc-unix={path}", "--rc-fake-tty"],
            stderr=its_log, stdout=its_log)
        os.close(its_log)
        self.lines = os.fdopen(log, errors="replace")
        self.peer = _connected(path)
        time.sleep(1)

    def first_frame(self, film):
        """Seconds from telling it to play until its decoder has handed on the first picture."""
        begun = time.monotonic()
        self.peer.sendall(f"clear\nadd {film}\n".encode())
        return _until(self.lines, lambda line: "Received first picture" in line) - begun

    def close(self):
        self.peer.close()
        end(self.program)
        self.lines.close()


def start_mpv(display, film, size):
    """Plays a film over and over in a window of a size ("640x360")."""
    return display.start(MPV + ["--loop=inf", f"--geometry={size}+0+0", str(film)])


def start_vlc(display, film, size, interface="dummy"):
    width, height = size.split("x")
    embedded = [] if interface == "qt" else [f"--width={width}", f"--height={height}", "--no-autoscale"]
    return display.start(VLC + ["--repeat", f"--intf={interface}", *embedded, str(film)])


def start_decoder(display, film):
    """Decodes a film over and over as fast as it plays, and shows nothing: what is left of a player without the rest."""
    return display.start(["ffmpeg", "-loglevel", "quiet", "-re", "-stream_loop", "-1", "-threads", "1", "-i", film,
                          "-map", "0:v", "-f", "null", "-"])


def lines_of(display, command):
    """A program whose lines are to be read while it runs."""
    return display.start(command, stdout=subprocess.PIPE, text=True)
