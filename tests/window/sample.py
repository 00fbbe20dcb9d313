"""A folder of made-up projects that are as large as real ones but take little room: the samples are sparse files."""


def projectText(name, notes=1200):
    """The text of a project file: three references to the data folder and as many notes."""
    lines = [
        '<?xml version="1.0" encoding="UTF-8"?>',
        "<Project>",
        f"    <Title>{name}</Title>",
        f'    <Sample path="{name}_[ProjectData]/sample 000.wav" gain="0.8"/>',
        f'    <Sample path="{name}_[ProjectData]/sample 001.wav" gain="0.7"/>',
        f"    <Mixdown>{name}_[ProjectData]/mix.wav</Mixdown>",
        *(f'    <Note tick="{24 * index}" pad="{index % 16}"/>' for index in range(notes)),
        "</Project>",
    ]
    return "".join(f"{line}\r\n" for line in lines)


# Name, number of entries in the data folder, and their total size. Without a number there is no data folder.
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
        (folder / f"{name}.xpj").write_text(projectText(name), newline="")
        if count is None:
            continue
        data = folder / f"{name}_[ProjectData]"
        data.mkdir()
        for index in range(count):
            with (data / f"sample {index:03}.wav").open("wb") as sample:
                sample.truncate(size // count)


def listing(folder, name):
    """The items of one project on disk, one per line, as the tour shows them."""
    lines = []
    for path in sorted(folder.glob(f"{name}*")):
        if path.is_dir():
            lines.append(f"{path.name}/ ({len(list(path.iterdir()))} files)")
        else:
            references = [line.strip() for line in path.read_text().splitlines() if "_[ProjectData]" in line]
            lines += [path.name, *(f"    {reference}" for reference in references)]
    return lines
