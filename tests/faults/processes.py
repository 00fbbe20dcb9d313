"""Running commands that a file system needs, and waiting for what they bring about."""

import subprocess
import time

PATIENCE = 20  # seconds until a mount or a server counts as failed


class Unavailable(Exception):
    """Why a file system cannot be had on this machine."""


def run(*command):
    """Runs a command to its end. Raises Unavailable, with what it printed, if it fails."""
    try:
        result = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    except FileNotFoundError as missing:
        raise Unavailable(str(missing)) from missing
    if result.returncode != 0:
        raise Unavailable(f"{' '.join(command)}: {result.stdout.decode(errors='replace').strip()}")
    return result.stdout.decode(errors="replace").strip()


def started(*command):
    """The process of a command that goes on. Raises Unavailable if there is no such program."""
    try:
        return subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                start_new_session=True)
    except FileNotFoundError as missing:
        raise Unavailable(str(missing)) from missing


def wait_for(fact, what):
    end = time.monotonic() + PATIENCE
    while not fact():
        if time.monotonic() > end:
            raise Unavailable(what)
        time.sleep(0.01)
