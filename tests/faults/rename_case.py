"""One rename of one project, in a folder of its own and under the call shim, and what must hold afterwards."""

import os
import shutil
import signal
import subprocess
import sys
import tempfile
import threading

OLD, NEW = "Night Drive", "Dawn"
DATA = "_[ProjectData]"
TEXT = "".join(f'<Sample path="{OLD}{DATA}/kick {i}.wav" of="{OLD}"/>\r\n' for i in range(40)).encode()
NEW_TEXT = TEXT.replace((OLD + DATA).encode(), (NEW + DATA).encode())
SAMPLES = {"kick.wav": b"k" * 999, "deep/snare.wav": b"s" * 77}

A_HANG = 60  # seconds; a rename takes a tenth of one


def fill(folder):
    """Creates the project OLD, and one that must never change, in `folder`."""
    os.makedirs(folder, exist_ok=True)
    write(f"{folder}/{OLD}.xpj", TEXT)
    for name, data in SAMPLES.items():
        write(f"{folder}/{OLD}{DATA}/{name}", data)
    write(f"{folder}/Bystander.xpj", b"not ours")


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


def read(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except OSError:
        return None


def tree(folder):
    """Everything below `folder`, without following links: {relative path: bytes, "folder" or ("link", target)}."""
    found = {}
    for at, folders, files in os.walk(folder):
        for name in folders + files:
            path = os.path.join(at, name)
            key = os.path.relpath(path, folder)
            if os.path.islink(path):
                found[key] = ("link", target_of(path))
            elif os.path.isdir(path):
                found[key] = "folder"
            else:
                found[key] = read(path)
    return found


def target_of(link):
    try:
        return os.readlink(link)
    except OSError:
        return None  # sshfs shows no absolute targets


def whole_data(folder, name):
    return all(read(f"{folder}/{name}{DATA}/{sample}") == data for sample, data in SAMPLES.items())


def clean_state(folder):
    """The number of the clean state that `folder` is in, or a text that says what is wrong."""
    old, new = read(f"{folder}/{OLD}.xpj"), read(f"{folder}/{NEW}.xpj")
    at_old, at_new = whole_data(folder, OLD), whole_data(folder, NEW)
    if old not in (None, TEXT):
        return "the old project file is damaged"
    if new not in (None, NEW_TEXT):
        return "the new project file is damaged"
    if os.path.lexists(f"{folder}/{OLD}{DATA}") and os.path.lexists(f"{folder}/{NEW}{DATA}"):
        return "there are two data folders"
    states = {(True, False, True, False): 1, (True, True, True, False): 2, (True, True, False, True): 3,
              (False, True, False, True): 4}
    state = states.get((old is not None, new is not None, at_old, at_new))
    return state or f"old file {old is not None}, new file {new is not None}, data {at_old} {at_new}"


# Both relative to the folder of the programs, because the path of a preloaded library cannot contain a space.
PROGRAM, SHIM = "./tarvolt_rename_once", "./libtarvolt_call_shim.so"


class Run:
    """The rename program under the shim, in the mode `shim`. With "stop" it can be stepped from call to call. Without
    the names it scans."""

    def __init__(self, programs, folder, shim, names=(OLD, NEW)):
        environment = dict(os.environ, LD_PRELOAD=SHIM, TARVOLT_SHIM=shim)
        self.process = subprocess.Popen([PROGRAM, folder, *names], cwd=programs, env=environment,
                                        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.calls = []

    def next_call(self):
        """Continues the program to its next call and returns that call, or None at the end."""
        if self.calls:
            self.process.send_signal(signal.SIGCONT)
        _, status = os.waitpid(self.process.pid, os.WUNTRACED)
        if os.WIFSTOPPED(status):
            self.calls.append(self.process.stderr.readline().decode().strip())
            return self.calls[-1]
        self.process.returncode = os.waitstatus_to_exitcode(status)
        return None

    def result(self):
        """Runs to the end, which must come, and returns the message."""
        hang = threading.Timer(A_HANG, self.process.kill)
        hang.start()
        if self.calls and self.process.returncode is None:
            while self.next_call() is not None:
                pass
        output, errors = (text.decode() for text in self.process.communicate())
        hang.cancel()
        if self.process.returncode != 0:
            raise SystemExit(f"the rename program ended with {self.process.returncode}: {errors}")
        self.errors = errors
        return output.removeprefix("begin\n").strip()


class Folder:
    """A temporary folder with the project in it."""

    home = None   # where such folders are made; the system's temporary folder if None
    ended = None  # if this is a dictionary, the folders stay, and it gets the tree of each as it was at its end

    def __enter__(self):
        self.path = tempfile.mkdtemp(prefix="tarvolt-fault-", dir=Folder.home)
        fill(f"{self.path}/projects")
        return self

    def __exit__(self, *_):
        if Folder.ended is None:
            shutil.rmtree(self.path)
        else:
            Folder.ended[self.path] = tree(self.path)

    @property
    def projects(self):
        return f"{self.path}/projects"


def verdict(faults, what):
    """Ends the driver: prints what was tried and every fault that was found."""
    for fault in faults:
        print("FAULT:", fault)
    print(f"{what}: {len(faults)} faults found")
    sys.exit(1 if faults else 0)
