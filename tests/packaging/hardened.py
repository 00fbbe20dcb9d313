"""Checks the protections of the program as it is installed.

    hardened.py CMAKE BUILD      prints each protection that is missing and fails if there is one

The program makes no call that the C library fortifies today, so that one is looked for in the compiler's commands.
"""

import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

cmake, build = sys.argv[1], Path(sys.argv[2])
project = Path(__file__).resolve().parents[2]


def readelf(program, *options):
    command = ["readelf", "--wide", *options, program]
    return subprocess.run(command, check=True, capture_output=True, text=True, env={**os.environ, "LC_ALL": "C"}).stdout


with tempfile.TemporaryDirectory() as folder:
    subprocess.run([cmake, "--install", build, "--prefix", folder], check=True, stdout=subprocess.DEVNULL)
    installed = f"{folder}/bin/tarvolt"
    dynamic, segments = readelf(installed, "--dynamic"), readelf(installed, "--program-headers")
    symbols = readelf(installed, "--dyn-syms")

# The segment of the stack, whose flags say whether code on it can run.
stack = [line for line in segments.splitlines() if "GNU_STACK" in line]
layers = [project / layer for layer in ("foundation", "model", "rename", "app")]
commands = [
    entry["command"].split()
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    if any(layer in Path(entry["file"]).parents for layer in layers)
]

protections = {
    "loaded at a random address (PIE)": " PIE" in dynamic,
    "addresses of functions read-only after the start (full RELRO)": "GNU_RELRO" in segments and " NOW" in dynamic,
    "stack protector": "__stack_chk_fail" in symbols,
    "no code on the stack": len(stack) == 1 and "RWE" not in stack[0],
    "libraries from the system only (no RUNPATH)": "RPATH" not in dynamic and "RUNPATH" not in dynamic,
    "fortified calls": bool(commands)
    and all({"-O1", "-O2", "-O3"} & {*command} and "-D_FORTIFY_SOURCE=2" in command for command in commands),
}
missing = [name for name, there in protections.items() if not there]
print(*(f"missing: {name}" for name in missing), f"{len(protections)} protections, {len(missing)} missing", sep="\n")
sys.exit(1 if missing else 0)
