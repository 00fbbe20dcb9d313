"""Lets another process interfere at the worst moment: races.py PROGRAMS

The rename is stopped before each of its calls, in a new folder each time, and one foreign action is carried out there.
Whatever the rename then reports, nothing foreign may be overwritten, removed or followed, and the project must be
complete. The driver first has to find each of its planted faults.

No call removes a file on the condition that it is a certain one. One window is therefore left: between the last check
and the removal of the old file, or of the new one in a roll-back. Races won there are counted separately.
"""

import os
import sys

from rename_case import DATA, NEW, NEW_TEXT, OLD, SAMPLES, TEXT, Folder, Run, read, tree, verdict, whole_data, write
from traced import side_by_side

FOREIGN = b"somebody else's work"


def leave_alone(_):
    pass


def make_new_file(folder):
    if not os.path.lexists(f"{folder.projects}/{NEW}.xpj"):
        write(f"{folder.projects}/{NEW}.xpj", FOREIGN)


def replace_new_file(folder):
    if os.path.lexists(f"{folder.projects}/{NEW}.xpj"):
        os.remove(f"{folder.projects}/{NEW}.xpj")
        write(f"{folder.projects}/{NEW}.xpj", FOREIGN)  # which often gets the number of the one removed


def replace_new_file_before_the_roll_back(folder):
    replace_new_file(folder)


def make_new_folder(folder):
    if not os.path.lexists(f"{folder.projects}/{NEW}{DATA}"):
        os.mkdir(f"{folder.projects}/{NEW}{DATA}")


def make_new_folder_with_content(folder):
    if not os.path.lexists(f"{folder.projects}/{NEW}{DATA}"):
        write(f"{folder.projects}/{NEW}{DATA}/foreign.wav", FOREIGN)


def remove_old_file(folder):
    if os.path.lexists(f"{folder.projects}/{OLD}.xpj"):
        os.remove(f"{folder.projects}/{OLD}.xpj")


def replace_old_file(folder):
    if os.path.lexists(f"{folder.projects}/{OLD}.xpj"):
        write(f"{folder.path}/draft", FOREIGN)
        os.replace(f"{folder.path}/draft", f"{folder.projects}/{OLD}.xpj")


def swap_data_folder_for_a_link(folder):
    if os.path.isdir(f"{folder.projects}/{OLD}{DATA}"):
        os.rename(f"{folder.projects}/{OLD}{DATA}", f"{folder.path}/moved away")
        os.symlink(f"{folder.path}/outside", f"{folder.projects}/{OLD}{DATA}")


def swap_old_file_for_a_link(folder):
    if os.path.lexists(f"{folder.projects}/{OLD}.xpj"):
        os.rename(f"{folder.projects}/{OLD}.xpj", f"{folder.path}/kept.xpj")
        os.symlink(f"{folder.path}/outside/victim.xpj", f"{folder.projects}/{OLD}.xpj")


def swap_projects_for_a_link(folder):
    os.rename(folder.projects, f"{folder.path}/moved projects")
    os.symlink(f"{folder.path}/outside", folder.projects)


ACTS = [make_new_file, replace_new_file, replace_new_file_before_the_roll_back, make_new_folder,
        make_new_folder_with_content, remove_old_file, replace_old_file, swap_data_folder_for_a_link,
        swap_old_file_for_a_link, swap_projects_for_a_link]

# These cannot happen on a file system without links.
LINKING = [swap_data_folder_for_a_link, swap_old_file_for_a_link, swap_projects_for_a_link]

# Done before the rename begins, so that it fails and is rolled back.
BEFORE = {replace_new_file_before_the_roll_back: make_new_folder_with_content}


def foreign_items(folder):
    """What belongs to others, by path: the bytes of files, and folders."""
    found = {path: what for path, what in tree(folder.path).items() if what == FOREIGN or path.startswith("outside")}
    new_folder = f"{folder.projects}/{NEW}{DATA}"
    if os.path.isdir(new_folder) and not whole_data(folder.projects, NEW):
        found[f"projects/{NEW}{DATA}"] = "folder"
    return found


def lost(folder, before):
    after = foreign_items(folder)
    if read(f"{folder.projects}/{NEW}.xpj") == FOREIGN:
        # If the old file was replaced before it was read, the replacement got the new name.
        before.pop(f"projects/{OLD}.xpj", None)
    return [path for path, what in before.items() if after.get(path) != what]


def is_whole(folder):
    """Whether the project's text and samples exist, under the old or the new name, wherever they were put."""
    places = [folder.projects, f"{folder.path}/moved projects", folder.path]
    texts = [read(f"{place}/{name}.xpj") for place in places for name in (OLD, NEW, "kept")]
    data = [f"{folder.path}/moved away"] + [f"{place}/{name}{DATA}" for place in places for name in (OLD, NEW)]
    has_data = any(all(read(f"{at}/{sample}") == bytes_ for sample, bytes_ in SAMPLES.items()) for at in data)
    return has_data, TEXT in texts or NEW_TEXT in texts


def is_last_window(act, calls):
    """Whether the program, stopped before the last of `calls`, is between its last check and the removal."""
    if act is replace_new_file_before_the_roll_back:
        return calls[-1] == f"unlinkat {NEW}.xpj"
    if any(call == f"unlinkat {OLD}.xpj" for call in calls[:-1]):
        return False
    look = {replace_new_file: f"/{NEW}.xpj", replace_old_file: f"fstatat {OLD}.xpj"}.get(act)
    return look is not None and any(call.endswith(look) for call in calls[2:-1]) and calls[-1].split()[0] in (
        "open", "fstatat", "unlinkat") and calls[-1].endswith(("/", f"{OLD}.xpj"))


def one_race(programs, plant, act, at, afterwards):
    """Runs to call number `at`, acts, and runs to the end. Returns the faults, or None if there are fewer calls."""
    with Folder() as folder:
        write(f"{folder.path}/outside/victim.xpj", FOREIGN)
        write(f"{folder.path}/outside/{OLD}{DATA}/victim.wav", FOREIGN)
        if act in BEFORE:
            BEFORE[act](folder)
        run = Run(programs, folder.projects, f"stop,{plant}" if plant else "stop")
        call = None
        for _ in range(at):
            call = run.next_call()
            if call is None:
                run.result()
                return None
        act(folder)
        afterwards()
        before = foreign_items(folder)
        stopped_at = list(run.calls)
        message = run.result()
        if act is replace_new_file and f"unlinkat {OLD}.xpj" in stopped_at[:-1]:
            return []  # the rename was over: what becomes of the new file is no longer its affair
        faults = [f"{path} was lost or changed" for path in lost(folder, before)]
        has_data, has_text = is_whole(folder)
        # If the foreign action itself removes or replaces the old file, the text is not lost by the rename.
        if not has_data or (not has_text and act not in (remove_old_file, replace_old_file)):
            faults.append(f"the project is not whole (data {has_data}, text {has_text})")
        if act is leave_alone and message != "renamed":
            faults.append("it failed")
        if faults and is_last_window(act, stopped_at):
            return ["last window"]
        return [f"{act.__name__} before call {at} ({call}): {fault}; the rename said: {message}" for fault in faults]


def races(programs, plant=None, acts=None, afterwards=lambda: None):
    """Returns the faults, the number of races, and how many of these were won in the last window. Calls `afterwards`
    after each act."""
    def until_the_end(act):
        found = []
        while (more := one_race(programs, plant, act, len(found) + 1, afterwards)) is not None:
            found.append(more)
        return found

    found = [each for act in side_by_side(until_the_end, acts or ACTS) for each in act]
    faults = [fault for each in found for fault in each]
    return [fault for fault in faults if fault != "last window"], len(found), faults.count("last window")


if __name__ == "__main__":
    PROGRAMS = sys.argv[1]
    for PLANT, ACT in (("replacing-move", make_new_folder), ("blind-identity", replace_new_file),
                      ("blind-identity", replace_new_file_before_the_roll_back)):
        if not races(PROGRAMS, PLANT, [ACT])[0]:
            sys.exit(f"the planted fault {PLANT} went unnoticed: this check finds nothing")
    FAULTS, COUNT, LAST = races(PROGRAMS)
    verdict(FAULTS, f"{COUNT} races, {LAST} of them won in the last window")
