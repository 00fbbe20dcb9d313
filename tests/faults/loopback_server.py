"""An SSH server on the loopback address, with keys of its own, that can be stopped and killed."""

import contextlib
import os
import shutil
import signal
import socket

from processes import run, started, wait_for


class Server:
    """An SSH server on the loopback address that serves the folder `served` in `work` to a key of its own."""

    def __init__(self, work):
        self.work, self.key = work, f"{work}/key"
        os.makedirs(f"{work}/served", exist_ok=True)
        os.makedirs("/run/sshd", exist_ok=True)  # the server will not start without it
        for name in ("key", "host"):
            run("ssh-keygen", "-q", "-t", "ed25519", "-N", "", "-f", f"{work}/{name}")
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            self.port = probe.getsockname()[1]
        self.start()

    def start(self):
        path = shutil.which("sshd") or "/usr/sbin/sshd"
        options = [f"AuthorizedKeysFile={self.key}.pub", "ListenAddress=127.0.0.1", "StrictModes=no", "UsePAM=no",
                   "PermitRootLogin=yes", "PidFile=none", "Subsystem=sftp internal-sftp"]
        self.process = started(path, "-D", "-f", "/dev/null", "-h", f"{self.work}/host", "-p", str(self.port),
                               *(f"-o{option}" for option in options))
        wait_for(self.answers, "the SSH server does not answer")

    def answers(self):
        with socket.socket() as probe:
            return probe.connect_ex(("127.0.0.1", self.port)) == 0

    def signal(self, number):
        """Sends a signal to the server and to every process that serves a connection."""
        for process in [self.process.pid, *descendants(self.process.pid)]:
            with contextlib.suppress(ProcessLookupError):
                os.kill(process, number)

    def stop(self):
        self.signal(signal.SIGKILL)
        self.process.wait()


def descendants(process):
    """The processes that a process has started, and those that these have started."""
    children = []
    for entry in filter(str.isdigit, os.listdir("/proc")):
        with contextlib.suppress(FileNotFoundError, ProcessLookupError):
            with open(f"/proc/{entry}/stat", encoding="utf-8", errors="replace") as file:
                parent = file.read().rpartition(")")[2].split()[1]
            if int(parent) == process:
                children.append(int(entry))
    return children + [each for child in children for each in descendants(child)]
