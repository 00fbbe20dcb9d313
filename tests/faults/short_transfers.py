"""Reads and writes that transfer a few bytes at a time must lose none: short_transfers.py PROGRAMS

The driver first has to find fault with a write that reports more than it wrote.
"""

import sys

from rename_case import NEW_TEXT, Folder, Run, clean_state, verdict


def faults_of(programs, shim):
    with Folder() as folder:
        message = Run(programs, folder.projects, shim).result()
        state = clean_state(folder.projects)
        return [] if (message, state) == ("renamed", 4) else [f"{shim}: {message}; {state}"]


if __name__ == "__main__":
    PROGRAMS = sys.argv[1]
    if not faults_of(PROGRAMS, "lying-write"):
        sys.exit("a write that reports more than it wrote went unnoticed: this check finds nothing")
    verdict(faults_of(PROGRAMS, "short"), f"{len(NEW_TEXT)} bytes in short pieces")
