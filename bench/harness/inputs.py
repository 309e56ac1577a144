# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""The files that are measured with. Each is made once and stays in build/bench/data."""
import os
import struct
import subprocess
from datetime import datetime, timedelta

from . import setting
from .setting import CLI, DATA, say, tool

FILM_SECONDS = 60


def _made_once(name, make):
    """Path of a file of DATA; it appears when it is whole."""
    path = DATA / name
    if not path.exists():
        say(f"Making {path.relative_to(setting.SOURCE)}")
        unfinished = DATA / f"unfinished-{name}"
        make(unfinished)
        os.rename(unfinished, path)
    return path


def film():
    """60 s of 1080p30 in H.264 with sound, 72 MB, as an encoder without B-frames writes it."""
    def make(path):
        rate = "9280k"
        subprocess.run(["ffmpeg", "-hide_banner", "-loglevel", "error", "-y", "-f", "lavfi", "-i",
                        "testsrc2=size=1920x1080:rate=30,noise=alls=12:allf=t", "-f", "lavfi", "-i",
                        "sine=frequency=220:sample_rate=16000", "-t", str(FILM_SECONDS), "-c:v", "libx264",
                        "-preset", "veryfast", "-bf", "0", "-g", "30", "-pix_fmt", "yuv420p", "-b:v", rate,
                        "-maxrate", rate, "-bufsize", rate, "-c:a", "pcm_s16le", "-f", "avi", str(path)],
                       check=True)
    return _made_once("film.avi", make)


def recording(end="zero"):
    """The film as a recording with 600 G-sensor and 60 GPS records; see tools/splice.cpp for its end."""
    def make(path):
        subprocess.run([tool("splice"), film(), path, str(FILM_SECONDS), end], check=True)
    return _made_once(f"recording-{end}.avi", make)


def recordings_folder(count=2):
    """A folder in which the recording stands under so many names."""
    folder = DATA / f"recordings-{count}"
    folder.mkdir(exist_ok=True)
    for minute in range(count):
        name = folder / f"alwa_20240517_14{minute:02d}00_F.avi"
        if not name.exists():
            os.link(recording(), name)
    return folder


def long_walk():
    """A data area and then 2 GiB without a zero byte, through which the walk has to go."""
    def make(path):
        size = 2 << 30
        block = b"FILL" * (1 << 18)
        with open(path, "wb") as out:
            out.write(b"RIFF" + struct.pack("<I", size - 8) + b"AVI " + b"JUNK" + struct.pack("<I", size - 20))
            out.write(b"0GDA" + struct.pack("<qiiii", 100, 3, -5, 256, 21))
            while out.tell() + len(block) <= size:
                out.write(block)
            out.write(block[:size - out.tell()])
    return _made_once("walk-2GiB.avi", make)


def list_folder():
    """15,000 recordings in 100 folders."""
    def make(path):
        for folder in range(100):
            (path / f"{folder:03d}").mkdir(parents=True)
            for file in range(150):
                minute = folder * 150 + file
                name = (f"alwa_201305{minute // 1440 + 1:02d}_{minute // 60 % 24:02d}{minute % 60:02d}00_"
                        f"{'FR'[file % 2]}.avi")
                (path / f"{folder:03d}" / name).touch()
    return _made_once("list", make)


def empty_folder():
    folder = DATA / "empty"
    folder.mkdir(exist_ok=True)
    return folder


def _sentence(body):
    """With its checksum: all bytes combined by exclusive or, halves of the whole at a time."""
    check = int.from_bytes(body.encode(), "little")
    for bits in (512, 256, 128, 64, 32, 16, 8):
        check = (check ^ check >> bits) & (1 << bits) - 1
    return f"${body}*{check:02X}\r\n"


def nmea_text():
    """100 MB of a receiver's sentences, a fix a second, with right checksums."""
    def make(path):
        start = datetime(2024, 1, 1)
        with open(path, "w", newline="") as out:
            second = 0
            while out.tell() < 100_000_000:
                lines = []
                for _ in range(5000):
                    time = start + timedelta(seconds=second)
                    clock, date = time.strftime("%H%M%S.000"), time.strftime("%d%m%y")
                    latitude = f"37{second // 500 % 60:02d}.{second * 13 % 10000:04d}"
                    longitude = f"126{second // 700 % 60:02d}.{second * 17 % 10000:04d}"
                    lines += [
                        _sentence(f"GPGGA,{clock},{latitude},N,{longitude},E,1,08,0.9,45.4,M,19.6,M,,"),
                        _sentence("GPGSA,A,3,04,05,09,12,24,25,29,31,,,,,2.5,0.9,2.1"),
                        _sentence("GPGSV,1,1,04,04,40,083,46,05,17,308,41,12,07,344,39,24,22,228,45"),
                        _sentence(f"GPRMC,{clock},A,{latitude},N,{longitude},E,032.4,084.4,{date},003.1,W"),
                    ]
                    second += 1
                out.write("".join(lines))
    return _made_once("nmea-100MB.txt", make)


def driving_log():
    """1,000,000 records."""
    def make(path):
        count = 1_000_000
        start = datetime(2024, 1, 1)
        with open(path, "wb") as out:
            out.write(struct.pack("<I8x", count))
            for i in range(count):
                time = start + timedelta(seconds=5 * i)
                out.write(struct.pack(
                    "<H8B5HII HH4h", i & 0xFFFF, time.isoweekday() % 7, 1, time.year - 1900, time.month, time.day,
                    time.hour, time.minute, time.second, 3700 + i // 5000 % 60, i * 13 % 10000,
                    12600 + i // 7000 % 60, i * 17 % 10000, i % 131, i // 7, 0, 130, 0, i % 300 - 150,
                    i % 77 - 38, 256 + i % 21 - 10, 138))
    return _made_once("million.drv", make)


def driving_log_csv():
    def make(path):
        subprocess.run([CLI, "log", driving_log(), "--csv", path], check=True)
    return _made_once("million.csv", make)


def soak_folders():
    """Two folders of 100 recordings each, of H.264 and of motion JPEG; so short that 200 are played in ten minutes."""
    seconds = "2"

    def clip(path, codec):
        cut = DATA / "cut.avi"
        subprocess.run(["ffmpeg", "-hide_banner", "-loglevel", "error", "-y", "-i", film(), "-t", seconds, "-vf",
                        "scale=640:360", *codec, "-c:a", "copy", cut], check=True)
        subprocess.run([tool("splice"), cut, path, seconds, "end"], check=True)
        cut.unlink()
    codecs = {"h264": ["-c:v", "libx264", "-preset", "veryfast", "-bf", "0"],
              "mjpeg": ["-c:v", "mjpeg", "-q:v", "4", "-pix_fmt", "yuvj422p"]}
    folders = []
    for name, codec in codecs.items():
        source = _made_once(f"clip-{seconds}s-{name}.avi", lambda path, codec=codec: clip(path, codec))
        folder = DATA / f"soak-{seconds}s-{name}"
        folder.mkdir(exist_ok=True)
        for i in range(100):
            recording_name = folder / f"alwa_20240517_{10 + i // 60}{i % 60:02d}00_F.avi"
            if not recording_name.exists():
                os.link(source, recording_name)
        folders.append(folder)
    return folders
