"""Loses each reply of a network drive's server to a rename: reply_lost.py PROGRAMS

The drive is mounted by sshfs. In turn, the server dies after it has done what a request asks for and before it
replies. Either the drive connects to another server, so that only this reply is lost, or it is gone from then on. What
is then on the server must be complete, in a clean state, and as the message says. The driver first has to find fault
with a program that names the file before it is written.

Where there is no sshfs or no tracer, it says why and is skipped (exit status 77).
"""

import contextlib
import itertools
import os
import subprocess
import sys
import tempfile

from disk_killed import ALLOWED, UNMOVED, fitting
from disks import Disk, report
from loopback_server import descendants
from processes import started, wait_for
from rename_case import Run, clean_state, fill
from traced import side_by_side

# The states that each message allows. A folder whose move was not answered has been moved.
ANY_REPLY = {**ALLOWED, UNMOVED: [1, 2, 3]}

LOST_ONCE, GONE = ["reconnect"], []  # what the drive is told to do when the connection is lost


def file_of(process, name):
    with open(f"/proc/{process}/{name}", encoding="utf-8", errors="replace") as file:
        return file.read()


def killer(server, reply):
    """A tracer that kills the process behind the connection before that reply, and then ends."""
    serving, = (each for each in descendants(server.process.pid) if "internal-sftp" in file_of(each, "cmdline"))
    tracer = started("strace", "-qq", "-p", str(serving), "-e", f"inject=write:signal=KILL:when={reply}")
    wait_for(lambda: f"TracerPid:\t{tracer.pid}\n" in file_of(serving, "status"), "strace may not trace the server")
    return tracer


def tries(programs, work, shim, options):
    """Loses each reply but the first, which is to a request of the program around the rename. Yields its number, the
    message, and the folder on the server."""
    with Disk("sshfs", tempfile.mkdtemp(dir=work)) as disk:
        disk.options = options
        for reply in itertools.count(2):
            if not os.path.ismount(disk.folder):
                disk.mount()
            folder = tempfile.mkdtemp(dir=f"{disk.work}/served")  # a new one each time, of which nothing is remembered
            fill(folder)
            mounted = f"{disk.folder}/{os.path.basename(folder)}"
            os.stat(mounted)
            tracer = killer(disk.server, reply)
            message = Run(programs, mounted, shim).result()
            try:
                tracer.wait(1)
            except subprocess.TimeoutExpired:
                tracer.terminate()  # there are fewer replies
                tracer.wait()
                break
            if options is GONE:
                disk.unmount()
            yield reply, message, folder
        disk.unmount()


def faults_of(programs, work, shim, options):
    """Yields a list of faults for each reply, and in the end one for all."""
    states = []
    for reply, message, folder in tries(programs, work, shim, options):
        states.append(clean_state(folder))
        yield [f"without reply {reply} {' '.join(options)}: {fault}"
               for fault in fitting(message, states[-1], os.listdir(folder), ANY_REPLY)]
    if options is GONE and set(states) != {1, 2, 3, 4}:
        yield [f"the states {states} came up"]


def tried(programs, work):
    """Every fault of the program, and how many replies were lost."""
    with contextlib.closing(faults_of(programs, work, "early-name", GONE)) as found:
        if not any(found):
            sys.exit("the planted fault early-name went unnoticed: this check finds nothing")
    found = side_by_side(lambda options: list(faults_of(programs, work, "", options)), (LOST_ONCE, GONE))
    return [fault for each in found for faults in each for fault in faults], f"{sum(map(len, found))} replies lost"


if __name__ == "__main__":
    report("sshfs or strace", lambda work: tried(sys.argv[1], work))
