"""Runs programs in turn and tells how long they take."""

import json
import os
import statistics
import subprocess
import sys
import time
from pathlib import Path

ROUNDS = 11

build = Path(sys.argv[1]).resolve()
programs = build / "benchmarks"
started = time.monotonic()


shown = None


def progress(title, detail=""):
    """Says what is going on: on the last line of a terminal with every detail, elsewhere once for each title."""
    global shown
    line = f"{int(time.monotonic() - started):4d} s  {title}{detail and ': '}{detail}"
    if sys.stderr.isatty():
        print(f"\r{line[:99]:<99}", end="", file=sys.stderr, flush=True)
    elif title != shown:
        print(line, file=sys.stderr, flush=True)
    shown = title


def in_process(program, operation, path):
    """Milliseconds that one run of an operation takes, measured by the program itself."""

    def run():
        command = [programs / program, operation, path, "--benchmark_min_time=0.1", "--benchmark_format=json"]
        output = subprocess.run(command, check=True, capture_output=True).stdout
        return json.loads(output)["benchmarks"][0]["real_time"] / 1e6

    return run


def as_process(*command, before=None, **environment):
    """Milliseconds from the start of a program to its end. `before` is called first and not measured."""

    def run():
        if before:
            before()
        begun = time.perf_counter()
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       env={**os.environ, **environment})
        return (time.perf_counter() - begun) * 1e3

    return run


def medians(title, runs):
    """The median of each run, all of them done in turn."""
    figures = [[] for _ in runs]
    for number in range(ROUNDS):
        progress(title, f"round {number + 1} of {ROUNDS}")
        for figure, run in zip(figures, runs):
            figure.append(run())
    return [statistics.median(figure) for figure in figures]


def milliseconds(value):
    return f"{value:.{3 if value < 1 else 1 if value < 100 else 0}f} ms"


class Table:
    """Rows of what was measured, printed as Markdown."""

    def __init__(self, *columns):
        self.columns = columns
        self.rows = []

    def compare(self, what, work, ours, others):
        """Measures `ours` and `others`, a name and a run each, in turn; one row for each of the others."""
        own, *rest = medians(f"{what}, {work}", [ours, *others.values()])
        for name, other in zip(others, rest):
            self.rows.append([what, work, milliseconds(own), name, milliseconds(other), f"{own / other:.2f}"])

    def text(self):
        rows = [self.columns, ["---"] * len(self.columns), *self.rows]
        return "".join("| " + " | ".join(row) + " |\n" for row in rows)
