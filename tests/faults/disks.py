"""Real file systems, each in a folder of its own: kernel ones and FUSE on images, sshfs on a server of its own.

Each needs root and its packages (the group "disks" of the package list). What cannot be had raises Unavailable with the
reason.
"""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile

from loopback_server import Server
from processes import PATIENCE, Unavailable, run, started, wait_for
from rename_case import verdict
from traced import SKIPPED

MADE_BY = {
    "ext4": (64, ["mkfs.ext4", "-q", "-i", "4096"]),
    "xfs": (300, ["mkfs.xfs", "-q"]),
    "btrfs": (128, ["mkfs.btrfs", "-q"]),
    "exfat": (64, ["mkfs.exfat"]),
    "ntfs": (64, ["mkfs.ntfs", "-F", "-Q", "-q"]),
}
CHECKED_BY = {
    "exfat": ["fsck.exfat", "-n"],
    "ntfs": ["ntfsfix", "-n"],
}

REPAIRED_BY = {"exfat": ["fsck.exfat", "-y"], "ntfs": ["ntfsfix", "-d"]}


class Disk:
    """The file system `name`, with all its files in the folder `work`. It is used at `folder` while mounted."""

    def __init__(self, name, work):
        self.name, self.work, self.folder = name, work, f"{work}/{name}"
        self.image, self.options = f"{work}/{name}.image", []
        self.server = self.process = self.device = None
        os.makedirs(self.folder, exist_ok=True)
        self.make()

    def make(self):
        """Makes the file system on its image anew, empty."""
        if self.name in MADE_BY:
            megabytes, command = MADE_BY[self.name]
            with open(self.image, "wb") as file:
                file.truncate(megabytes << 20)
            run(*command, self.image)

    @contextlib.contextmanager
    def mounted(self):
        self.mount()
        try:
            yield self.folder
        finally:
            self.unmount()

    def mount(self):
        getattr(self, f"mount_{self.name}", self.mount_image)()
        if self.process:
            wait_for(lambda: os.path.ismount(self.folder) or self.process.poll() is not None, "it was never mounted")
            if self.process.poll() is not None:
                raise Unavailable(f"{self.process.args[0]} ended with {self.process.returncode}")

    def unmount(self):
        try:
            run("umount", self.folder)
        except Unavailable:
            if os.path.ismount(self.folder):  # sshfs unmounts itself when its server dies
                raise
        if self.name == "sshfs":
            self.process.kill()  # everything is on the server; without one, its process waits for a connection
        # A file system in a process of its own may go on writing after the unmount. The image is whole when it ends.
        self.end_process()
        if self.name == "overlay":
            run("umount", f"{self.work}/under")

    def kill(self):
        """Kills the file system's own process, as a crash would. Everything in the folder then fails."""
        self.process.kill()
        self.process.wait()

    def forget(self):
        """Lets the mounted file system forget every item that no program uses at the moment."""
        run("mount", "--internal-only", "-o", "remount", self.folder)

    def end_process(self):
        if self.process:
            self.process.wait(PATIENCE)
            self.process = None
        if self.device:
            run("losetup", "-d", self.device)
            self.device = None

    def check(self):
        """What is wrong with the unmounted image, in the words of the file system's own checker, or None."""
        try:
            run(*CHECKED_BY[self.name], self.image)
        except Unavailable as damage:
            return str(damage)
        return None

    def repair(self):
        """Lets the file system's own repairer put the image right, as far as it can."""
        subprocess.run([*REPAIRED_BY[self.name], self.image], check=False, stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def mount_image(self):
        run("mount", "-o", ",".join(["loop", *self.options]), "-t", self.name, self.image, self.folder)

    def mount_exfat(self):
        self.device = run("losetup", "-f", "--show", self.image)
        # Without -d its process would go on in the background, out of reach.
        self.process = started("mount.exfat-fuse", "-d", self.device, self.folder)

    def mount_ntfs(self):
        self.process = started("ntfs-3g", "-o", "no_detach", self.image, self.folder)

    def mount_tmpfs(self):
        run("mount", "-t", "tmpfs", "none", self.folder)

    def mount_overlay(self):
        layers = [f"{self.work}/under/{layer}" for layer in ("lower", "upper", "work")]
        os.makedirs(f"{self.work}/under", exist_ok=True)
        if not os.path.exists(self.image):
            with open(self.image, "wb") as file:
                file.truncate(32 << 20)
            run("mkfs.ext4", "-q", self.image)
        run("mount", "-o", "loop", self.image, f"{self.work}/under")
        for layer in layers:
            os.makedirs(layer, exist_ok=True)
        run("mount", "-t", "overlay", "none", self.folder, "-o", "lowerdir={},upperdir={},workdir={}".format(*layers))

    def mount_bindfs(self):
        os.makedirs(f"{self.work}/bound", exist_ok=True)
        self.process = started("bindfs", "-f", f"{self.work}/bound", self.folder)

    def mount_sshfs(self):
        self.server = self.server or Server(self.work)
        known = [f"IdentityFile={self.server.key}", f"Port={self.server.port}", "IdentitiesOnly=yes",
                 "StrictHostKeyChecking=no", "UserKnownHostsFile=/dev/null"]
        options = ",".join([*known, "allow_other", "default_permissions", *self.options])
        self.process = started("sshfs", "-f", "-F", "/dev/null", "-o", options, f"127.0.0.1:{self.work}/served",
                               self.folder)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if os.path.ismount(self.folder):
            subprocess.run(["umount", "-l", self.folder], check=False)
        if self.process:
            self.process.kill()
            self.end_process()
        if self.server:
            self.server.stop()


def report(name, tried):
    """Ends the driver with the verdict on what `tried` finds, given a folder for its disks. Where `name` cannot be had,
    says why and is skipped."""
    work = tempfile.mkdtemp(prefix="tarvolt-disks-")
    try:
        verdict(*tried(work))
    except Unavailable as reason:
        print(f"skipped: {name} cannot be had here ({reason})")
        sys.exit(SKIPPED)
    finally:
        shutil.rmtree(work)
