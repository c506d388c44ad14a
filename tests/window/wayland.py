"""Wayland compositors without a screen, each with an accessibility bus. Programs on them can neither
place their windows nor take the keyboard from others."""

import atexit
import json
import os
import pathlib
import shutil
import subprocess
import tempfile

from display import LIMIT, output_of, start_accessibility, use, wait_for
from wayland_wire import VirtualMouse

NOBODY = 65534  # whose right to nothing a compositor needs that does not run for the superuser

SIZE = (1400, 1000)  # of the screens
SWAY_SETTINGS = """
xwayland disable
default_border none
output HEADLESS-1 resolution 1400x1000
for_window [app_id=".*"] floating enable
# A window whose program brings the leave to do so comes to the front, as in most desktops.
focus_on_window_activation smart
"""


class Compositor:
    """A running compositor and what the programs on it need to find it."""

    def __init__(self, command, environment=None, as_nobody=False):
        """Starts the command, whose folder for its socket is `self.folder`."""
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="repvolta-wayland-"))
        if as_nobody and os.geteuid() == 0:
            os.chown(self.folder, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups",
                       *command]
        self.process = subprocess.Popen(
            command, cwd="/", stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
            env=dict(os.environ, XDG_RUNTIME_DIR=str(self.folder), **(environment or {})))
        atexit.register(self.close)
        socket = wait_for("the compositor", lambda: [
            path for path in self.folder.glob("wayland-*") if path.is_socket()])[0]
        self.environment = {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": str(socket),
                            "DISPLAY": ""}
        start_accessibility()
        use(self)

    def close(self):
        self.process.kill()
        self.process.wait(LIMIT)
        shutil.rmtree(self.folder)


class Weston(Compositor):
    """The reference compositor. Without a screen it has no keyboard and no mouse either: only
    assistive programs can use the windows."""

    def __init__(self):
        super().__init__(["weston", "--backend=headless-backend.so", "--no-config",
                          f"--width={SIZE[0]}", f"--height={SIZE[1]}", "--idle-time=0",
                          "--socket=wayland-1"])
        # Qt 6.4 ends with a fault when it asks for the input method of a keyboard that is not
        # there, for every program with a field to type into.
        self.environment["QT_IM_MODULE"] = "compose"

    def active_title(self):
        return ""  # nobody has the keyboard

    def picture(self, _path):
        """Only a compositor with its debugging switched on gives one away."""


class Sway(Compositor):
    """A compositor whose keyboard is typed on, and whose mouse is moved, by programs."""

    def __init__(self):
        with tempfile.NamedTemporaryFile("w", suffix=".conf") as settings:
            settings.write(SWAY_SETTINGS)
            settings.flush()
            os.chmod(settings.name, 0o644)
            super().__init__(["sway", "--config", settings.name],
                             {"WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman",
                              "WLR_LIBINPUT_NO_DEVICES": "1"}, as_nobody=True)
            self.ipc = wait_for("the compositor's commands",
                                lambda: list(self.folder.glob("sway-ipc.*")))[0]
            self.command("-t", "get_version")  # it has read its settings
        # A keyboard and a mouse that stay: a program notices one too late for its first key.
        self.keyboard = subprocess.Popen(["wtype", "-s", str(24 * 3600 * 1000)],
                                         env=dict(os.environ, **self.environment))
        self.mouse = VirtualMouse(self.environment["WAYLAND_DISPLAY"], *SIZE)
        wait_for("the keyboard and the mouse", lambda: self.command("-t", "get_seats").count(
            '"type"') >= 2)

    def close(self):
        self.keyboard.kill()
        self.keyboard.wait(LIMIT)
        self.mouse.close()
        super().close()

    def command(self, *words):
        return output_of("swaymsg", "--socket", str(self.ipc), *words)

    def _windows(self, node=None):
        node = node or json.loads(self.command("-t", "get_tree"))
        if node.get("pid"):
            yield node
        for child in node["nodes"] + node["floating_nodes"]:
            yield from self._windows(child)

    def window(self, title):
        """What the compositor knows of the window with that title; None when there is none."""
        return next((node for node in self._windows() if node["name"] == title), None)

    def active_title(self):
        return next((node["name"] for node in self._windows() if node["focused"]), "")

    def _type(self, *words):
        subprocess.run(["wtype", *words], env=dict(os.environ, **self.environment), check=True,
                       capture_output=True, timeout=LIMIT)

    def keys(self, *names):
        for name in names:
            *held, key = name.split("+")
            self._type(*(word for one in held for word in ("-M", one)), "-k", key,
                       *(word for one in held for word in ("-m", one)))

    def type_text(self, text):
        self._type("-d", "2", "--", text)

    def place(self, title, x, y):
        self.command(f'[title="^{title}$"] move absolute position {x} {y}')

    def picture(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run(["grim", str(path)], env=dict(os.environ, **self.environment), check=True,
                       timeout=LIMIT)
