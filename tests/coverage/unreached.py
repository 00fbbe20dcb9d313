"""Lists the branches that no test reaches: unreached.py EXPORT EXPLAINED

EXPORT is the output of `llvm-cov export`, EXPLAINED the list of branches that no test can reach. They must agree.
Counted are both outcomes of every condition, with each side of && and || on its own, every case of a switch, and code
that never ran, such as exception handlers. The implicit branches of exceptions that leave a call are not counted.
"""

import json
import os
import sys


def source_of(path):
    with open(path, encoding="utf-8") as file:
        return file.read().split("\n")


def outcomes_of(file, lines):
    """{(line, column, outcome): (count, text)} of a file; instances of a template count as one."""
    outcomes = {}
    for line, column, last_line, last_column, taken, not_taken, *_ in file["branches"]:
        # A defaulted comparison is reported as one condition without a count.
        if "= default" in lines[line - 1]:
            continue
        text = lines[line - 1][column - 1:last_column - 1 if line == last_line else None]
        for outcome, count in (("true", taken), ("false", not_taken)):
            before, _ = outcomes.get((line, column, outcome), (0, ""))
            outcomes[line, column, outcome] = (before + count, text)
    return outcomes


def never_run(file, lines):
    """The code that never ran, by its first words."""
    for line, column, count, is_counted, begins, is_gap in file["segments"]:
        text = lines[line - 1][column - 1:]
        if is_counted and begins and not is_gap and count == 0:
            # A handler is identified by its head, not by its brace.
            yield line, lines[line - 1].strip() if text in ("{", "{}") else text


def main(export, explained):
    with open(export, encoding="utf-8") as file:
        files = json.load(file)["data"][0]["files"]
    root = os.getcwd() + "/"
    found, total, reached = [], 0, 0
    for file in files:
        path, lines = file["filename"].removeprefix(root), source_of(file["filename"])
        outcomes = outcomes_of(file, lines)
        total += len(outcomes)
        reached += sum(count > 0 for count, _ in outcomes.values())
        for (line, _, outcome), (count, text) in sorted(outcomes.items()):
            if count == 0:
                found.append((f"{path}: never {outcome}: {text}", line))
        found += [(f"{path}: never run: {text}", line) for line, text in never_run(file, lines)]
    if total == 0:
        sys.exit("no condition was counted, so this check finds nothing")
    with open(explained, encoding="utf-8") as file:
        known = [line for line in file.read().splitlines() if line and not line.startswith("#")]
    print(f"{reached} of {total} branches in {len(files)} files reached ({100 * reached / total:.1f} %)")
    unexplained = [(what, line) for what, line in found if what not in known]
    outdated = [what for what in known if what not in [each for each, _ in found]]
    for what, line in unexplained:
        print(f"UNREACHED, line {line}: {what}")
    for what in outdated:
        print(f"REACHED, or gone, though {explained} lists it: {what}")
    print(f"{len(found) - len(unexplained)} explained, {len(unexplained)} not, {len(outdated)} outdated")
    sys.exit(1 if unexplained or outdated else 0)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
