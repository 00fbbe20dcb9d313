"""Kills a file system's own process before each call of a rename: disk_killed.py PROGRAMS FILE_SYSTEM

That is what a crash of the process leaves on a card or stick. The rename goes on without its disk. The image is then
checked, repaired and mounted again. The project must be complete and in a clean state, no step that was done may be
undone, and the message must fit. The driver first has to find fault with a program that names the file before it is
written.

Where the file system cannot be had, it says why and is skipped (exit status 77).
"""

import os
import sys

from disks import Disk, report
from rename_case import DATA, NEW, OLD, Run, clean_state, fill

UNMOVED = "Failed to write file: Could not rename data folder: "
# The states that each message allows.
ALLOWED = {
    "renamed": [4],
    f"Failed to read file: {OLD}.xpj": [1],
    f"Failed to write file: {NEW}.xpj": [1, 2],
    UNMOVED: [1, 2],
    "Failed to delete: Could not remove old .xpj: ": [3, 4],
}
KNOWN = ["Bystander.xpj", *(name + suffix for name in (OLD, NEW) for suffix in (".xpj", DATA))]
# Ours, and the name that FUSE gives to a file that is removed while it is open.
HIDDEN = (".tarvolt-", ".fuse_hidden")


def fitting(message, state, items, allowed=ALLOWED):
    """What is wrong with a folder of these items in this state after this message."""
    states = [states for start, states in allowed.items() if message.startswith(start)]
    odd = [item for item in items if item not in KNOWN and not item.startswith(HIDDEN)]
    if not isinstance(state, int):
        return [state]
    return ([f"{message} in state {state}"] if not states or state not in states[0] else []) + (
        [f"{odd} is left"] if odd else [])


class Kill:
    """One kill before call number `at`, and what was there after it. `call` is None if there are fewer calls."""

    def __init__(self, programs, disk, shim, at):
        disk.make()
        with disk.mounted() as folder:
            fill(f"{folder}/projects")
        disk.mount()
        rename = Run(programs, f"{disk.folder}/projects", shim)
        for _ in range(at):
            self.call = rename.next_call()
        if self.call:
            disk.kill()
        self.message = rename.result()
        disk.unmount()
        self.damage = disk.check()
        disk.repair()
        with disk.mounted() as folder:
            self.state, self.items = clean_state(f"{folder}/projects"), os.listdir(f"{folder}/projects")

    def faults(self, reached):
        """What is wrong after it; no state before `reached` may come up."""
        goes_back = isinstance(self.state, int) and self.state < reached
        return fitting(self.message, self.state, self.items) + (
            [f"from state {reached} back to {self.state}"] if goes_back else [])


def faults_of(programs, disk, shim):
    """The faults, and the kills."""
    faults, kills, reached = [], [], 1
    while not kills or kills[-1].call:
        kill = Kill(programs, disk, shim, len(kills) + 1)
        kills.append(kill)
        faults += [f"killed before {kill.call}: {fault}" for fault in kill.faults(reached)]
        reached = kill.state if isinstance(kill.state, int) else reached
    if {kill.state for kill in kills} != {1, 2, 3, 4}:
        faults.append("not every clean state came up")
    return faults, kills[:-1]


def tried(programs, name, work):
    with Disk(name, work) as disk:
        if not faults_of(programs, disk, "stop,early-name")[0]:
            sys.exit("the planted fault early-name went unnoticed: this check finds nothing")
        faults, kills = faults_of(programs, disk, "stop")
    hidden = {start: sum(any(item.startswith(start) for item in kill.items) for kill in kills) for start in HIDDEN}
    return faults, (f"{name}: {len(kills)} kills of the file system, {sum(bool(kill.damage) for kill in kills)} "
                    f"damaged images, states {' '.join(str(kill.state) for kill in kills)}, hidden files {hidden}")


if __name__ == "__main__":
    PROGRAMS, NAME = sys.argv[1:]
    report(NAME, lambda work: tried(PROGRAMS, NAME, work))
