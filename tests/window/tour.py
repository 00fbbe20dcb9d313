"""The guided tour: the real window on a virtual display, from choosing a folder to the finished rename.

    tour.py PROGRAM PICTURES              tells each step and saves a picture of it
    tour.py PROGRAM PICTURES light|dark   does so for the documents, on such a desktop and in a folder with a usual path
"""

import re
import sys
from pathlib import Path

import sample
from desktop import Desktop
from driver import Program

old, new = "Midnight Ferry", "Night Ferry (Live)"


usual = "/media/mara/Studio/MPC Projects"
# Shows the folder there to the program alone.
mounts = 'mount -t tmpfs none /media && mkdir -p "$1" && mount --bind "$2" "$1" && exec "$0"'


class Tour:
    def __init__(self, program, folder, typed, pictures):
        self.program, self.folder, self.typed, self.pictures = program, folder, typed, pictures
        self.steps = 0

    def step(self, title, text, still=0.3):
        """Says what can be seen and takes a picture of it."""
        self.steps += 1
        path = self.pictures / f"{self.steps}-{title}.png"
        self.program.picture(still=still).save(path)
        print(f"{self.steps}. {text}\n   {path}", flush=True)

    def disk(self, name):
        for line in sample.listing(self.folder, name):
            print(f"      {line}", flush=True)

    def logged(self, message):
        """Waits for a line of the log, which is read out with its time."""
        return self.program.find("list item", re.compile(f"^{re.escape(message)}, "))

    def take(self):
        program = self.program
        program.find("button", "Select Folder")
        self.step("start", "The window opens and asks for the folder that holds the projects.")

        program.find("button", "Select Folder").click()
        program.find("dialog", "Select Folder")
        program.waitFor(lambda: getattr(program.focused(), "role", "") == "text", "the panel's field")
        program.type(str(self.typed))
        self.step("folder-panel", "\"Select Folder\" brings the folder panel; the folder's path is typed into it.")

        program.key("Return")
        program.waitUntilGone("dialog")
        self.logged(f"Scan complete: {len(sample.projects)} project(s)")
        self.step("projects", "Every project is listed with its files and its size, and the log has told of the scan.")

        program.find("text", re.compile("Search")).click()
        program.type("ferry")
        program.waitFor(lambda: len(program.elements("button", re.compile("^Rename"))) == 1, "one row")
        self.step("search", "Typing \"ferry\" leaves the one project whose name holds it.")

        print("   On disk there are now:")
        self.disk(old)
        program.find("button", re.compile("^Rename")).click()
        program.find("button", "Cancel")
        field = program.waitFor(lambda: (each := program.focused()) and each.text == old and each, "the name selected")
        self.step("sheet", "Its \"Rename\" button opens the sheet, the name selected for typing over.")

        program.type(new)
        program.waitFor(lambda: field.text == new, "the new name")
        self.step("preview", "While the new name is typed, the sheet shows what will be called how.")

        program.key("Return")
        program.waitUntilGone("button", "Cancel")
        self.logged(f'Renamed "{old}" → "{new}"')
        # Half a second later the folder is scanned again.
        self.step("renamed", "Return renames it: the log says so, and the row's icon is green for a moment.", still=0.1)

        program.find("button", re.compile(f"^Rename.*{re.escape(new)}"))
        self.step("finished", "The folder has been scanned again and the project stands there under its new name.")
        print("   And on disk there are:")
        self.disk(old)
        self.disk(new)


if __name__ == "__main__":
    binary, pictures = Path(sys.argv[1]).resolve(), Path(sys.argv[2])
    for left in pictures.glob("*.png"):
        left.unlink()
    with Desktop(*sys.argv[3:]) as desktop:
        folder = desktop.home / "Music" / "MPC Projects"
        sample.make(folder)
        typed, command = folder, [binary]
        if sys.argv[3:]:
            typed = usual
            command = ["unshare", "--map-root-user", "--mount", "sh", "-c", mounts, binary, usual, folder]
        with Program(desktop, command[0], command[1:]) as program:
            Tour(program, folder, typed, pictures).take()
