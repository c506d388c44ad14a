"""What a screen reader is told: the description of the control that has the keyboard, at each change
of that or of its name, a line each."""

import json
import subprocess
import sys

from display import wait_for

KINDS = ("object:property-change:accessible-name", "object:property-change:accessible-description")


class ScreenReader:
    """Listens in a process of its own, since events need a loop."""

    def __init__(self, file):
        self.file = file
        with open(file, "wb") as output:
            self.process = subprocess.Popen([sys.executable, __file__], stdout=output,
                                            stderr=subprocess.DEVNULL)
        wait_for("the screen reader", self.lines)

    def lines(self):
        return [json.loads(line) for line in self.file.read_text().splitlines()]

    def close(self):
        self.process.kill()
        self.process.wait()


def listen():
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi

    def tell(event):
        # The event says which control has changed, and not always how.
        event.source.clear_cache()
        if event.source.get_state_set().contains(Atspi.StateType.FOCUSED):
            print(json.dumps(event.source.get_description()), flush=True)
    listener = Atspi.EventListener.new(tell)
    for kind in KINDS:
        listener.register(kind)
    print(json.dumps(""), flush=True)
    Atspi.event_main()


if __name__ == "__main__":
    listen()
