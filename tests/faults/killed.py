"""Kills a rename before each of its system calls: killed.py PROGRAMS

Afterwards the folder must be in one of the four clean states, and all four must occur, in their order: a complete
project file, the complete data folder, never a partial file under a project's name. A hidden file may remain only on a
file system without unnamed files. The driver first has to find each of its planted faults.
"""

import sys

from rename_case import verdict
from traced import FILE_SYSTEMS, calls_of, side_by_side, traced


def faults_of(programs, shim):
    calls = calls_of(programs, shim)

    def kill(call):
        return traced(programs, shim, "-o", "/dev/null", "-e", f"trace={call.name}",
                      "-e", f"inject={call.name}:signal=KILL:when={call.number}")

    hidden_allowed = any(".tarvolt-" in call.line for call in calls)
    faults, states = [], []
    for call, outcome in zip(calls, side_by_side(kill, calls)):
        where = f"{shim or 'as it is'}: killed before {call}"
        if outcome.ended == 0:
            faults.append(f"{where}: it was not killed")
        if outcome.state not in (1, 2, 3, 4):
            faults.append(f"{where}: {outcome.state}")
        elif states and outcome.state < states[-1]:
            faults.append(f"{where}: from state {states[-1]} back to {outcome.state}")
        else:
            states.append(outcome.state)
        if outcome.leftovers and not (hidden_allowed and len(outcome.leftovers) == 1):
            faults.append(f"{where}: left {outcome.leftovers}")
    if set(states) != {1, 2, 3, 4}:
        faults.append(f"{shim or 'as it is'}: only the states {sorted(set(states))} came up")
    return len(calls), faults


if __name__ == "__main__":
    PROGRAMS = sys.argv[1]
    for planted in ("early-name", "lying-write"):
        try:
            found = faults_of(PROGRAMS, planted)[1]
        except SystemExit as unwell:  # the rename fails even if it is left alone
            found = [unwell.code]
        if not found:
            sys.exit(f"the planted fault {planted} went unnoticed: this check finds nothing")
    results = [faults_of(PROGRAMS, shim) for shim in FILE_SYSTEMS]
    verdict([fault for result in results for fault in result[1]],
            f"{sum(result[0] for result in results)} kills on {len(FILE_SYSTEMS)} kinds of file system")
