"""A fresh Debian tree, where nothing else is installed, with an ordinary user in it."""

import os
import pathlib
import shutil
import subprocess

HOME = "/home/tester"
DATA = HOME + "/.local/share/repvolta"
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


def package_sources():
    """This machine's list of package sources, which is in one of two places."""
    places = ["/etc/apt/sources.list.d/debian.sources", "/etc/apt/sources.list"]
    return [place for place in places if os.path.exists(place) and os.path.getsize(place)][-1:]


class Tree:
    """Paths of the tree are written as its programs see them. Its mounts end with this process."""

    def __init__(self, work):
        self.root = work / "root"
        self._make_base(work / "base", work / "base.done")
        shutil.rmtree(self.root, ignore_errors=True)
        run("cp", "-a", work / "base", self.root)
        shutil.copy("/etc/resolv.conf", self.path("/etc/resolv.conf"))
        run("mount", "-t", "proc", "proc", self.path("/proc"))
        self.as_root("useradd", "--create-home", "--shell", "/bin/bash", "tester")
        self.as_root("install", "--directory", "--owner=tester", "--mode=0700", "/run/tester")
        self.path("/tmp/.X11-unix").mkdir(exist_ok=True)

    @staticmethod
    def _make_base(base, done):
        """Makes the base tree, which is kept between runs."""
        if not done.exists():
            shutil.rmtree(base, ignore_errors=True)
            base.parent.mkdir(parents=True, exist_ok=True)
            run("mmdebstrap", "--quiet", "--variant=minbase", "bookworm", base, *package_sources())
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
