"""A fresh Debian tree, where nothing else is installed, with an ordinary user in it."""

import os
import pathlib
import platform
import shutil
import subprocess

HOME = "/home/tester"
DATA = HOME + "/.local/share/repvolta"
# Where this machine's list of package sources is: in one of them.
SOURCES = [pathlib.Path("/etc/apt/sources.list"), pathlib.Path("/etc/apt/sources.list.d/debian.sources")]
LIMIT = 900  # seconds; packages come over the net

ROOT_ENVIRONMENT = ["PATH=/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND=noninteractive",
                    "LC_ALL=C.UTF-8"]
USER_ENVIRONMENT = [f"HOME={HOME}", "USER=tester", "LC_ALL=C.UTF-8", "XDG_RUNTIME_DIR=/run/tester",
                    "PATH=/usr/local/bin:/usr/bin:/bin"]


def run(*command, status=0):
    """The output of a command. Fails, and shows the output, when the exit status differs."""
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=LIMIT)
    assert done.returncode == status, (
        f"{command} ended with {done.returncode} instead of {status}:\n{done.stdout[-3000:]}")
    return done.stdout


def own_release():
    """The code name of this machine's release of Debian."""
    return platform.freedesktop_os_release()["VERSION_CODENAME"]


def package_sources(release, folder):
    """This machine's list of package sources, made one of that release: a file in the folder, or
    none."""
    for place in SOURCES:
        if place.exists() and place.stat().st_size:
            copy = folder / place.name
            copy.write_text(place.read_text(encoding="utf-8").replace(own_release(), release),
                            encoding="utf-8")
            return [copy]
    return []


class Tree:
    """A tree of a release, by default this machine's. Paths of the tree are written as its programs
    see them. Its mounts end with this process, which must have mounts of its own."""

    def __init__(self, work, release=None):
        self.root = work / "root"
        self._make_base(work, release or own_release())
        run("rm", "-rf", "--one-file-system", self.root)
        run("cp", "-a", work / "base", self.root)
        # As on a computer, the root is a mount.
        run("mount", "--bind", self.root, self.root)
        shutil.copy("/etc/resolv.conf", self.path("/etc/resolv.conf"))
        run("mount", "-t", "proc", "proc", self.path("/proc"))
        self.as_root("useradd", "--create-home", "--shell", "/bin/bash", "tester")
        self.as_root("install", "--directory", "--owner=tester", "--mode=0700", "/run/tester")
        self.path("/tmp/.X11-unix").mkdir(exist_ok=True)

    @staticmethod
    def _make_base(work, release):
        """Makes the base tree, which is kept between runs. What is installed need not survive a
        power cut, so nothing waits for the disk."""
        base, done = work / "base", work / "base.done"
        if not done.exists():
            shutil.rmtree(base, ignore_errors=True)
            work.mkdir(parents=True, exist_ok=True)
            run("mmdebstrap", "--quiet", "--variant=minbase", "--dpkgopt=force-unsafe-io", release,
                base, *package_sources(release, work))
            done.touch()

    def share_display(self):
        run("mount", "--bind", "/tmp/.X11-unix", self.path("/tmp/.X11-unix"))

    def path(self, name):
        """This machine's path of a path of the tree."""
        return self.root / name.lstrip("/")

    def has(self, name):
        return os.path.lexists(self.path(name))

    def as_root(self, *command):
        return run("chroot", self.root, "/usr/bin/env", "-i", *ROOT_ENVIRONMENT, *command)

    def _entrance(self):
        return ["chroot", "--userspec=tester:tester", self.root, "/usr/bin/env", "-i",
                *USER_ENVIRONMENT]

    def as_user(self, *command, status=0):
        return run(*self._entrance(), *command, status=status)

    def start(self, *command):
        """Starts a program as the user on the display; NAME=VALUE may precede it."""
        return subprocess.Popen([*self._entrance(), "DISPLAY=" + os.environ["DISPLAY"], *command],
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def install(self, *packages):
        """Installs packages, by name or by path in the tree, without recommended ones."""
        self.as_root("apt-get", "install", "-y", "-qq", "--no-install-recommends", *packages)

    def put(self, file, name):
        """Copies a file of this machine into the tree."""
        shutil.copy(file, self.path(name))

    def snapshot(self, name, without=()):
        """Everything below a folder: each file's content, each link's target. Folders to skip are
        given by their path below it."""
        found = {}
        top = self.path(name)
        for folder, folders, files in os.walk(top):
            place = pathlib.Path(folder)
            folders[:] = [one for one in folders if str((place / one).relative_to(top)) not in without]
            for one in folders + files:
                path = place / one
                found[str(path.relative_to(top))] = (
                    os.readlink(path) if path.is_symlink() else
                    path.read_bytes() if path.is_file() else None)
        return found
