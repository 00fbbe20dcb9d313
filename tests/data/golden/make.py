#!/usr/bin/env python3
"""Writes the golden folders before/ and after/ beside this script: a projects folder before and after its project
"Nachtcafé 2024" is renamed to "Große Fahrt (live)". The bytes are the same every time.

`make.py` writes them; `make.py --check` only says whether they are as they would be written.
"""

import pathlib
import sys
import unicodedata

OLD = "Nachtcafé 2024"
NEW = "Große Fahrt (live)"
HERE = pathlib.Path(__file__).resolve().parent
TAIL = "_[ProjectData]"


class Chance:
    """A generator of our own, so that the bytes do not depend on a library's version."""

    def __init__(self, seed):
        self.state = seed

    def below(self, limit):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % limit

    def of(self, items):
        return items[self.below(len(items))]


SOUNDS = ["Kick", "Snare", "Clap", "Tom tief", "Crash", "Rim & Shot", "Bässe", "Flöte", "Chœur", "Été", "Señal",
          "Ångström", "ピアノ", "Гитара", "Vox 1", "Vox 2", "FX < Sweep", "Loop 92 bpm"]


def escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace('"', "&quot;")


def sample(chance):
    name = f"{chance.of(SOUNDS)} {chance.below(900) + 100}.wav"
    form = "NFD" if chance.below(3) == 0 else "NFC"
    return escaped(unicodedata.normalize(form, name))


def state_of_plug_in(chance):
    signs = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"
    return "".join(chance.of(signs) for _ in range(96)) + "=="


def project_text(folders):
    """The project file; it refers to the data folder by each of the names in `folders` in turn."""
    chance = Chance(20240611)
    lines = []
    count = 0

    def folder():
        nonlocal count
        count += 1
        return folders[count % len(folders)] + TAIL

    add = lines.append
    add('<?xml version="1.0" encoding="UTF-8"?>')
    add(f'<Project name="{OLD}" format="7">')
    # The bare name, other projects' folders and other spellings are not references and stay.
    add(f"  <Title>{OLD}</Title>")
    add(f'  <Comment>{unicodedata.normalize("NFD", OLD)} &amp; more; see Andere{TAIL}/notes.txt</Comment>')
    add(f'  <Comment>{OLD.lower()}{TAIL}, {OLD}_[projectdata], {OLD} {TAIL}, {OLD}{TAIL}\u0301</Comment>')
    add(f"  <Comment>Nachtcaf&#233; 2024{TAIL}/written with an entity.wav</Comment>")
    add(f"  <Tempo>{92 + chance.below(40)}.000000</Tempo>")
    add("  <Pool>")
    for number in range(900):
        path = sample(chance)
        add(f'    <Sample index="{number}" path="{folder()}/Samples/{path}" rate="44100"/>')
        if number % 7 == 0:
            add(f"    <Uri>file:///home/studio/Projects/{folder()}/Samples/{path}</Uri>")
    add("  </Pool>")
    for track in range(24):
        add(f'  <Track number="{track + 1}" name=\'{escaped(chance.of(SOUNDS))}\' mute="{chance.below(2)}">')
        for pad in range(16):
            add(f'    <Pad note="{36 + pad}" level="{chance.below(128)}">')
            add(f"      <File>.\\{folder()}\\Samples\\{sample(chance)}</File>")
            add(f"      <Layer start=\"{chance.below(44100)}\" source='./{folder()}/Layers/{pad}.wav'/>")
            add("    </Pad>")
        add(f"    <State><![CDATA[{state_of_plug_in(chance)}|{folder()}|{folder()}]]></State>")
        add("  </Track>")
    add(f"  <!-- saved by hand in {folder()} -->")
    add("</Project>")
    return "\r\n".join(lines).encode("utf-8")  # no line end at the end


def data_files():
    chance = Chance(7)
    for name in ["Samples/Kick 101.wav", "Samples/Rim & Shot 102.wav", "Samples/Flöte 103.wav",
                 unicodedata.normalize("NFD", "Samples/Été 104.wav"), "Layers/0.wav", "Layers/deep/er/1.wav",
                 "Programs/Kit.txt", ".settings"]:
        yield name, b"RIFF" + bytes(chance.below(256) for _ in range(40 + chance.below(200)))
    yield "Samples/empty.wav", b""


def folder_of(name, references):
    files = {f"{name}.xpj": project_text(references)}
    for path, content in data_files():
        files[f"{name}{TAIL}/{path}"] = content
    # Unrelated files, which must not change although they mention the project.
    files["Andere.xpj"] = f"<Project>{OLD}{TAIL}/x.wav Andere{TAIL}</Project>\n".encode()
    files[f"Andere{TAIL}/notes.txt"] = f"borrowed from {OLD}{TAIL}\n".encode()
    files["read me.txt"] = f"{OLD} is the one to play.\n".encode()
    return files


def main():
    wanted = {}
    for side, files in (("before", folder_of(OLD, [OLD, unicodedata.normalize("NFD", OLD), OLD])),
                        ("after", folder_of(NEW, [NEW]))):
        wanted.update({HERE / side / path: content for path, content in files.items()})
    if "--check" in sys.argv[1:]:
        found = {path: path.read_bytes() for side in ("before", "after") for path in (HERE / side).rglob("*")
                 if path.is_file()}
        odd = sorted(str(path.relative_to(HERE)) for path in wanted.keys() | found.keys()
                     if wanted.get(path) != found.get(path))
        print("\n".join(["not as this script writes it:"] + odd) if odd else f"{len(found)} files are as written")
        return 1 if odd else 0
    for path, content in wanted.items():
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
    return 0


if __name__ == "__main__":
    sys.exit(main())
