"""A sound system of a test's own, whose microphone hears what the test plays."""

import os
import pathlib
import subprocess

from display import output_of, wait_for

VARIABLES = ("PULSE_SERVER", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH", "PULSE_COOKIE")


class Sound:
    """The outputs "Loudspeaker", which is heard by nobody, and "Mouth", which the microphone
    "Headset" hears. Programs that are started while it runs find no other sound system."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.folder.mkdir(mode=0o700)
        self.before = {name: os.environ.get(name) for name in VARIABLES}
        os.environ.update(PULSE_SERVER=f"unix:{self.folder}/socket",
                          PULSE_RUNTIME_PATH=str(self.folder), PULSE_STATE_PATH=str(self.folder),
                          PULSE_COOKIE=str(self.folder / "cookie"))
        self.server = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
             "--disable-shm=yes", "--realtime=no", "--high-priority=no",
             *self._sink("Loudspeaker"), *self._sink("Mouth"),
             "-L", "module-remap-source source_name=Headset master=Mouth.monitor "
                   "source_properties=device.description=Headset",
             "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self.folder}/socket"],
            stderr=subprocess.DEVNULL,
            env={name: value for name, value in os.environ.items()
                 if name not in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "PULSE_SERVER")})
        wait_for("the microphone", self._is_ready)
        output_of("pactl", "set-default-sink", "Loudspeaker")
        output_of("pactl", "set-default-source", "Headset")

    @staticmethod
    def _sink(name):
        return ["-L", f"module-null-sink sink_name={name} norewinds=1 rate=16000 channels=1 "
                      f"format=s16le sink_properties=device.description={name}"]

    @staticmethod
    def _is_ready():
        found = subprocess.run(["pactl", "list", "short", "sources"], capture_output=True, text=True,
                               check=False)
        return "Headset" in found.stdout

    @staticmethod
    def say(wav):
        """Plays a file into the microphone."""
        output_of("paplay", "--device=Mouth", str(wav))

    def close(self):
        self.server.kill()
        self.server.wait()
        for name, value in self.before.items():
            if value is None:
                os.environ.pop(name, None)
            else:
                os.environ[name] = value
