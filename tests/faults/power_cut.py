"""Cuts the power at each step of a rename: power_cut.py PROGRAMS FILE_SYSTEM

The rename runs on an image of a journalling file system that is told to commit as often as it can. It is stopped
before each of its calls. The image is copied there at once, and again when everything has been committed; a copy is
what a disk holds after a power cut at that moment. Each copy is mounted, and the project must be complete, in one of
the clean states, and as far as the rename had promised by then. The driver first has to find damage in what a program
leaves that never flushes.

Needs root and loop devices; without them it says so and is skipped (exit status 77).
"""

import os
import shutil
import sys
import tempfile
import time

from disks import Disk
from processes import Unavailable, run
from rename_case import Run, clean_state, fill, verdict
from traced import SKIPPED, side_by_side

COMMIT = 1  # seconds, the least these file systems take
OPTIONS = {"ext4": [f"commit={COMMIT}"], "btrfs": [f"commit={COMMIT}"], "xfs": []}
XFS_COMMIT = "/proc/sys/fs/xfs/xfssyncd_centisecs"  # for XFS it is a setting of the machine

# The state that the disk must have reached when the rename makes this call.
REACHED = {"renameat2": 2, "unlinkat": 3, "the": 4}


def copy_between_writes(image, copy):
    """Copies the image as it is at one moment."""
    while True:
        before = os.stat(image).st_mtime_ns
        run("cp", "--sparse=always", image, copy)
        if os.stat(image).st_mtime_ns == before:
            return


def copies_at_each_call(programs, disk, shim):
    """Runs one rename and copies the image, twice, before each call that writes, and at the end. Returns [(when, copy)]
    and the message of the rename."""
    copies = []

    def copy(call):
        for delay, when in ((0, "at"), (2.2 * COMMIT, "a while after")):  # a commit that has begun and one more
            time.sleep(delay)
            copies.append((call, when, f"{disk.image}.{len(copies)}"))
            copy_between_writes(disk.image, copies[-1][-1])

    with disk.mounted() as folder:
        fill(f"{folder}/projects")
        run("sync", "--file-system", folder)  # only this one: a control beside it must not be flushed
        rename = Run(programs, f"{folder}/projects", shim)
        while (call := rename.next_call()) is not None:
            if call.split()[0] in ("write", "fsync", "linkat", "renameat2", "unlinkat"):
                copy(call)
        message = rename.result()
        copy("the end")
    return copies, message


def faults_of(programs, work, name, shim):
    """The faults, and the states after each cut."""
    os.makedirs(work)
    with Disk(name, work) as disk:
        disk.options = OPTIONS[name]
        copies, message = copies_at_each_call(programs, disk, shim)
        faults, states = [] if message == "renamed" else [f"the rename does not go well of itself: {message}"], []
        for call, when, copy in copies:
            os.replace(copy, disk.image)
            if name == "btrfs":
                run("btrfs", "device", "scan", "--forget")  # it takes an older copy for a disk that is out of date
            with disk.mounted() as folder:
                state = clean_state(f"{folder}/projects")
                # A half-written file does harm only if it has a name in the folder.
                odd = [entry for entry in os.listdir(f"{folder}/projects") if entry.startswith(".")]
            states.append(str(state))
            if not isinstance(state, int):
                faults.append(f"power cut {when} {call}: {state}")
            elif state < REACHED.get(call.split()[0], 1):
                faults.append(f"power cut {when} {call}: back in state {state}")
            if odd:
                faults.append(f"power cut {when} {call}: {odd} is left")
    return faults, states


def tried(programs, work, name):
    """The faults and states of a rename, unless the control finds nothing."""
    shims = ("stop,no-fsync", "stop")
    (control, _), (faults, states) = side_by_side(lambda shim: faults_of(programs, f"{work}/{shim}", name, shim), shims)
    if not any("damaged" in fault for fault in control):
        sys.exit(f"a rename that never flushes went unnoticed: this check finds nothing but {control}")
    if list(dict.fromkeys(states)) != ["1", "2", "3", "4"]:
        faults.append("not every clean state came up, in their order")
    return faults, f"{name}: {len(states)} power cuts, clean states {' '.join(states)}"


def setting(value=None):
    """Reads, or changes, how often XFS commits."""
    with open(XFS_COMMIT, "r" if value is None else "w", encoding="ascii") as file:
        return file.read() if value is None else file.write(value)


if __name__ == "__main__":
    PROGRAMS, NAME = sys.argv[1:]
    WORK = tempfile.mkdtemp(prefix="tarvolt-power-")
    BEFORE = None
    try:
        if NAME == "xfs" and os.path.exists(XFS_COMMIT):
            BEFORE = setting()
            setting(str(100 * COMMIT))
        verdict(*tried(PROGRAMS, WORK, NAME))
    except (Unavailable, PermissionError) as REASON:
        print(f"skipped: no {NAME} can be mounted here ({REASON})")
        sys.exit(SKIPPED)
    finally:
        if BEFORE:
            setting(BEFORE)
        shutil.rmtree(WORK)
