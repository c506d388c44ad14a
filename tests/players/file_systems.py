"""The file systems of players: each is made anew in a file, mounted at a folder, pulled out and
plugged in again."""

import errno
import fcntl
import functools
import os
import pathlib
import signal
import struct
import subprocess
import time

LIMIT = 30  # seconds; nothing here takes as long, also on a busy machine
PAUSE = 0.01
MEBIBYTE = 1024 * 1024


def wait_for(what, condition):
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(PAUSE)
    raise AssertionError(f"waited in vain for {what}")


def run(*command):
    """The output of a command that must succeed."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, text=True,
                          timeout=LIMIT, check=False)
    assert done.returncode == 0, f"{command} ended with {done.returncode}:\n{done.stdout}"
    return done.stdout


def command_lines():
    """The words with which each running program was started, by its number."""
    found = {}
    for entry in pathlib.Path("/proc").glob("[0-9]*/cmdline"):
        try:
            words = entry.read_bytes().split(b"\0")[:-1]
        except OSError:
            continue  # it has just ended
        if words:
            found[int(entry.parent.name)] = [os.fsdecode(word) for word in words]
    return found


def loop_device(image):
    """A device with the image's content, opened. It ends by itself when nobody has it open, even
    when this program is killed, which `losetup` cannot promise."""
    get_free, configure, autoclear = 0x4C82, 0x4C0A, 4  # of linux/loop.h
    offset_of_flags, size = 8 + 52, 304
    with open("/dev/loop-control", "rb") as control, open(image, "r+b") as file:
        while True:
            device = open(f"/dev/loop{fcntl.ioctl(control, get_free)}", "r+b", buffering=0)
            settings = struct.pack("=I", file.fileno()).ljust(offset_of_flags, b"\0")
            settings += struct.pack("=I", autoclear)
            try:
                fcntl.ioctl(device, configure, settings.ljust(size, b"\0"))
                return device
            except OSError as error:
                device.close()
                if error.errno != errno.EBUSY:  # another process was quicker
                    raise


class Player:
    """A file system with `size` bytes for a player, mounted at `folder` once it is plugged in."""

    program = None  # which serves the file system
    full = errno.ENOSPC  # what it answers when it is full

    def __init__(self, work, size=24 * MEBIBYTE, name="player"):
        self.folder = work / name
        self.image = work / f"{name}.image"
        self.size = size
        self.folder.mkdir()
        self.format()

    def format(self):
        with open(self.image, "wb") as image:
            image.truncate(self.size)
        self.make_file_system()

    def make_file_system(self):
        raise NotImplementedError

    def mount(self, options):
        raise NotImplementedError

    def plug_in(self, *options):
        """`options`: "ro" for a player that is locked."""
        self.mount(options)
        wait_for(f"{self.folder} to be mounted", self.is_mounted)

    def is_mounted(self, folder=None):
        with open("/proc/self/mountinfo", encoding="utf-8") as mounts:
            return any(line.split()[4] == str(folder or self.folder) for line in mounts)

    def servers(self):
        """The numbers of the processes that serve the file system."""
        return [number for number, words in command_lines().items()
                if os.path.basename(words[0]) == self.program and str(self.folder) in words]

    def unplug(self):
        """Unmounts it, as a person does who waits for it; again is no fault."""
        if self.is_mounted():
            run("umount", self.folder)
        wait_for("the file system to be written", lambda: not self.servers())

    def pull_out(self):
        """The file system dies at once, in the middle of whatever it does."""
        for number in self.servers():
            os.kill(number, signal.SIGKILL)

    def pull_out_command(self):
        """The same for a shell script."""
        return "kill -KILL " + " ".join(map(str, self.servers()))

    def clear_away(self):
        """Ends the mount of a file system that has died."""
        if self.is_mounted():
            run("umount", "--lazy", self.folder)
        wait_for("the file system to end", lambda: not self.servers())

    def end(self):
        self.pull_out()
        self.clear_away()

    def room(self):
        """The bytes that can be written."""
        path = self.folder / "filling"
        written = 0
        try:
            with open(path, "wb", buffering=0) as file:
                while True:
                    written += file.write(bytes(65536))
        except OSError as error:
            if error.errno != self.full:
                raise
        path.unlink()
        return written

    def fill(self, leaving):
        """Fills the player with photos up to so many bytes."""
        size = self.room() - leaving
        with open(self.folder / "photos", "wb", buffering=0) as file:
            while size > 0:
                size -= file.write(bytes(min(size, 65536)))

    def make_room(self):
        (self.folder / "photos").unlink()

    def takes(self, name):
        """True when a file can have just this name here."""
        place = self.folder / "names"
        place.mkdir(exist_ok=True)
        try:
            (place / name).write_bytes(b"")
        except (OSError, ValueError):
            taken = False
        else:
            taken = self.holds(place, name)
        for entry in list(place.iterdir()):
            entry.unlink()
        place.rmdir()
        return taken

    def holds(self, place, name):
        """Whether the only file of the folder has that name."""
        return os.listdir(place) == [name]


class ExFat(Player):
    program = "mount.exfat-fuse"

    def make_file_system(self):
        run("mkfs.exfat", "-c", "4096", self.image)

    def mount(self, options):
        # It stays until the file system lets go of it.
        with loop_device(self.image) as device:
            run("mount.exfat-fuse", "-o", ",".join([*options, "noatime"]), device.name, self.folder)


class Ntfs(Player):
    program = "ntfs-3g"

    def make_file_system(self):
        run("mkfs.ntfs", "--force", "--quick", "--quiet", self.image)

    def mount(self, options):
        run("ntfs-3g", "-o", ",".join([*options, "windows_names"]), self.image, self.folder)


@functools.cache
def is_newer_fusefat():
    """True for fusefat 0.3, which is another program than 0.1a: Debian 13 has it, not Debian 12."""
    told = subprocess.run(["fusefat", "-V"], stdin=subprocess.DEVNULL, capture_output=True,
                          timeout=LIMIT, check=False)
    return b"fusefatfs version" in told.stdout + told.stderr


class Fat(Player):
    """It lies in memory, because fusefat 0.3 writes each sector to the disk before the next."""

    program = "fusefat"

    def __init__(self, work, size=24 * MEBIBYTE, name="player"):
        self.memory = os.memfd_create(name)
        self.full = errno.EIO if is_newer_fusefat() else errno.EPERM
        super().__init__(work, size, name)

    def format(self):
        self.image = pathlib.Path(f"/proc/{os.getpid()}/fd/{self.memory}")
        super().format()

    def make_file_system(self):
        run("mkfs.vfat", self.image)

    def mount(self, options):
        command = ["fusefat"]
        if is_newer_fusefat():
            # After a `mkdir` that fails (a full disk, a name with a backslash) it keeps its lock,
            # and who touches the disk next waits for ever, also with -s alone.
            library = pathlib.Path(os.environ["REPVOLTA_BUILD"]) / "tests/libwithout_locks.so"
            assert library.is_file(), f"{library} is not built"
            command = ["env", f"LD_PRELOAD={library}", *command, "-s"]
        run(*command, "-o", ",".join(options) or "rw+", self.image, self.folder)

    def end(self):
        super().end()
        os.close(self.memory)

    def holds(self, place, name):
        # It stores 255 characters, but lists a name of more than 255 bytes by its short one.
        return super().holds(place, name) or (len(name.encode()) > 255 and (place / name).exists())


class Mtp(Player):
    """It keeps its files in memory: what is unplugged is hidden."""

    program = "mtp_like"

    def __init__(self, work, size=24 * MEBIBYTE, name="player", habits=()):
        self.habits = habits
        self.server = None
        self.away = work / f"{name}.away"
        self.away.mkdir()
        super().__init__(work, size, name)

    def format(self):
        pass

    def mount(self, options):
        if self.server is None:
            program = pathlib.Path(os.environ["REPVOLTA_BUILD"]) / "tests/mtp_like"
            self.server = subprocess.Popen([program, self.folder, f"--full-at={self.size}",
                                            *self.habits])
            wait_for(f"{self.folder} to be mounted", self.is_mounted)
        else:
            if not self.is_mounted():
                run("mount", "--move", self.away, self.folder)
            self.server.send_signal(signal.SIGUSR1)
        run("mount", "-o", ",".join(["remount", "bind", *(options or ["rw"])]), self.folder)

    def unplug(self):
        if self.is_mounted():
            run("mount", "--move", self.folder, self.away)

    def pull_out(self):
        self.server.send_signal(signal.SIGUSR2)

    def pull_out_command(self):
        return f"kill -USR2 {self.server.pid}"

    def clear_away(self):
        pass

    def end(self):
        for folder in (self.folder, self.away):
            if self.is_mounted(folder):
                run("umount", "--lazy", folder)
        self.server.wait(LIMIT)

    def room(self):
        return self.size - sum(file.stat().st_size for file in self.folder.rglob("*"))


KINDS = {"exfat": ExFat, "ntfs": Ntfs, "fat": Fat, "mtp": Mtp}
