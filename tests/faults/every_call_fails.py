"""Makes every system call of a rename fail once, with each error it can return: every_call_fails.py PROGRAMS

Each time the message must be the one for that step, the disk must be as the message says, and no temporary file and no
change to another file may remain. Which errors the rename survives, and how, is listed below independently of the
program. The driver first has to find each of its planted faults.
"""

import errno
import os
import sys

from rename_case import DATA, NEW, OLD, verdict
from traced import FILE_SYSTEMS, calls_of, side_by_side, traced

COMMON = ["EIO", "ENOMEM", "EACCES", "EPERM", "EINTR", "EINVAL", "ENOSPC", "EDQUOT", "EROFS", "ENAMETOOLONG", "EXDEV",
          "EBUSY", "EMFILE", "EOPNOTSUPP", "ENOENT"]
ERRORS = {
    "read": ["EIO", "EINTR", "EINVAL", "ENOMEM", "EISDIR"],
    "write": ["EIO", "EINTR", "EINVAL", "ENOSPC", "EDQUOT", "EFBIG", "EPERM", "ENOMEM"],
    "fsync": ["EIO", "EINTR", "EINVAL", "ENOSPC", "EDQUOT", "EROFS", "EOPNOTSUPP", "ENOSYS"],
    "close": ["EIO", "EINTR", "ENOSPC", "EDQUOT"],
    "fcntl": ["EMFILE", "EINVAL"],
    "getrandom": ["EINTR", "ENOSYS", "EIO"],
    "sysinfo": [],  # cannot fail
    "brk": [],  # the kernel refuses by answering with the old end of the heap, which the tracer cannot know
    "mmap": ["ENOMEM", "EACCES"],
    "munmap": ["EINVAL"],
    "openat": COMMON + ["ENFILE", "EISDIR", "ELOOP", "ENOTDIR", "EEXIST"],
    "newfstatat": ["EIO", "ENOMEM", "EACCES", "ENOENT", "ENAMETOOLONG", "EOVERFLOW"],
    "linkat": COMMON + ["EEXIST", "EMLINK"],
    "renameat2": COMMON + ["EEXIST", "ENOTEMPTY", "EMLINK", "ENOSYS"],
    "renameat": COMMON + ["EEXIST", "ENOTEMPTY", "EMLINK"],
    "unlinkat": COMMON + ["EISDIR"],
}
NOTHING_THERE = ("ENOENT", "ENAMETOOLONG")
NO_SUCH_THING = ("EINVAL", "EOPNOTSUPP", "ENOSYS")

RENAMED, UNREAD, UNWRITTEN, UNMOVED, UNREMOVED = "renamed", "unread", "unwritten", "unmoved", "unremoved"
FOREIGN_FOLDER, FOREIGN_FILE = "foreign folder", "foreign file"
STATES = {RENAMED: 4, UNREAD: 1, UNWRITTEN: 1, UNMOVED: 1, UNREMOVED: 3, FOREIGN_FOLDER: 1, FOREIGN_FILE: 3}


def message_of(outcome, error):
    return {
        RENAMED: ["renamed"],
        UNREAD: [f"Failed to read file: {OLD}.xpj"],
        UNWRITTEN: [f"Failed to write file: {NEW}.xpj"],
        UNMOVED: ["Failed to write file: Could not rename data folder: " + os.strerror(getattr(errno, error))],
        UNREMOVED: ["Failed to delete: Could not remove old .xpj: " + os.strerror(getattr(errno, error))],
        # What is found where nothing was before counts as foreign.
        FOREIGN_FOLDER: ["Failed to write file: Could not rename data folder: " + os.strerror(errno.EBUSY)],
        FOREIGN_FILE: ["Failed to delete: Could not remove old .xpj: " + os.strerror(errno.EBUSY)],
    }[outcome]


def steps_of(calls):
    """The step that each call belongs to: checking, reading, creating, moving or removing."""
    steps, step, folders = [], "look", 0
    for call in calls:
        old_by_path = f'/{OLD}.xpj"' in call.line
        if step == "look" and call.name == "newfstatat" and old_by_path and call.line.split(" = ")[0].endswith(", 0)"):
            step = "read"
        if "O_DIRECTORY" in call.line and step in ("read", "create"):
            folders += 1
            step = "create" if folders == 1 else "move"
        if step == "move" and call.name == "newfstatat" and f'/{NEW}.xpj"' in call.line:
            step = "remove"
        steps.append(step)
    return steps


def look(call, error):
    # A new file that cannot be checked counts as absent. Without having seen the old one, the rename does not begin.
    if f'/{OLD}{DATA}"' in call.line:
        return FOREIGN_FOLDER if error in NOTHING_THERE else UNMOVED
    return UNREAD if f'/{OLD}.xpj"' in call.line else RENAMED


def read(call, error):
    if call.name == "close" or (error == "EINTR" and call.name in ("openat", "read")):
        return RENAMED
    return UNREAD


def create(call, error):
    survived = {
        "openat": "O_TMPFILE" in call.line or error == "EINTR" or ("O_DIRECTORY" in call.line and error == "EACCES"),
        "write": error == "EINTR",
        "fsync": error == "EINTR" or error in NO_SUCH_THING,
        "close": error == "EINTR" or not call.counts,
        "newfstatat": (f'"{NEW}.xpj"' in call.line and not call.decides) or (call.decides and error == "ENOENT"),
        "linkat": True,
        "renameat2": error in NO_SUCH_THING,
        "unlinkat": True,
    }
    return RENAMED if survived.get(call.name, False) else UNWRITTEN


# An item that is busy is looked at again, for it may have got another number, and tried once more.


def move(call, error):
    survived = {
        "openat": error in ("EINTR", "EACCES", "EBUSY"),
        "newfstatat": call.decides and error == "ENOENT",
        "renameat2": error in NO_SUCH_THING or error == "EBUSY",
        "renameat": error == "EBUSY",
        "fsync": True,
        "close": True,
    }
    return RENAMED if survived.get(call.name, False) else UNMOVED


def remove(call, error):
    if call.name == "newfstatat" and '.xpj"' in call.line and "AT_FDCWD" in call.line and error in NOTHING_THERE:
        return FOREIGN_FILE
    survived = {
        "openat": error in ("EINTR", "EACCES", "EBUSY"),
        "unlinkat": error == "EBUSY",
        "fsync": True,
        "close": True,
    }
    return RENAMED if survived.get(call.name, False) else UNREMOVED


def annotate(calls):
    """Marks the check before a move that could replace, and the close that reports lost bytes."""
    for call, before, after in zip(calls, [None] + calls[:-1], calls[1:] + [None]):
        call.decides = call.name == "newfstatat" and after is not None and after.name == "renameat"
        call.counts = call.name == "close" and before is not None and before.name == "fcntl"


def expected(call, step, error):
    if call.name in ("brk", "mmap", "munmap", "getrandom"):
        return tuple(STATES)  # any, as long as message and disk agree
    return ({"look": look, "read": read, "create": create, "move": move, "remove": remove}[step](call, error),)


def fault_in(outcome, allowed, error):
    """What is wrong with the outcome, or None if it is allowed."""
    if outcome.ended != 0:
        return f"ended with {outcome.ended}"
    if outcome.leftovers:
        return f"left {outcome.leftovers}"
    for name in allowed:
        if outcome.message in message_of(name, error) and outcome.state == STATES[name]:
            return None
    return f"said {outcome.message!r} in state {outcome.state}, expected {' or '.join(allowed)}"


def faults_of(programs, shim, only=None):
    """How many calls there were and errors were given, to calls of the name `only` if one is given, and the faults they
    brought to light."""
    calls = calls_of(programs, shim)
    annotate(calls)
    tries = [(call, step, error) for call, step in zip(calls, steps_of(calls)) if only in (None, call.name)
             for error in ERRORS.get(call.name, COMMON)]

    def attempt(case):
        call, step, error = case
        outcome = traced(programs, shim, "-o", "/dev/null", "-e", f"trace={call.name}",
                         "-e", f"inject={call.name}:error={error}:when={call.number}")
        fault = fault_in(outcome, expected(call, step, error), error)
        return f"{shim or 'as it is'}: {error} from {call} ({step}): {fault}" if fault else None

    return len(calls), len(tries), [fault for fault in side_by_side(attempt, tries) if fault]


if __name__ == "__main__":
    PROGRAMS = sys.argv[1]
    for planted, deaf in (("deaf-sync", "fsync"), ("deaf-removal", "unlinkat")):
        if not faults_of(PROGRAMS, planted, deaf)[2]:
            sys.exit(f"the planted fault {planted} went unnoticed: this check finds nothing")
    results = [faults_of(PROGRAMS, shim) for shim in FILE_SYSTEMS]
    verdict([fault for result in results for fault in result[2]],
            f"{sum(result[1] for result in results)} errors from {sum(result[0] for result in results)} calls on "
            f"{len(FILE_SYSTEMS)} kinds of file system")
