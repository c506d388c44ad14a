"""The words are recorded with one's own voice, by keyboard alone, as somebody does who hears the screen.

With REPVOLTA_ALL_WORDS=1 it records all sixty; otherwise the last twelve."""

import os
import subprocess
import time

from desktop import Atspi, has_state
from display import keys
from screen_reader import ScreenReader
from sound import Sound
from support import WindowTest

ALL = bool(os.environ.get("REPVOLTA_ALL_WORDS"))
SOME = 12


class Record(WindowTest):
    def setUp(self):
        super().setUp()
        self.sound = Sound(self.home.folder / "sound")
        self.addCleanup(self.sound.close)
        self.built = self.home.build / "bin"
        self.program = self.start_set_up()
        self.reader = ScreenReader(self.home.folder / "told")
        self.addCleanup(self.reader.close)

    def words(self):
        """The clips that are asked for, in their order, and what is said."""
        listed = [line.split(maxsplit=1) for line in (
            self.home.build.parent.parent / "data" / "clips.txt").read_text().splitlines()
                  if line and line[0] not in "#e"]
        return listed if ALL else listed[-SOME:]

    def spoken(self, clip):
        """A recording of that word as a microphone gives it: a voice at another loudness."""
        return self.built / "voice" / f"{clip}.wav"

    def heard(self, window, words):
        """Waits until the control that has the keyboard is described so, and returns all of it."""
        def described():
            return [text for text in (node.get_description()
                                      for node in self.program.focused(window)) if words in text]
        return self.program.wait_for(f"{words!r} to be said", described)[0]

    def open(self):
        keys("ctrl+shift+r")
        return self.program.window("Record Words")

    def record(self, window, clip, said):
        heard = self.heard(window, "Say it now.")
        self.assertEqual(heard, f"{said}. Say it now.")
        self.sound.say(self.spoken(clip))
        self.assertIn("Good.", self.heard(window, "Good."))

    def test_records_the_words_by_keyboard_and_ear(self):
        words = self.words()
        for clip, _ in words:
            (self.home.program / "voice" / f"{clip}.wav").unlink()
        window = self.open()
        self.choose_missing(window)
        begun = time.monotonic()
        keys("space")
        for clip, said in words:
            self.record(window, clip, said)
            keys("Return")
        self.heard(window, f"{len(words)} of {len(words)} recorded")
        print(f"{len(words)} words recorded in {time.monotonic() - begun:.0f} s")
        keys("Escape")
        self.program.main()
        self.check(words)
        self.check_told(words)

    def choose_missing(self, window):
        """Goes to the choices and back by keys: "What is missing", the next word by itself."""
        keys("alt+w", "Down")
        self.heard_in(window, "What:", "What is missing")
        keys("alt+x")
        box = self.program.find(window, "check box", "Start the next word by itself")
        self.program.wait_for("the tick", lambda: has_state(box, Atspi.StateType.CHECKED))
        self.program.focus(self.program.find(window, "push button", "Start"))

    def heard_in(self, window, name, entry):
        box = self.program.find(window, "combo box", name)
        self.program.wait_for(entry, lambda: box.get_name() == entry or entry in [
            child.get_name() for child in self.program.controls(box)])

    def check(self, words):
        """All are in place, one's own, and no clip is unlike the others."""
        check = subprocess.run([self.built / "repvolta-voice", "check", self.home.program / "voice"],
                               capture_output=True, text=True, check=False)
        self.assertIn("all is well", check.stdout)
        origins = (self.home.program / "voices" / "origins.txt").read_text()
        for clip, _ in words:
            self.assertIn(f"{clip}.wav", origins)

    def check_told(self, words):
        """Each word, and that it was good, came to a screen reader that only waits for news."""
        told = self.program.wait_for("the end to be told", lambda: [
            lines for lines in [self.reader.lines()] if "recorded" in lines[-1]])[0]
        for _, said in words:
            self.assertTrue([text for text in told if text.startswith(f"{said}. ")], told)
        self.assertGreaterEqual(len([text for text in told if "Good." in text]), len(words))
