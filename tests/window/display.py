"""A display with a window manager and an accessibility bus, and the keyboard in front of it."""

import atexit
import os
import pathlib
import struct
import subprocess
import tempfile
import time
import zlib

from gi.repository import Gio, GLib

LIMIT = 45  # seconds; nothing here takes as long, also on a busy machine
PAUSE = 0.03


def wait_for(what, condition, limit=LIMIT):
    """Waits for the condition and returns its first true value. Controls may come and go
    meanwhile."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        try:
            value = condition()
            if value:
                return value
        except GLib.Error:
            pass
        time.sleep(PAUSE)
    raise AssertionError(f"waited in vain for {what}")


def output_of(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=LIMIT).stdout


_in_use = None  # the display in front of which the tests sit


def use(display):
    """From now on, keys go to that display."""
    global _in_use
    _in_use = display


def keys(*names):
    _in_use.keys(*names)


def type_text(text):
    _in_use.type_text(text)


def active_title():
    """The title of the window that has the keyboard; empty when there is none."""
    return _in_use.active_title()


def png(width, height, rows):
    """A picture of rows of red, green and blue bytes."""
    def chunk(name, data):
        return (struct.pack(">I", len(data)) + name + data
                + struct.pack(">I", zlib.crc32(name + data)))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    data = zlib.compress(b"".join(b"\0" + row for row in rows), 1)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", data)
            + chunk(b"IEND", b""))


def start_accessibility():
    """The accessibility bus. It is up before any program starts: a program that finds no bus may
    never appear on it."""
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address, = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress",
                                 None, GLib.VariantType("(s)"), Gio.DBusCallFlags.NONE,
                                 LIMIT * 1000)
    bus = Gio.DBusConnection.new_for_address_sync(
        address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
        | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    bus.call_sync("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root",
                  "org.freedesktop.DBus.Peer", "Ping", None, None, Gio.DBusCallFlags.NONE,
                  LIMIT * 1000)


class Display:
    """An X server with a window manager, and an accessibility bus."""

    environment = {"QT_QPA_PLATFORM": "xcb"}  # of the programs on it

    def __init__(self, *options):
        """The options go to the server."""
        self.memory = tempfile.TemporaryDirectory(prefix="repvolta-display-")
        read, write = os.pipe()
        # Without -noreset the server begins anew whenever its last client has gone, and refuses the
        # window manager if that comes just then.
        self.server = subprocess.Popen(
            ["Xvfb", "-noreset", "-displayfd", str(write), "-screen", "0", "1400x1000x24",
             "-fbdir", self.memory.name, *options], pass_fds=[write], stderr=subprocess.DEVNULL)
        atexit.register(self.close)
        os.close(write)
        with os.fdopen(read) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        wait_for("the window manager", lambda: "window id" in output_of(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK"))
        start_accessibility()
        use(self)

    def keys(self, *names):
        output_of("xdotool", "key", "--clearmodifiers", *names)

    def type_text(self, text):
        output_of("xdotool", "type", "--delay", "2", "--", text)

    def active_title(self):
        run = subprocess.run(["xdotool", "getwindowfocus", "getwindowname"], capture_output=True,
                             text=True, timeout=LIMIT)
        return run.stdout.rstrip("\n")

    def picture(self, path):
        """Writes what is on the screen to a PNG file. The server keeps it as a window dump."""
        dump = (pathlib.Path(self.memory.name) / "Xvfb_screen0").read_bytes()
        header = struct.unpack(">25I", dump[:100])
        start, width, height, line = header[0] + 12 * header[19], header[4], header[5], header[12]
        rows = []
        for y in range(height):
            blue_first = dump[start + y * line:start + y * line + 4 * width]
            row = bytearray(3 * width)
            row[0::3], row[1::3], row[2::3] = blue_first[2::4], blue_first[1::4], blue_first[0::4]
            rows.append(bytes(row))
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(png(width, height, rows))

    def close(self):
        for process in (self.manager, self.server):
            process.kill()
            process.wait(LIMIT)
        self.memory.cleanup()
