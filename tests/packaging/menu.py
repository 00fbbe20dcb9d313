"""Starts the program installed in a root folder by a click on its entry in a menu there, jgmenu's.

    menu.py ENTER PICTURES      ENTER runs a command in that folder; saves pictures of the menu and of the window, and fails unless the window opens
"""

import subprocess
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "window"))
from desktop import Desktop, waitFor  # noqa: E402  it is in that folder

enter, pictures = sys.argv[1], Path(sys.argv[2])


def windows(*words):
    try:
        return desktop.input("search", "--onlyvisible", *words).split()
    except subprocess.CalledProcessError:
        return []


with Desktop() as desktop:
    settings = desktop.home / ".config/jgmenu/jgmenurc"
    settings.parent.mkdir()
    settings.write_text("position_mode = fixed\nmenu_halign = left\nmenu_valign = top\n")
    desktop.start([enter, "jgmenu_run"])
    menu = waitFor(lambda: windows("--class", "jgmenu"), "the menu")[0]
    desktop.stillPicture(1)
    # What is typed leaves the entries that contain it.
    desktop.input("type", "Tarvolt")
    desktop.stillPicture(1).save(pictures / "menu.png")
    desktop.input("mousemove", "--window", menu, 60, 20, "click", "1")
    waitFor(lambda: windows("--name", "^Tarvolt$"), "the window", timeout=60)
    desktop.stillPicture(1).save(pictures / "started-from-menu.png")
