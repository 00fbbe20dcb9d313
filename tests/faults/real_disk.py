"""Everything that the other drivers do, on one real file system: real_disk.py PROGRAMS FILE_SYSTEM CORE_TESTS

Every system call of a rename fails with every error, the rename is killed before each call, others interfere at each
call, transfers are short, and every row of the tables of failures is caused. Then the file system is unmounted and
mounted again, and every folder must be as it was left. The driver first has to find its planted faults.

Where the file system cannot be had, it says why and is skipped (exit status 77).
"""

import os
import subprocess
import sys

import every_call_fails
import killed
import races
import short_transfers
from disks import Disk, report
from rename_case import Folder, tree

# File systems that keep no permissions, and the rows of the tables that need some.
OPEN_TO_ALL = ("exfat", "ntfs")
NEEDING_PERMISSIONS = ["AClosedFileCannotBeRead", "AFileThatCannotBeCreatedLeavesTheProjectAsItWas",
                       "AFolderThatCannotBeReadIsAnErrorLineAndThenNoProjects",
                       "AProjectWhoseDataFolderCannotBeListedIsKeptWithItsOwnSize"]
# File systems that number an item anew when they have forgotten it, and what is done while they forget.
FORGETFUL = ("exfat", "sshfs")
FORGOTTEN = [races.leave_alone, races.replace_old_file, races.replace_new_file_before_the_roll_back]


def has_links(folder):
    try:
        os.symlink("nowhere", f"{folder}/link")
        return True
    except OSError:
        return False


def faults_of_the_table(core_tests, disk):
    """How many rows of the tables of failures were caused, and those that had another result."""
    left_out = ":".join(f"*{row}" for row in NEEDING_PERMISSIONS) if disk.name in OPEN_TO_ALL else ""
    tests = subprocess.run([core_tests, f"--gtest_filter=*FailureOnDisk*-{left_out}"],
                           env=dict(os.environ, TMPDIR=disk.folder), stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    lines = tests.stdout.decode().splitlines()
    faults = [line for line in lines if line.startswith(("[  FAILED  ]", "[  SKIPPED ]"))]
    caused = sum(line.startswith("[       OK ]") for line in lines)
    return caused, faults or ([] if tests.returncode == 0 and caused else ["the tables of failures were not tried"])


def forgets(disk, folder):
    number = os.stat(folder.path).st_ino
    disk.forget()
    return os.stat(folder.path).st_ino != number


def races_while_it_forgets(programs, disk):
    """As races.races, on a disk that forgets everything at each call. One race at a time, or others would number an
    item anew at every look."""
    with Folder() as folder:
        # For a moment after it was filled the folder may still be in use.
        faults = [] if any(forgets(disk, folder) for _ in range(100)) else ["it forgets nothing"]
    found = [races.races(programs, None, [act], disk.forget) for act in FORGOTTEN]
    return faults + [fault for each in found for fault in each[0]], *(sum(each[i] for each in found) for i in (1, 2))


def changed_by_the_remount(disk):
    """What is not as its drivers left it after the file system was unmounted and mounted again."""
    disk.unmount()
    disk.mount()
    return [f"{path} has changed by the remount" for path, left in Folder.ended.items() if tree(path) != left]


def tried(programs, core_tests, disk):
    """Everything that is tried on the mounted disk: what it was, in words, and the faults."""
    acts = races.ACTS if has_links(disk.folder) else [act for act in races.ACTS if act not in races.LINKING]
    calls, errors, faults = every_call_fails.faults_of(programs, "")
    kills, killing = killed.faults_of(programs, "")
    racing, raced, last = races.races(programs, None, acts)
    if disk.name in FORGETFUL:
        more = races_while_it_forgets(programs, disk)
        racing, raced, last = racing + more[0], raced + more[1], last + more[2]
    rows, failing = faults_of_the_table(core_tests, disk)
    faults += killing + racing + failing + short_transfers.faults_of(programs, "short")
    kept = len(Folder.ended)
    if disk.name != "tmpfs":  # nothing on it outlives an unmount
        faults += changed_by_the_remount(disk)
    return faults, (f"{disk.name}: {errors} errors from {calls} calls, {kills} kills, {raced} races ({last} won in the "
                    f"last window), {rows} rows, {kept} folders read again")


def misses_planted_faults(programs, work):
    """The first planted fault that goes unnoticed, or None."""
    if not every_call_fails.faults_of(programs, "deaf-removal", "unlinkat")[2]:
        return "deaf-removal"
    if not short_transfers.faults_of(programs, "lying-write"):
        return "lying-write"
    with Disk("tmpfs", work) as forgetful:
        forgetful.mount()
        Folder.home, Folder.ended = forgetful.folder, {}
        short_transfers.faults_of(programs, "short")
        return None if changed_by_the_remount(forgetful) else "a disk that forgets"


def checked(programs, core_tests, name, work):
    planted = misses_planted_faults(programs, work)
    if planted:
        sys.exit(f"the planted fault {planted} went unnoticed: this check finds nothing")
    with Disk(name, work) as disk, disk.mounted():
        Folder.home, Folder.ended = disk.folder, {}
        return tried(programs, core_tests, disk)


if __name__ == "__main__":
    PROGRAMS, NAME, CORE_TESTS = sys.argv[1:]
    report(NAME, lambda work: checked(PROGRAMS, CORE_TESTS, NAME, work))
