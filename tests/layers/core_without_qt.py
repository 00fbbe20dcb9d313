"""Checks that the core needs no Qt: configures it in a folder of its own and searches the result for traces of Qt.

    core_without_qt.py ROOT SCRATCH
"""

import shutil
import subprocess
import sys
from pathlib import Path

root, scratch = Path(sys.argv[1]), Path(sys.argv[2])
shutil.rmtree(scratch, ignore_errors=True)
# As the preset "core" does, except that an installed Qt would be found if anything asked for it.
configured = subprocess.run(
    ["cmake", "-S", root, "-B", scratch, "-G", "Ninja", "-DTARVOLT_WINDOW=OFF"], capture_output=True, text=True
)
print(configured.stdout + configured.stderr)
if configured.returncode != 0:
    sys.exit("the core could not be configured")

traces = [
    f"{name}:{number}: {line.strip()[:200]}"
    for name in ("CMakeCache.txt", "build.ninja", "compile_commands.json")
    for number, line in enumerate((scratch / name).read_text().splitlines(), 1)
    if "Qt6" in line or "libQt" in line or "automoc" in line.lower() or "qmltyperegistrar" in line
]
print(*traces[:20], f"{len(traces)} traces of Qt", sep="\n")
sys.exit(1 if traces else 0)
