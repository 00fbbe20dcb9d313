"""The rename program under strace: which system calls it makes, and what happens if one is tampered with."""

import concurrent.futures
import os
import re
import signal
import subprocess
import sys

from rename_case import A_HANG, DATA, NEW, OLD, PROGRAM, SAMPLES, SHIM, Folder, clean_state, tree

SKIPPED = 77
# What may exist at some time; clean_state says what must exist when.
KNOWN = {"projects", "projects/Bystander.xpj"}.union(
    *({f"projects/{name}.xpj", f"projects/{name}{DATA}", f"projects/{name}{DATA}/deep",
       *(f"projects/{name}{DATA}/{sample}" for sample in SAMPLES)} for name in (OLD, NEW)))

# Used between threads and for the random numbers of newer C libraries. They do not concern the folder and cannot fail.
THE_LIBRARYS_OWN = ("futex", "rt_sigprocmask")

# The file systems on which the rename is tried: the real one, and those that the shim imitates by refusing calls as FAT
# sticks, network drives and FUSE do.
FILE_SYSTEMS = ["", "no-unnamed", "no-naming", "no-unnamed,no-links", "no-unnamed,no-links,no-flag,no-sync"]


class Call:
    """A system call of the rename: its name, its number among the calls of that name, and its line in the trace."""

    def __init__(self, name, number, line):
        self.name, self.number, self.line = name, number, line

    def __str__(self):
        return re.sub(r'"[^"]*/', '"', self.line.split(" = ")[0])


class Outcome:
    """The program's message, and what is on disk after it ended."""

    def __init__(self, message, state, leftovers, ended):
        self.message, self.state, self.leftovers, self.ended = message, state, leftovers, ended


def traced(programs, shim, *options):
    """Runs one rename in a folder of its own, traced with these options, and returns the outcome."""
    with Folder() as folder:
        environment = ["-E", f"LD_PRELOAD={SHIM}", "-E", f"TARVOLT_SHIM={shim}"]
        process = subprocess.Popen(["strace", "-qq", *options, *environment, PROGRAM, folder.projects, OLD, NEW],
                                   cwd=programs, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            output, _ = process.communicate(timeout=A_HANG)
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, signal.SIGKILL)  # the tracer alone would leave the rename behind
            raise
        message = output.decode().partition("begin\n")[2].strip()
        leftovers = sorted(set(tree(folder.path)) - KNOWN)
        if tree(folder.projects).get("Bystander.xpj") != b"not ours":
            leftovers.append("the bystander was changed")
        return Outcome(message, clean_state(folder.projects), leftovers, process.returncode)


def calls_of(programs, shim):
    """The calls of a successful rename, from the first to the last that concerns the folder."""
    trace = os.path.join(os.environ.get("TMPDIR", "/tmp"), f"tarvolt-trace-{os.getpid()}")
    try:
        outcome = traced(programs, shim, "-o", trace)
        with open(trace, encoding="utf-8", errors="replace") as file:
            lines = file.read().splitlines()
    except FileNotFoundError as missing:
        print(f"skipped: {missing}")
        sys.exit(SKIPPED)
    finally:
        if os.path.exists(trace):
            os.remove(trace)
    if outcome.message == "" and not lines:
        print("skipped: strace is not allowed to trace programs here")
        sys.exit(SKIPPED)
    if (outcome.message, outcome.state) != ("renamed", 4):
        sys.exit(f"the rename fails even if it is left alone: {outcome.message}; {outcome.state}")
    numbers, calls, begun = {}, [], False
    for line in lines:
        match = re.match(r"(\w+)\(", line)
        if not match:
            continue
        name = match.group(1)
        numbers[name] = numbers.get(name, 0) + 1
        if begun and name == "write" and line.startswith("write(1,"):
            break
        if begun and name not in THE_LIBRARYS_OWN:
            calls.append(Call(name, numbers[name], line))
        begun = begun or line.startswith('write(1, "begin')
    while calls[-1].name == "getrandom":
        calls.pop()  # the identity of the log line, after the last call that concerns the folder
    return calls


def side_by_side(task, items):
    """The results of `task` for all items, in order."""
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return list(pool.map(task, items))
