# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""Measuring programs from outside, each in turn with its peers."""
import json
import os
import statistics
import subprocess
import tempfile
import time

ROUNDS = 7
CLOCK_TICKS = os.sysconf("SC_CLK_TCK")


def medians(measures, rounds=ROUNDS):
    """Calls each function in turn, round after round; each returns a list of numbers. Returns their medians."""
    values = [[] for _ in measures]
    for _ in range(rounds):
        for taken, measure in zip(values, measures):
            taken.extend(measure())
    return [statistics.median(taken) for taken in values]


def hyperfine(command, runs=1, warmup=0, shell=False, prepare=None):
    """Seconds of each run of one command; a string for the shell, else a list."""
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        # hyperfine takes the time of the shell's own start off again.
        options = [] if shell else ["--shell=none"]
        options += ["--prepare", prepare] if prepare else []
        line = command if shell else " ".join(f"'{word}'" for word in map(str, command))
        done = subprocess.run(["hyperfine", "--style", "none", "--runs", str(runs), "--warmup", str(warmup),
                               "--export-json", out.name, *options, line],
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        if done.returncode != 0:
            raise RuntimeError(f"{line}: {done.stderr.strip()}")
        return json.load(open(out.name))["results"][0]["times"]


def commands_in_turn(*commands, runs=1, warmup=0, shell=False, prepare=None):
    """Median seconds of each command, measured in turn in rounds of so many runs."""
    return medians([lambda command=command: hyperfine(command, runs, warmup, shell, prepare)
                    for command in commands])


def google_benchmark(program, pattern, environment=None):
    """Median seconds (of CPU) of each benchmark that matches, its rounds shuffled among the others'."""
    with tempfile.NamedTemporaryFile(suffix=".json") as out:
        subprocess.run([str(program), f"--benchmark_filter={pattern}", f"--benchmark_repetitions={ROUNDS}",
                        "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.1",
                        f"--benchmark_out={out.name}", "--benchmark_out_format=json"],
                       env=environment, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        scale = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}
        return {entry["run_name"]: entry["cpu_time"] * scale[entry["time_unit"]]
                for entry in json.load(open(out.name))["benchmarks"] if entry.get("aggregate_name") == "median"}


def _parents():
    parents = {}
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{name}/stat") as stat:
                parents[int(name)] = int(stat.read().rpartition(")")[2].split()[1])
        except OSError:
            pass
    return parents


def family(process):
    """The process and all that descend from it."""
    parents = _parents()
    members = {process}
    while True:
        more = {child for child, parent in parents.items() if parent in members} - members
        if not more:
            return members
        members |= more


def cpu_seconds(process):
    """What the process and its descendants have used, those that have ended included."""
    total = 0
    for member in family(process):
        try:
            with open(f"/proc/{member}/stat") as stat:
                fields = stat.read().rpartition(")")[2].split()
            total += sum(int(field) for field in fields[11:15])
        except OSError:
            pass
    return total / CLOCK_TICKS


def pss_megabytes(process):
    """Memory of the process and its descendants, what they share counted once."""
    total = 0
    for member in family(process):
        try:
            with open(f"/proc/{member}/smaps_rollup") as rollup:
                total += sum(int(line.split()[1]) for line in rollup if line.startswith("Pss:"))
        except OSError:
            pass
    return total / 1024


def cpu_share(process, seconds):
    """Share of one core that is used for so long."""
    before, begun = cpu_seconds(process), time.monotonic()
    time.sleep(seconds)
    return (cpu_seconds(process) - before) / (time.monotonic() - begun)
