"""Makes the program wait in the kernel where a test wants it to; needs the library of holding_shim.cpp before it."""

import errno
import os

# The words in front of the program's path that put the library before it, by the link that case.py makes to it: the
# path of a library to preload can hold no blank.
before = ("env", "LD_PRELOAD=../holding_shim.so")


class Hold:
    """Holds each such call on a folder from now on: "listing" or "fsync"."""

    def __init__(self, folder, call):
        self.path = folder / f".hold-{call}"
        os.mkfifo(self.path)
        self.pipe = None

    def reached(self):
        """Whether the program waits there; to be waited for before `release`."""
        try:
            self.pipe = os.open(self.path, os.O_WRONLY | os.O_NONBLOCK)
        except OSError as error:
            if error.errno != errno.ENXIO:
                raise
        return self.pipe is not None

    def release(self):
        """Lets the waiting call go on, and every later one pass."""
        self.path.unlink()
        os.close(self.pipe)
