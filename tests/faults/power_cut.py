"""Cuts the power at each step of a rename, on a journalling file system: power_cut.py PROGRAMS

The rename runs on a loop image that is mounted with a short commit time. It is stopped before each of its calls until
the journal has been committed. The image is then copied, which gives what a disk holds after a power cut at that
moment. Each copy is mounted, and the project must be complete and in one of the clean states. The driver first has to
find fault with a program that never flushes.

Needs root, ext4 and loop devices; without them it says so and is skipped (exit status 77).
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time

from rename_case import Run, clean_state, fill, verdict

COMMIT = 1  # seconds, the least the file system takes
SKIPPED = 77


def run(*command):
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)


class Image:
    """A file system in a file, mounted while the object is in use."""

    def __init__(self, path, options=""):
        self.path, self.folder, self.options = path, path + ".mount", options

    def __enter__(self):
        os.makedirs(self.folder, exist_ok=True)
        run("mount", "-o", "loop" + self.options, self.path, self.folder)
        return f"{self.folder}/projects"

    def __exit__(self, *_):
        run("umount", self.folder)


def make_image(path):
    with open(path, "wb") as file:
        file.truncate(16 << 20)
    run("mkfs.ext4", "-q", "-O", "has_journal", path)


def why_not(work):
    """Why this machine cannot run the driver, or None."""
    try:
        make_image(f"{work}/probe")
        with Image(f"{work}/probe"):
            return None
    except (OSError, subprocess.CalledProcessError) as error:
        return str(error)


def copies_at_each_call(programs, work, shim):
    """Runs one rename and copies the image before each call that writes, and at the end. Returns [(call, copy)] and the
    message of the rename."""
    image = f"{work}/disk"
    make_image(image)
    copies = []

    def copy(call):
        # Long enough for a commit that has begun and one more.
        time.sleep(2.2 * COMMIT)
        copies.append((call, f"{work}/copy{len(copies)}"))
        shutil.copyfile(image, copies[-1][1])

    with Image(image, f",commit={COMMIT}") as folder:
        fill(folder)
        os.sync()
        rename = Run(programs, folder, shim)
        while (call := rename.next_call()) is not None:
            if call.split()[0] in ("write", "fsync", "linkat", "renameat2", "unlinkat"):
                copy(call)
        message = rename.result()
        copy("the end")
    return copies, message


def faults_of(programs, work, shim):
    copies, message = copies_at_each_call(programs, work, shim)
    faults, states = [] if message == "renamed" else [f"the rename does not go well of itself: {message}"], []
    for call, path in copies:
        with Image(path) as folder:
            state = clean_state(folder)
            states.append(str(state))
            if not isinstance(state, int):
                faults.append(f"power cut before {call}: {state}")
            # A half-written file does harm only if it has a name in the folder.
            odd = [name for name in os.listdir(folder) if name.startswith(".")]
            if odd:
                faults.append(f"power cut before {call}: {odd} is left")
        os.remove(path)
    return faults, states


if __name__ == "__main__":
    PROGRAMS = sys.argv[1]
    WORK = tempfile.mkdtemp(prefix="tarvolt-power-")
    try:
        REASON = why_not(WORK)
        if REASON:
            print(f"skipped: no file system can be mounted here ({REASON})")
            sys.exit(SKIPPED)
        if not faults_of(PROGRAMS, WORK, "stop,no-fsync")[0]:
            sys.exit("a rename that never flushes went unnoticed: this check finds nothing")
        FAULTS, STATES = faults_of(PROGRAMS, WORK, "stop")
        if list(dict.fromkeys(STATES)) != ["1", "2", "3", "4"]:
            FAULTS.append("not every clean state came up, in their order")
        verdict(FAULTS, f"{len(STATES)} power cuts, clean states {' '.join(STATES)}")
    finally:
        shutil.rmtree(WORK)
