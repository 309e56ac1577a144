#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""What someone would write who has to read a driving log once: log_by_script.py LOG.drv OUT.csv."""
import csv
import struct
import sys

DAYS = ("SUN", "MON", "TUE", "WED", "THU", "FRI", "SAT")
TITLES = ("No", "Seq", "Date", "Time", "Day", "Latitude", "Longitude", "Distance", "Speed", "Top speed", "Fix", "X",
          "Y", "Z", "Battery")
RECORD = struct.Struct("<H8B5HII2H4h")

with open(sys.argv[1], "rb") as log, open(sys.argv[2], "w", newline="") as out:
    writer = csv.writer(out)
    writer.writerow(TITLES)
    log.seek(12)
    for index, record in enumerate(RECORD.iter_unpack(log.read()), 1):
        (seq, day, valid, year, month, date, hour, minute, second, lat, lat_decimals, lon, lon_decimals, speed,
         distance, _, top_speed, _, x, y, z, battery) = record
        writer.writerow((index, seq, f"{year + 1900:04d}/{month:02d}/{date:02d}", f"{hour:02d}:{minute:02d}:{second:02d}",
                         DAYS[day], f"{lat:04d}.{lat_decimals:04d}", f"{lon:05d}.{lon_decimals:04d}",
                         f"{distance / 10:.1f}", speed, top_speed, "A" if valid == 1 else "V", f"{x / 256:+.2f}",
                         f"{y / 256:+.2f}", f"{z / 256:+.2f}", f"{battery // 10:2d}.{battery % 10}"))
