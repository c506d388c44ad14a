"""Copies songs and tags the copies with mutagen; prints the seconds it took.

    tag_files.py FOLDER TARGET
"""

import pathlib
import shutil
import sys
import time

from mutagen import id3

start = time.monotonic()
for song in sorted(pathlib.Path(sys.argv[1]).glob("*.mp3")):
    copy = pathlib.Path(sys.argv[2]) / song.name
    shutil.copyfile(song, copy)
    tag = id3.ID3()
    tag.add(id3.TPE1(encoding=0, text="Repvolta"))
    tag.add(id3.TALB(encoding=0, text="Monday.RPV"))
    tag.add(id3.TIT2(encoding=0, text="RV002- Squats, 3 sets"))
    tag.add(id3.TRCK(encoding=0, text="0"))
    tag.save(copy)
print(time.monotonic() - start)
