"""Makes the program wait in a system call when a test wants it to. Needs the library of holding_shim.cpp."""

import errno
import os

# The words in front of the program's path that preload the library, by the link that case.py makes to it: the path of a
# preloaded library cannot contain a space.
before = ("env", "LD_PRELOAD=../holding_shim.so")


class Hold:
    """From now on holds each call of this kind on a folder: "listing" or "fsync"."""

    def __init__(self, folder, call):
        self.path = folder / f".hold-{call}"
        os.mkfifo(self.path)
        self.pipe = None

    def reached(self):
        """Whether the program waits in such a call. Wait for this before `release`."""
        try:
            self.pipe = os.open(self.path, os.O_WRONLY | os.O_NONBLOCK)
        except OSError as error:
            if error.errno != errno.ENXIO:
                raise
        return self.pipe is not None

    def release(self):
        """Lets the waiting call and all later ones go on."""
        self.path.unlink()
        os.close(self.pipe)
