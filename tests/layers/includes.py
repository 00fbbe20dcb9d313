"""Where an include may point.

The folders are layers. A file includes only its own layer and earlier ones; bridge and drawing are siblings and do not
include each other. Only these two and the entry point may include the toolkit, and only the foundation may include ICU
and system headers.

    includes.py ROOT      prints one line for each include that breaks this and fails when there is one
"""

import re
import sys
from pathlib import Path

layers = ["foundation", "model", "rename", "app", "app/bridge", "app/drawing", "app/tarvolt_app", "app/main"]
siblings = {"app/bridge", "app/drawing"}
withToolkit = siblings | {"app/tarvolt_app", "app/main"}

include = re.compile(
    r'^[ \t]*#[ \t]*include[ \t]*(?:<(?P<angle>[^>]*)>|"(?P<quoted>[^"]*)"|(?P<other>.*))', re.MULTILINE
)
standard = re.compile(r"[a-z_0-9]+")
toolkit = re.compile(r"Q[A-Za-z0-9/_.]+|xdg-[a-z0-9-]+-client-protocol\.h")
foundationOnly = re.compile(r"unicode/.+|[a-z_0-9/]+\.h")


def layerOf(path):
    """The place of a source file in `layers`, by the longest prefix, or None for what is in no layer."""
    parts = [index for index, layer in enumerate(layers) if path.startswith((layer + "/", layer + "."))]
    return max(parts, key=lambda index: len(layers[index]), default=None)


def faultOf(root, path, match):
    """What is wrong with one include of the file at `path`, or None."""
    layer = layers[layerOf(path)]
    if match["other"] is not None:
        return "names no file"
    if match["quoted"] is not None:
        target = match["quoted"]
        if not (root / target).is_file():
            return "is not written from the project's root"
        if layerOf(target) is None:
            return "points out of the layers"
        aim = layers[layerOf(target)]
        if layerOf(target) > layerOf(path) or (aim != layer and {aim, layer} == siblings):
            return f"points from {layer} to {aim}"
        return None
    header = match["angle"]
    if standard.fullmatch(header):
        return None
    if toolkit.fullmatch(header):
        return None if layer in withToolkit else f"brings the toolkit into {layer}"
    if foundationOnly.fullmatch(header):
        return None if layer == "foundation" else f"brings the system or ICU into {layer}"
    return "is no header that any layer may include"


def faults(root):
    """Looks at every source file of the layers; returns how many there were and the faults, one text each."""
    files = sorted(
        path.relative_to(root).as_posix()
        for folder in {layer.split("/")[0] for layer in layers}
        for path in (root / folder).rglob("*")
        if path.suffix in (".h", ".cpp")
    )
    found = []
    for path in files:
        text = (root / path).read_text(encoding="utf-8")
        for match in include.finditer(text):
            fault = faultOf(root, path, match)
            if fault:
                line = text.count("\n", 0, match.start()) + 1
                found.append(f"{path}:{line}: {match[0].strip()} {fault}")
    return len(files), found


if __name__ == "__main__":
    count, found = faults(Path(sys.argv[1]))
    print(*found, f"{count} files, {len(found)} faults", sep="\n")
    sys.exit(1 if found or count == 0 else 0)
