"""The inputs of the benchmarks: folders of projects, project files and lists of names, always the same."""

import random
import unicodedata

DATA = "_[ProjectData]"
FIRST = "Amber Blue Cold Dusty Faded Golden Hollow Iron Lunar Midnight Neon Paper Quiet Velvet Winter".split()
SECOND = "Alley Canyon Drift Echo Flight Harbour Loop Mirror Night Orbit River Street Sunrise Tape Theme".split()
ACCENTED = ["Café", "Übergang", "Ångström", "İstanbul", "Привет", "こんにちは", "음악", "ναός", "Ωmega"]
TAGS = "Volume Pan Tune Attack Decay Sustain Release Cutoff Resonance Send Priority".split()


def names(count, accented):
    """So many different names; of every 100, `accented` hold more than ASCII, half of them decomposed."""
    seeded = random.Random(7)
    made = []
    for number in range(count):
        if seeded.random() * 100 < accented:
            form = seeded.choice(["NFC", "NFD"])
            made.append(unicodedata.normalize(form, f"{seeded.choice(ACCENTED)} {seeded.choice(ACCENTED)} {number}"))
        else:
            made.append(f"{seeded.choice(FIRST)} {seeded.choice(SECOND)} {number}")
    seeded.shuffle(made)
    return made


def name_list(path, count, accented):
    path.write_text("".join(name + "\n" for name in names(count, accented)), encoding="utf-8")
    return path


def tree(folder, projects, entries, progress):
    """A folder of projects in `folder`, made at the first call. Their entries have a size, but take no room on disk."""
    path = folder / f"{projects:,} x {entries:,}"
    if path.exists():
        return path
    path.mkdir()
    for number, name in enumerate(names(projects, 0)):
        progress(f"making {path.name} entries", f"{number + 1} of {projects} projects")
        (path / f"{name}.xpj").write_bytes(b"x" * 200)
        data = path / (name + DATA)
        data.mkdir()
        for entry in range(entries):
            with open(data / f"sample {entry}.wav", "wb") as file:
                file.truncate(1000 + entry)
    return path


def project(path, name, size, references, accents=0):
    """A folder with one project, whose file has about `size` bytes and so many references, evenly spread.

    Of every 100 other lines `accents` hold accented letters. Every second reference is decomposed.
    """
    path.mkdir(parents=True)
    (path / (name + DATA)).mkdir()
    forms = name, unicodedata.normalize("NFD", name)
    seeded = random.Random(3)
    filler = []
    while sum(map(len, filler)) < min(size, 60_000):
        text = f"    <{seeded.choice(TAGS)}>{seeded.random():.6f}</>\n"
        if seeded.random() * 100 < accents:
            text = "    <Note>" + "".join(seeded.choice("abcéèñöüß ") for _ in range(30)) + "</Note>\n"
        filler.append(text.encode())
    with open(path / f"{name}.xpj", "wb") as file:
        for number in range(references):
            file.write(f"  <File>{forms[number % 2]}{DATA}/sample {number}.wav</File>\n".encode())
            while file.tell() < size * (number + 1) // references:
                file.write(filler[seeded.randrange(len(filler))])
    return path
