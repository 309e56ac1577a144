# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""A virtual display, and programs on it."""
import os
import shutil
import signal
import subprocess
import tempfile

NOBODY = 65534


class Display:
    """An X server of its own, and a home folder that is empty, for as long as the block lasts.

    Programs run as an ordinary user also when root measures: some refuse to run for root.
    """

    def __enter__(self):
        self.home = tempfile.mkdtemp(prefix="marvo-bench-")
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1920x1080x24", "-ac", "-noreset", "-nolisten", "tcp"],
            pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as number:
            self.name = f":{number.readline().strip()}"
        self.user = {}
        if os.geteuid() == 0:
            os.chown(self.home, NOBODY, NOBODY)
            self.user = {"user": NOBODY, "group": NOBODY, "extra_groups": []}
        os.chmod(self.home, 0o700)
        self.environment = {"PATH": os.environ["PATH"], "LANG": "C.UTF-8", "DISPLAY": self.name, "HOME": self.home,
                            "XDG_RUNTIME_DIR": self.home, "XDG_CONFIG_HOME": f"{self.home}/config",
                            "XDG_CACHE_HOME": f"{self.home}/cache", "XDG_DATA_HOME": f"{self.home}/data"}
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()
        shutil.rmtree(self.home, ignore_errors=True)

    def start(self, command, **options):
        """A program on the display; see end()."""
        streams = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        return subprocess.Popen([str(word) for word in command], env=self.environment, start_new_session=True,
                                **self.user, **{**streams, **options})

    def output(self, command):
        """What a program that ends by itself says."""
        done = subprocess.run([str(word) for word in command], env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, **self.user)
        if done.returncode != 0:
            raise RuntimeError(f"{command[0]}: {done.stderr.strip()[-300:]}")
        return done.stdout


def end(program):
    """Ends a program of Display.start() with all that it has started."""
    for how in (signal.SIGTERM, signal.SIGKILL):
        try:
            os.killpg(program.pid, how)
            program.wait(5)
        except (ProcessLookupError, subprocess.TimeoutExpired):
            pass
