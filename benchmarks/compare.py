"""Measures the program beside the least its jobs can cost and beside other programs; ./benchmark starts it.

    compare.py BUILD    prints the table and leaves it and the plot in BUILD/results

What is compared runs in turn, so that a machine whose speed varies slows all of it down alike. A figure is the median
of the rounds.
"""

import filecmp
import os
import shutil
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

import inputs
import plot
from display import display
from measure import ROUNDS, Table, as_process, build, in_process, medians, programs, progress

NAME, NEW_NAME, ACCENTED_NAME = "Night Drive", "Dawn Patrol", "Café Noir"


def floor(operation, path):
    return in_process("tarvolt_benchmarks", operation, path), {"least": in_process("tarvolt_floors", operation, path)}


def scans(table, disk):
    for projects, entries in (50, 100), (2_000, 100), (20_000, 5), (50, 5_000):
        work = f"{projects:,} x {entries:,}"
        folder = inputs.tree(disk, projects, entries, progress)
        require_same_scan(folder)
        own, others = floor("scan", folder)
        others["least on two threads"] = in_process("tarvolt_floors", "scan on two threads", folder)
        table.compare("scan", work, own, others)
        if work == "50 x 100":
            continue
        others = {
            "usual code": [programs / "usual_scan", folder],
            "find": ["find", folder, "-maxdepth", "2", "-printf", "%s\n"],
            "du": ["du", "-d1", "-b", folder],
            "ncdu": ["ncdu", "-0", "-o", "/dev/null", folder],
            "gdu": ["gdu", "-n", "-p", "-c", folder],
            "fd": ["fdfind", "-u", "-d", "2", "-t", "f", "-S", "+0b", ".", folder],
        }
        table.compare("scan, whole process", work, as_process(programs / "tarvolt_once", "scan", folder),
                      {name: as_process(*command) for name, command in others.items() if shutil.which(command[0])})


def require_same_scan(folder):
    scans = [programs / "tarvolt_once", "scan", folder], [programs / "usual_scan", folder]
    if len({subprocess.run(scan, check=True, capture_output=True).stdout for scan in scans}) != 1:
        sys.exit(f"benchmark: the program and the usual code do not find the same in {folder.name}")


def rename_floors(operation, work, folder):
    own, others = floor(operation, folder)
    if work == "100 kB":  # the calls that keep the promises cost the same for every size
        others["least with all promises"] = in_process("tarvolt_floors", "careful rename", folder)
    return own, others


def renames(table, disk, memory):
    for work, size, references, accents in (
        ("100 kB", 100_000, 100, 0),
        ("5 MB, 100 references", 5_000_000, 100, 0),
        ("5 MB, 40,000 references", 5_000_000, 40_000, 0),
        ("5 MB, 5 % of lines accented", 5_000_000, 100, 5),
        ("100 MB, 100 references", 100_000_000, 100, 0),
        ("100 MB, 800,000 references", 100_000_000, 800_000, 0),
    ):
        folder = inputs.project(memory / work, NAME, size, references, accents)
        own, others = rename_floors("rename", work, folder)
        if work == "5 MB, 40,000 references":
            others["100 references"] = in_process("tarvolt_benchmarks", "rename", memory / "5 MB, 100 references")
        table.compare("rename in memory", work, own, others)
    folder = inputs.project(memory / "two forms", ACCENTED_NAME, 5_000_000, 40_000)
    table.compare("rename in memory", "5 MB, half of 40,000 references in the other form",
                  *floor("rename of two forms", folder))
    for work in "100 kB", "5 MB, 40,000 references", "100 MB, 800,000 references":
        folder = shutil.copytree(memory / work, disk / work)
        table.compare("rename on disk, flushed", work, *rename_floors("flushed rename", work, folder))


def peers_of_rename(table, memory):
    folder = memory / "5 MB, 40,000 references"
    old, new = folder / f"{NAME}.xpj", folder / f"{NEW_NAME}.xpj"

    def back():
        if new.exists():
            subprocess.run([programs / "tarvolt_once", "rename", folder, NEW_NAME, NAME], check=True,
                           stdout=subprocess.DEVNULL)

    to_copy = "BEGIN{open STDOUT, '>', shift}"
    change = f"s/{NAME}_\\[ProjectData\\]/{NEW_NAME}_[ProjectData]/g"
    copy = memory / "copy.xpj"
    table.compare("rename, whole process", folder.name,
                  as_process(programs / "tarvolt_once", "rename", folder, NAME, NEW_NAME, before=back),
                  {"cp": as_process("cp", old, copy, before=back),
                   "sed": as_process("sed", "-n", f"{change};w {copy}", old, before=back),
                   "perl": as_process("perl", "-0777", "-ne", f"{to_copy}{change};print", copy, old, before=back)})
    back()
    subprocess.run([programs / "tarvolt_once", "rename", folder, NAME, NEW_NAME], check=True, stdout=subprocess.DEVNULL)
    if not filecmp.cmp(new, copy, shallow=False):
        sys.exit("benchmark: the program and perl do not write the same text")
    back()


def peak_memory(table, memory):
    for work in "100 MB, 100 references", "100 MB, 800,000 references":
        folder = memory / work
        command = [programs / "tarvolt_once", "rename", folder]
        size = (folder / f"{NAME}.xpj").stat().st_size
        peaks = []
        for names in [(NAME, NEW_NAME), (NEW_NAME, NAME)] * 6:
            peaks.append(int(subprocess.run([*command, *names], check=True, capture_output=True).stdout))
        peak = statistics.median(peaks)
        table.rows.append(["rename, memory above start", work, f"{peak / 2**20:.1f} MiB", "size of the file",
                           f"{size / 2**20:.1f} MiB", f"{peak / size:.2f}"])


def texts(table, disk):
    for work, accented in ("ASCII", 0), ("a quarter accented", 25), ("all accented", 100):
        path = inputs.name_list(disk / f"{work}.txt", 20_000, accented)
        for operation in "sort", "filter":
            table.compare(operation, f"20,000 names, {work}", *floor(operation, path))


def slow_disk(table, disk):
    folder = inputs.tree(disk, 100, 5, progress)
    scan = [programs / "tarvolt_once", "scan", folder]
    slow = {"LD_PRELOAD": str(programs / "libslow_disk.so")}
    table.compare("scan, 1 ms for each size", "100 x 5", as_process(*scan, **slow),
                  {"one thread": as_process(*scan, **slow, ONE_THREAD="1")})


def figures(program, *arguments):
    """What a program of the window prints: a name and a value a line."""
    output = subprocess.run([programs / program, *arguments], check=True, stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, text=True).stdout
    return {name: float(value) for name, value in map(str.split, output.splitlines())}


def window(table, disk, screen):
    own, usual = build / "app/tarvolt", {"krename": ["krename"], "thunar": ["thunar", disk]}
    others = {"least": [programs / "least_window"]}
    others.update((name, command) for name, command in usual.items() if shutil.which(name))
    table.compare("window, first picture", "as a process", screen.first_picture(own),
                  {name: screen.first_picture(*command) for name, command in others.items()})
    many, few = (inputs.tree(disk, projects, 5, progress) for projects in (20_000, 20))
    long, short, empty = [], [], []
    for number in range(ROUNDS):
        progress("window with a long and a short list", f"round {number + 1} of {ROUNDS}")
        long.append(figures("tarvolt_window_once", many))
        short.append(figures("tarvolt_window_once", few, "spinner"))
        empty.append({"mebibytes": screen.peak_memory(own)})

    def middle(runs, name):
        return statistics.median(run[name] for run in runs)

    keys = middle(long, "key"), middle(short, "key")
    table.rows.append(["window, key to picture", "20,000 projects", f"{keys[0]:.1f} ms", "20 projects",
                       f"{keys[1]:.1f} ms", f"{keys[0] / keys[1]:.2f}"])
    peaks = middle(long, "mebibytes"), middle(empty, "mebibytes")
    table.rows.append(["window, peak memory", "20,000 projects, 10,000 log lines", f"{peaks[0]:.1f} MiB",
                       "no folder chosen", f"{peaks[1]:.1f} MiB", f"{peaks[0] / peaks[1]:.2f}"])
    table.rows.append(["window, spinner", "share of one core", f"{100 * middle(short, 'spinner'):.1f} %", "", "", ""])


def growth(disk, memory):
    """For each job what 1, 10 and 100 times the work cost, as multiples of the first: the program's, then the least."""

    def work(operation, count):
        if operation == "scan":
            return inputs.tree(disk, 200 * count, 5, progress)
        if operation == "rename":
            return inputs.project(memory / f"grown {count}", NAME, 1_000_000 * count, 200 * count)
        return inputs.name_list(disk / f"grown {count}.txt", 200 * count, 25)

    def multiples(operation, given, *programs):
        runs = [in_process(program, operation, each) for program in programs for each in given]
        figures = medians(f"growth of {operation}", runs)
        return [[figures[first + size] / figures[first] for size in range(3)] for first in range(0, len(runs), 3)]

    costs = {}
    for operation in "scan", "rename", "filter", "sort":
        given = [work(operation, count) for count in (1, 10, 100)]
        costs[operation] = multiples(operation, given, "tarvolt_benchmarks", "tarvolt_floors")
    costs["log"] = multiples("log", ["100", "1000", "10000"], "tarvolt_benchmarks")
    return costs


def machine():
    model = next((line.split(":")[1].strip() for line in Path("/proc/cpuinfo").read_text().splitlines()
                  if line.startswith("model name")), "unknown processor")
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") / 2**30
    return f"{os.cpu_count()} cores ({model}), {memory:.0f} GiB, Linux {os.uname().release.split('-')[0]}, " \
           f"load {os.getloadavg()[0]:.1f} at the start"


def main():
    if shutil.disk_usage("/dev/shm").free < 2**29:
        sys.exit("benchmark: the renames in memory need 512 MiB of room in /dev/shm; make it larger and start again")
    about = machine()
    results = build / "results"
    results.mkdir(exist_ok=True)
    table = Table("what", "work", "Tarvolt", "beside it", "takes", "ratio")
    with tempfile.TemporaryDirectory(dir=build) as disk, tempfile.TemporaryDirectory(dir="/dev/shm") as memory:
        disk, memory = Path(disk), Path(memory)
        texts(table, disk)
        renames(table, disk, memory)
        peers_of_rename(table, memory)
        peak_memory(table, memory)
        slow_disk(table, disk)
        scans(table, disk)
        costs = growth(disk, memory)
        with display() as screen:
            window(table, disk, screen)
        progress("removing the inputs")
    grown = Table("cost of", "1x", "10x", "100x the work", "least, 100x")
    for name, (own, *least) in costs.items():
        grown.rows.append([name, *(f"{multiple:.1f}" for multiple in [*own, *(each[2] for each in least)])])
    text = f"{about}; medians of {ROUNDS} rounds.\n\n{table.text()}\n{grown.text()}"
    (results / "table.md").write_text(text)
    (results / "growth.svg").write_text(plot.growth({name: own for name, (own, *_) in costs.items()}))
    progress(f"done; the table and the plot are in {os.path.relpath(results)}/")
    print("\n\n" + text, end="")


if __name__ == "__main__":
    main()
