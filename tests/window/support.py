"""What the tests of the window share."""

import os
import unittest

from desktop import Display, Home, Program, keys, type_text, wait_for


def pick_folder(program, name):
    """Chooses a folder of the home folder, at which the picker opens."""
    picker = program.window("Select Directory")
    wanted = str(program.home.folder / name)
    wait_for(f"the folder {name}", lambda: program.controls(picker, "tree item", name)
             or program.controls(picker, "table cell", name))
    type_text(name)
    wait_for(f"{wanted} to be chosen", lambda: program.controls(picker, "label", wanted))
    keys("Return")


class WindowTest(unittest.TestCase):
    """Each test has a home folder of its own, all share a display."""

    @classmethod
    def setUpClass(cls):
        cls.display = Display()

    @classmethod
    def tearDownClass(cls):
        cls.display.close()

    def setUp(self):
        self.home = Home(os.environ["REPVOLTA_BUILD"])
        self.addCleanup(self.home.close)

    def start(self):
        program = Program(self.home)
        self.addCleanup(program.kill)
        return program

    def start_set_up(self):
        """Starts the program and goes through the set-up: music in Music, output in Player."""
        (self.home.folder / "Player").mkdir()
        program = self.start()
        program.message("Welcome to Repvolta")
        program.message("Find your music files")
        pick_folder(program, "Music")
        program.message("Repvolta")
        program.message("Select your output directory")
        pick_folder(program, "Player")
        program.main()
        return program
