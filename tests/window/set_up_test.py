"""The first start and the last exit, on a real display."""

import signal
import subprocess

from display import active_title, keys, output_of
from support import WindowTest, pick_folder


class SetUp(WindowTest):
    def test_leads_a_new_person_to_the_window(self):
        songs = [self.home.add_song(name, 1) for name in ("One.mp3", "Zwei Übungen.MP3", "走る.mp3")]
        program = self.start()

        self.assertEqual(
            program.message("Welcome to Repvolta"),
            "This is the first time the program has been executed, so lets set up some simple "
            "stuff first to get started.\nPress ENETER to begin.")
        self.assertEqual(
            program.message("Find your music files"),
            "Repvolta needs to know where your MP3 music files are loacted.\nThese are the music "
            "files Repvolta will use to create your workout.\nPress ENTER to select where your "
            "files are located")
        pick_folder(program, "Music")
        self.assertEqual(program.message("Repvolta"), "The random music list has been compiled.")
        self.assertEqual(
            program.message("Select your output directory"),
            "Repvolta now needs to know what directory you want to store your Exercise files in.\n"
            "It is recommended you create a new directory just for this purpose.\nPress ENTER to "
            "select a directory.")
        picker = program.window("Select Directory")
        keys("alt+n")
        program.answer("New Folder", "Player")
        program.wait_for("the new folder", lambda: program.controls(
            picker, "label", str(self.home.folder / "Player")))
        keys("Return")
        program.main()
        program.wait_for("the window's icon", lambda: "Icon (" in output_of(
            "xprop", "-name", program.TITLE, "_NET_WM_ICON"))

        self.assertEqual(self.home.records("settings.dat"), {
            "whole": True, "music": str(self.home.music),
            "output": str(self.home.folder / "Player"), "time": 5, "voice": 0, "rate": 0,
            "volume": 100, "format": "", "playlist": 0, "weights": -1, "last": 0})
        listed = (self.home.program / "musiclist.txt").read_text(encoding="utf-8").splitlines()
        self.assertEqual(sorted(listed), sorted(songs))

    def test_is_followed_by_the_first_workout_with_one_key(self):
        program = self.start_set_up()
        keys("ctrl+n")
        program.answer("New Workout", "Monday")
        program.main()
        self.assertTrue((self.home.program / "workouts" / "Monday.RPV").exists())

    def test_begins_again_when_it_was_interrupted(self):
        program = self.start()
        program.message("Welcome to Repvolta")
        program.window("Find your music files")
        program.kill()
        self.assertFalse((self.home.program / "settings.dat").exists())

        program = self.start()

        program.window("Welcome to Repvolta")

    def test_goes_on_without_folders_when_the_pickers_are_cancelled(self):
        program = self.start()
        program.message("Welcome to Repvolta")
        program.message("Find your music files")
        program.window("Select Directory")
        keys("Escape")
        program.message("Repvolta")
        program.message("Select your output directory")
        program.window("Select Directory")
        keys("Escape")
        program.main()
        settings = self.home.records("settings.dat")
        self.assertEqual((settings["music"], settings["output"]), ("", ""))


class Running(WindowTest):
    def test_comes_to_the_front_when_it_is_started_again(self):
        program = self.start_set_up()
        output_of("xdotool", "windowminimize", output_of("xdotool", "getwindowfocus").strip())
        program.wait_for("the window to go", lambda: active_title() != program.TITLE)

        second = subprocess.run([self.home.program / "repvolta"], env=program.environment,
                                timeout=60)

        self.assertEqual(second.returncode, 0)
        program.main()
        self.assertIsNone(program.process.poll())

    def test_ends_by_its_exit_button(self):
        program = self.start_set_up()
        self.assertEqual(program.exit(), 0)
        self.assertEqual(self.home.records("settings.dat")["last"], -1)

    def test_ends_when_its_window_is_closed(self):
        program = self.start_set_up()
        keys("alt+F4")
        self.assertEqual(program.process.wait(60), 0)
        self.assertEqual(self.home.records("settings.dat")["last"], -1)

    def test_starts_again_after_it_was_killed(self):
        self.start_set_up().kill()
        self.start().main()
