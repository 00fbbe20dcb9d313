"""Checks that the build compiles every header of the layers on its own.

    header_sets.py ROOT BUILD      fails and lists the headers that BUILD/compile_commands.json does not compile
"""

import json
import sys
from pathlib import Path

import includes

root, build = Path(sys.argv[1]), Path(sys.argv[2])
withWindow = "TARVOLT_WINDOW:BOOL=ON" in (build / "CMakeCache.txt").read_text()

headers = {
    path.relative_to(root).as_posix()
    for folder in {layer.split("/")[0] for layer in includes.layers}
    for path in (root / folder).rglob("*.h")
    if withWindow or includes.layerOf(path.relative_to(root).as_posix()) < includes.layers.index("app/bridge")
}
verified = [entry["file"] for entry in json.loads((build / "compile_commands.json").read_text())]
verified = [name for name in verified if "_verify_interface_header_sets/" in name]
missing = [header for header in sorted(headers) if not any(name.endswith(f"/{header}.cxx") for name in verified)]

print(*missing, f"{len(headers)} headers, {len(missing)} of them not compiled on their own", sep="\n")
sys.exit(1 if missing or not headers else 0)
