"""Refuses each allocation of a rename in turn: out_of_memory.py PROGRAMS

Whichever is refused, the project must be complete, in a clean state and as the message says, and nothing else may be
left. The driver first has to find fault with a program that names the file before it is written.
"""

import itertools
import os
import sys

from disk_killed import fitting
from rename_case import Folder, Run, clean_state, verdict


def faults_of(programs, words=""):
    """How many allocations there are, and the faults."""
    faults = []
    for at in itertools.count(1):
        with Folder() as folder:
            rename = Run(programs, folder.projects, f"{words}no-memory={at}")
            message = rename.result()
            items = os.listdir(folder.projects)
            unfit = fitting(message, clean_state(folder.projects), items)
            unfit += [f"{item} is left" for item in items if item.startswith(".")]
            unfit += [f"it said {message}"] if "std::" in message else []
        if not rename.errors:
            return at - 1, faults
        faults += [f"allocation {at}: {fault}" for fault in unfit]


if __name__ == "__main__":
    PROGRAMS = sys.argv[1]
    if not faults_of(PROGRAMS, "early-name,")[1]:
        sys.exit("the planted fault early-name went unnoticed: this check finds nothing")
    COUNT, FAULTS = faults_of(PROGRAMS)
    verdict(FAULTS, f"{COUNT} allocations refused")
