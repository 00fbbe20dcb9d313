"""Takes the server of a network drive away before each call of a rename and of a scan: server_gone.py PROGRAMS

The drive is mounted by sshfs. In turn, at every call, the server stops answering and goes on later; it dies while a
call waits for it; and it dies and another takes its place, to which the drive connects again. The program must end each
time. What a rename leaves on the server must be complete, in a clean state, and as the message says. A scan lists every
project or says that the folder could not be read. The driver first has to find fault with a program that names the file
before it is written, and with a scan that takes a failure for the end of the listing.

Where there is no sshfs, it says why and is skipped (exit status 77).
"""

import contextlib
import itertools
import os
import signal
import sys
import tempfile
import threading

from disk_killed import fitting
from disks import Disk, report
from rename_case import NEW, OLD, Run, clean_state, fill
from traced import side_by_side

WAIT = 0.1  # seconds for which a call waits in vain
RENAME, SCAN = (OLD, NEW), ()


def go_on(server):
    server.signal(signal.SIGCONT)


def die(server):
    server.stop()


def change(server):
    server.stop()
    server.start()


# What the server does after it has stopped answering, and what the drive is told to do when the connection is lost.
ENDINGS = {go_on: [], die: [], change: ["reconnect"]}


def tries(programs, work, shim, names, ending):
    """Stops the server before each call but the first of a rename, which is not its own. Yields the call, what the
    program said, and the folder on the server."""
    with Disk("sshfs", tempfile.mkdtemp(dir=work)) as disk:
        disk.options = ENDINGS[ending]
        for at in itertools.count(2 if names else 1):
            if not os.path.ismount(disk.folder):
                disk.mount()
            folder = tempfile.mkdtemp(dir=f"{disk.work}/served")  # a new one each time, of which nothing is remembered
            fill(folder)
            program = Run(programs, f"{disk.folder}/{os.path.basename(folder)}", shim, names)
            for _ in range(at):
                call = program.next_call()
            if not call:
                program.result()
                break
            disk.server.signal(signal.SIGSTOP)
            end = threading.Timer(WAIT, ending, [disk.server])
            end.start()
            said = program.result()
            end.join()
            if ending is die:
                disk.unmount()
                disk.server.start()
            yield call, said, folder
        disk.unmount()


def faults_of_renames(programs, work, shim, ending):
    """Yields a list of faults for each call, and in the end one for all."""
    states = []
    for call, said, folder in tries(programs, work, shim, RENAME, ending):
        states.append(clean_state(folder))
        faults = fitting(said, states[-1], os.listdir(folder))
        if ending is go_on and said != "renamed":
            faults.append(f"it said {said}")
        yield [f"{ending.__name__} before {call}: {fault}" for fault in faults]
    if ending is die and set(states) != {1, 2, 3, 4}:  # elsewhere a roll-back may succeed, or not, as time will have it
        yield [f"{ending.__name__}: the states {states} came up"]


def faults_of_scans(programs, work, shim, ending):
    for call, said, folder in tries(programs, work, shim, SCAN, ending):
        whole = said.splitlines() == ["Bystander", OLD]
        unread = said.startswith(f'Scan error: The folder "{os.path.basename(folder)}" could not be read: ')
        yield [] if whole or (unread and ending is not go_on) else [f"{ending.__name__} before {call}: it said {said}"]


def notices(programs, work, planted, faults_of):
    with contextlib.closing(faults_of(programs, work, f"stop,{planted}", die)) as found:
        return any(found)


def tried(programs, work):
    """Every fault of the program, and how often it was left without a server."""
    planted = (("early-name", faults_of_renames), ("deaf-listing", faults_of_scans))
    if not all(side_by_side(lambda case: notices(programs, work, *case), planted)):
        sys.exit("a planted fault went unnoticed: this check finds nothing")
    found = side_by_side(lambda case: list(case[0](programs, work, "stop", case[1])),
                         itertools.product((faults_of_renames, faults_of_scans), ENDINGS))
    tries_ = [faults for each in found for faults in each]
    return [fault for faults in tries_ for fault in faults], f"{len(tries_)} times without a server"


if __name__ == "__main__":
    report("sshfs", lambda work: tried(sys.argv[1], work))
