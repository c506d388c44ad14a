"""A few requests to a Wayland compositor that no packaged command makes: a mouse that a program
moves, and a menu of programs, which gets leave to come to the front for what it starts."""

import os
import socket
import struct
import time

from display import LIMIT

DISPLAY, REGISTRY, SYNC = 1, 2, 3  # the first objects of each connection
LEFT_BUTTON = 0x110


def number(*values):
    return struct.pack(f"={len(values)}I", *values)


def text(value):
    data = value.encode() + b"\0"
    return number(len(data)) + data + bytes(-len(data) % 4)


def text_in(arguments):
    length, = struct.unpack("=I", arguments[:4])
    return arguments[4:3 + length].decode()


class Connection:
    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.settimeout(LIMIT)
        self.socket.connect(path)
        self.events = self.socket.makefile("rb")
        self.newest = SYNC
        self.send(DISPLAY, 1, number(REGISTRY))
        self.send(DISPLAY, 0, number(SYNC))
        self.offered = {}
        while (event := self.event())[0] != SYNC:
            if event[0] == REGISTRY:
                self.offered[text_in(event[1][4:])] = event[1][:4]

    def send(self, target, request, arguments=b"", files=()):
        words = number(target, (8 + len(arguments)) << 16 | request) + arguments
        socket.send_fds(self.socket, [words], files)

    def event(self):
        """The next event: whose it is, its arguments, and which of the object's events it is."""
        target, size = struct.unpack("=II", self.events.read(8))
        return target, self.events.read((size >> 16) - 8), size & 0xFFFF

    def await_event(self, target, kind=0):
        """The arguments of the object's next event of that kind."""
        while (event := self.event())[0::2] != (target, kind):
            pass
        return event[1]

    def new(self):
        self.newest += 1
        return self.newest

    def bind(self, interface):
        """An object of the interface, in its first version."""
        bound = self.new()
        self.send(REGISTRY, 0, self.offered[interface] + text(interface) + number(1, bound))
        return bound

    def ask(self, target, request, *numbers, files=()):
        """The new object that a request makes whose first argument it is."""
        made = self.new()
        self.send(target, request, number(made, *numbers), files)
        return made

    def close(self):
        self.events.close()
        self.socket.close()


class VirtualMouse:
    def __init__(self, path, width, height):
        """A mouse at the compositor with that socket and a screen of that size."""
        self.size = (width, height)
        self.connection = Connection(path)
        manager = self.connection.bind("zwlr_virtual_pointer_manager_v1")
        self.pointer = self.connection.new()
        self.connection.send(manager, 0, number(0, self.pointer))

    def _do(self, request, *numbers):
        moment = int(time.monotonic() * 1000) & 0xFFFFFFFF
        self.connection.send(self.pointer, request, number(moment, *numbers))
        self.connection.send(self.pointer, 4)  # all of it has been said

    def move(self, x, y):
        self._do(1, x, y, *self.size)

    def press(self):
        self._do(2, LEFT_BUTTON, 1)

    def release(self):
        self._do(2, LEFT_BUTTON, 0)

    def close(self):
        self.connection.close()


class Menu:
    """A desktop's menu of programs: a window that has the keyboard. Compositors give the leave to
    come to the front only for a key or a click in such a window."""

    SIDE = 100

    def __init__(self, path):
        self.connection = Connection(path)
        self.seat = self.connection.bind("wl_seat")
        keyboard = self.connection.ask(self.seat, 1)
        self.surface = self.connection.ask(self.connection.bind("wl_compositor"), 0)
        self._show(self.connection.ask(self.connection.bind("xdg_wm_base"), 2, self.surface))
        self.serial = self.connection.await_event(keyboard, 1)[:4]  # the keyboard has come

    def _show(self, shell_surface):
        self.connection.ask(shell_surface, 1)
        self.connection.send(self.surface, 6)
        self.connection.send(shell_surface, 4, self.connection.await_event(shell_surface))
        self.connection.send(self.surface, 1, number(self._picture(), 0, 0))
        self.connection.send(self.surface, 6)

    def _picture(self):
        size = 4 * self.SIDE * self.SIDE
        memory = os.memfd_create("picture")
        os.ftruncate(memory, size)
        shared = self.connection.bind("wl_shm")
        pool = self.connection.ask(shared, 0, size, files=[memory])
        os.close(memory)
        return self.connection.ask(pool, 0, 0, self.SIDE, self.SIDE, 4 * self.SIDE, 1)

    def leave_to_come_to_the_front(self):
        """The text that the compositor gives for a program that is about to be started."""
        token = self.connection.ask(self.connection.bind("xdg_activation_v1"), 1)
        self.connection.send(token, 0, self.serial + number(self.seat))
        self.connection.send(token, 2, number(self.surface))
        self.connection.send(token, 3)
        return text_in(self.connection.await_event(token))

    def close(self):
        self.connection.close()
