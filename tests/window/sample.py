"""A folder of made-up projects, sized like real ones without taking their room: the samples are files with holes."""

projectText = """<?xml version="1.0" encoding="UTF-8"?>\r
<Project>\r
    <Title>{name}</Title>\r
    <Sample path="{name}_[ProjectData]/kick.wav" gain="0.8"/>\r
    <Sample path="{name}_[ProjectData]/snare.wav" gain="0.7"/>\r
    <Mixdown>{name}_[ProjectData]/mix.wav</Mixdown>\r
</Project>\r
"""

# Name, number of entries in the data folder, their bytes in all; without a number there is no data folder.
projects = [
    ("Basement Loops Vol. 2", 148, 412_600_000),
    ("Blue Hour", 37, 96_300_000),
    ("Cold Storage", 212, 1_070_000_000),
    ("Midnight Ferry", 64, 188_400_000),
    ("Sketch 014", None, 0),
    ("Slow Glass", 1, 3_200_000),
    ("The Long Way Home From The Late Show (instrumental take 3)", 93, 254_900_000),
    ("Warehouse Loop", 18, 41_700_000),
]


def make(folder):
    """Fills `folder`, which is made, with the projects."""
    folder.mkdir(parents=True)
    for name, count, size in projects:
        (folder / f"{name}.xpj").write_text(projectText.format(name=name), newline="")
        if count is None:
            continue
        data = folder / f"{name}_[ProjectData]"
        data.mkdir()
        for index in range(count):
            with (data / f"sample {index:03}.wav").open("wb") as sample:
                sample.truncate(size // count)


def listing(folder, name):
    """What stands on disk of one project, a line each, as the tour shows it."""
    lines = []
    for path in sorted(folder.glob(f"{name}*")):
        if path.is_dir():
            lines.append(f"{path.name}/ ({len(list(path.iterdir()))} files)")
        else:
            references = [line.strip() for line in path.read_text().splitlines() if "_[ProjectData]" in line]
            lines += [path.name, *(f"    {reference}" for reference in references)]
    return lines
