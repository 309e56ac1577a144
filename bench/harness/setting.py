# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""Where things are, what must be installed, and the build that is measured."""
import os
import shutil
import subprocess
import sys
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
BUILD = SOURCE / "build" / "bench"
DATA = BUILD / "data"
CLI = BUILD / "src" / "cli" / "marvo-cli"
MARVO = BUILD / "src" / "app" / "marvo"


def tool(name):
    """One of the programs of bench/."""
    return BUILD / "bench" / "programs" / f"bench_{name}"


def say(text):
    """What happens, beside the table, which goes to stdout."""
    print(text, file=sys.stderr, flush=True)


def _installed():
    shown = subprocess.run(["dpkg-query", "-W", "-f", "${db:Status-Status} ${Package}\n"],
                           capture_output=True, text=True, check=True).stdout
    return {line.split()[1] for line in shown.splitlines() if line.startswith("installed ")}


def install_packages():
    """Installs what bench/apt-packages.txt names; returns the packages that cannot be had."""
    wanted = (SOURCE / "bench" / "apt-packages.txt").read_text().split()
    missing = [package for package in wanted if package not in _installed()]
    root = [] if os.geteuid() == 0 else ["sudo"]
    for package in missing:  # one by one: a package that is not to be had must not keep the others out
        known = subprocess.run(["apt-cache", "policy", package], capture_output=True, text=True).stdout
        if "Candidate: (none)" in known or not known:
            continue
        say(f"Installing {package}")
        subprocess.run(root + ["env", "DEBIAN_FRONTEND=noninteractive", "apt-get", "install", "-y",
                               "--no-install-recommends", package],
                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return [package for package in missing if package not in _installed()]


def build():
    """The release preset with the programs of bench/, in a folder of its own."""
    BUILD.mkdir(parents=True, exist_ok=True)
    if not (BUILD / "build.ninja").exists():
        _logged("configure", ["cmake", "--preset", "release", "-B", str(BUILD), "-DMARVO_BENCH=ON",
                              "-DMARVO_TESTS=OFF"])
    _logged("build", ["ninja", "-C", str(BUILD)])
    DATA.mkdir(exist_ok=True)


def _logged(step, command):
    say(f"{step.capitalize()}: {' '.join(command)}")
    log = BUILD / f"{step}.log"
    with open(log, "w") as out:
        if subprocess.run(command, cwd=SOURCE, stdout=out, stderr=out).returncode != 0:
            sys.exit(f"bench: {step} failed; see {log}")


def available(program):
    return shutil.which(program) is not None
