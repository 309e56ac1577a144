# SPDX-FileCopyrightText: 2026 The MARVO developers
# SPDX-License-Identifier: MIT
"""How the cost grows with the size, at 1, 10 and 100 times."""
import math

from .display import Display
from .measure import google_benchmark
from .setting import tool
from .table import Row, seconds_text

REACH = 1.05
WORK = {  # what: program of bench/, benchmark, its sizes
    "list, 150 recordings at 1 x": ("media", "scanList", (1, 10, 100)),
    "walk, 60 s at 1 x": ("recording", "walkOfAClip", (60, 600, 6000)),
    "log to CSV, 10,000 records at 1 x": ("logs", "readAndWrite", (10_000, 100_000, 1_000_000)),
    "graph, 3,600 readings at 1 x": ("graph", "redrawOf", (3600, 36_000, 360_000)),
}


def _exponent(sizes, costs):
    """Slope of the line through the logarithms, by least squares."""
    x = [math.log(size) for size in sizes]
    y = [math.log(cost) for cost in costs]
    middle_x, middle_y = sum(x) / len(x), sum(y) / len(y)
    return (sum((a - middle_x) * (b - middle_y) for a, b in zip(x, y)) /
            sum((a - middle_x) ** 2 for a in x))


def growth():
    """Exponents of the work that depends on how much a card holds."""
    with Display() as display:
        for what, (program, benchmark, sizes) in WORK.items():
            taken = google_benchmark(tool(program), f"^{benchmark}/", display.environment)
            costs = [taken[f"{benchmark}/{size}"] for size in sizes]
            exponent = _exponent(sizes, costs)
            yield Row(what, ", ".join(map(seconds_text, costs)), "1 x, 10 x, 100 x", "",
                      f"exponent {exponent:.2f}", f"<= {REACH}", exponent <= REACH)
