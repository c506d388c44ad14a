"""Runs tests as the first process of their name spaces: main.py [test...], without tests only a
trial of mounting. Its end ends all programs there, and it ends with its standard input."""

import os
import pathlib
import re
import select
import signal
import sys
import threading
import unittest

from file_systems import KINDS

REFUSED = 77
TOO_LONG = 124
LIMIT = int(os.environ.get("REPVOLTA_LIMIT", "300"))  # seconds


def end_with_input():
    """Ends everything when the script that holds our input has ended, or after LIMIT."""
    ended, _, _ = select.select([sys.stdin], [], [], LIMIT)
    if not ended:
        print(f"the tests take more than {LIMIT} seconds", flush=True)
    # First the file systems: who waits for one of them could not end.
    os.kill(-1, signal.SIGKILL)
    os._exit(TOO_LONG)


def try_to_mount(kind, work):
    """Ends with REFUSED when this machine does not let this user mount such a file system."""
    player = KINDS[kind](work)
    try:
        player.plug_in()
    except (AssertionError, OSError) as failure:
        if re.search("not permitted|denied|/dev/loop", str(failure), re.IGNORECASE):
            print(str(failure).splitlines()[-1])
            sys.exit(REFUSED)
        raise
    player.end()


if __name__ == "__main__":
    threading.Thread(target=end_with_input, daemon=True).start()
    if len(sys.argv) == 1:
        try_to_mount(os.environ["REPVOLTA_PLAYER"], pathlib.Path(os.environ["REPVOLTA_WORK"]))
    else:
        unittest.main(module=None, verbosity=2)
