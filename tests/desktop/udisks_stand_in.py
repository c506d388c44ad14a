"""A stand-in for the service UDisks2, as a template of python-dbusmock.

Its parameters are:
  blocks   for each block device its name, and in a dictionary "number" ([major, minor]), "points"
           (where it is mounted), "drive" (a drive's name) and, of an opened encrypted device,
           "backing" (a block's name)
  drives   for each drive its name and its properties
  answers  for each method the answers to its calls, one after the other: "" for success, "silent"
           for none, else the name of an error and its text; later calls succeed
  calls    the file that gets a line for each call"""

import os
import signal

import dbus

BUS_NAME = "org.freedesktop.UDisks2"
MAIN_OBJ = "/org/freedesktop/UDisks2"
SYSTEM_BUS = True
IS_OBJECT_MANAGER = True
INTERFACE = "org.freedesktop.UDisks2."


def path_of(kind, name):
    return dbus.ObjectPath(f"{MAIN_OBJ}/{kind}/{name}" if name else "/")


def text(value):
    return dbus.Array([dbus.Byte(byte) for byte in value.encode() + b"\0"], signature="y")


def answer(answers, calls, method, path):
    """Answers one call of a method of the object."""
    with open(calls, "a", encoding="utf-8") as file:
        file.write(f"{path.rsplit('/', 1)[-1]} {method}\n")
    result = answers[method].pop(0) if answers.get(method) else ""
    if result == "silent":
        signal.pause()
    if result:
        name, message = result.split(": ", 1)
        raise dbus.exceptions.DBusException(message, name=name)


def methods(*names):
    """Methods that take only options."""
    return [(name, "a{sv}", "", f"objects['{MAIN_OBJ}'].answer('{name}', self.path)")
            for name in names]


def add_block(mock, name, block):
    path = path_of("block_devices", name)
    mock.AddObject(path, INTERFACE + "Block", {
        "Device": text("/dev/" + name),
        "DeviceNumber": dbus.UInt64(os.makedev(*block["number"])),
        "Drive": path_of("drives", block.get("drive")),
        "CryptoBackingDevice": path_of("block_devices", block.get("backing")),
    }, [])
    device = mock_objects()[path]
    if "points" in block:
        points = dbus.Array([text(point) for point in block["points"]], signature="ay")
        device.AddProperties(INTERFACE + "Filesystem", {"MountPoints": points})
    device.AddMethods(INTERFACE + "Filesystem", methods("Unmount"))
    device.AddMethods(INTERFACE + "Encrypted", methods("Lock"))


def mock_objects():
    from dbusmock import mockobject
    return mockobject.objects


def load(mock, parameters):
    answers, calls = parameters["answers"], parameters["calls"]
    mock.answer = lambda method, path: answer(answers, calls, method, path)
    for name, properties in parameters["drives"].items():
        mock.AddObject(path_of("drives", name), INTERFACE + "Drive", properties,
                       methods("PowerOff", "Eject"))
    for name, block in parameters["blocks"].items():
        add_block(mock, name, block)
    print("ready", flush=True)
