"""Reads the play time of every MP3 file below a folder with mutagen; prints the seconds it took."""

import pathlib
import sys
import time

from mutagen.mp3 import MP3

files = sorted(str(path) for path in pathlib.Path(sys.argv[1]).rglob("*.mp3"))
start = time.monotonic()
total = sum(MP3(path).info.length for path in files)
print(time.monotonic() - start, total)
