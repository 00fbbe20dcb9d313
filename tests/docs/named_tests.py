"""Checks that docs/window.md and docs/performance.md name only tests that exist.

    named_tests.py ROOT      fails and prints what it names in vain

In the last column of the tables in docs/window.md, … stands for any number of letters, and a name that begins with it
belongs to the suite that is named before it.
"""

import re
import sys
from pathlib import Path

root = Path(sys.argv[1])


def names_in(files, pattern, written):
    texts = (path.read_text(encoding="utf-8") for path in sorted((root / "tests").rglob(files)))
    return {written(match) for text in texts for match in re.finditer(pattern, text)}


there = names_in("*.cpp", r"\bTEST(?:_F|_P)?\((\w+),\s*(\w+)\)", lambda match: f"{match[1]}.{match[2]}")
there |= names_in("*_test.py", r"\bdef test(\w+)", lambda match: f"window.Class.{match[1]}")
there |= names_in("*.cmake", r"\bNAME (texts\.\w+)", lambda match: match[1])

named = re.findall(r"`([A-Z]\w+\.[A-Z]\w+)`", (root / "docs/performance.md").read_text(encoding="utf-8"))
for line in (root / "docs/window.md").read_text(encoding="utf-8").splitlines():
    for name in re.findall("`([^`]+)`", line.split("|")[-2]) if line.startswith("|") else ():
        named.append(named[-1].split(".")[0] + "." + name[1:] if name.startswith("…") else name)

patterns = {name: re.escape(name).replace("…", r"[\w.]*") for name in named}
in_vain = [name for name in named if not any(re.fullmatch(patterns[name], test) for test in there)]
print(*in_vain, f"{len(named)} tests named, {len(in_vain)} of them missing", sep="\n")
sys.exit(1 if in_vain or not named else 0)
