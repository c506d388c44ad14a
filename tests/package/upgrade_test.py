"""Puts the package over that of version 1.0, with which a user has trained: the data stay as they were,
and the new program goes on with them. Each test continues where the previous one ended.
tools/check-package --upgrade runs it."""

import unittest

from tree_test_case import DATA, HOME, MAIN, TreeTest, keys, made, wait_for_window

# What came with the program, and its list: an upgrade may add to them and replace what is unchanged.
OF_THE_PROGRAM = ("voice", "exercise")
LIST = "brought.sha256"


class Upgrade(TreeTest):
    @classmethod
    def setUpClass(cls):
        cls.first = made("first", "repvolta_*.deb")
        super().setUpClass()

    def data(self):
        """The user's own files."""
        found = self.tree.snapshot(DATA, without=OF_THE_PROGRAM)
        found.pop(LIST, None)
        return found

    def test_1_version_1_is_used(self):
        self.tree.put(self.first, "/tmp/first.deb")
        self.tree.as_root("apt-get", "update", "-qq")
        self.tree.install("/tmp/first.deb", "flite")
        self.put_sample()
        self.set_up_with_workout("Sunday")
        self.tree.as_user("cp", "-r", HOME + "/sample/program/workouts/.", DATA + "/workouts")
        self.tree.as_user("cp", DATA + "/voice/3.wav", DATA + "/voice/exercise/Squat.WAV")
        self.tree.as_user("sh", "-c", f"echo 'My Own Lift' >>'{DATA}/exercise/Arms.lst'")
        self.tree.as_user("repvolta-update")
        self.assert_has(HOME + "/Player/Thursday/Thursday.M3U",
                        DATA + "/voice/exercise/Dwarf Tossing.WAV")

    def test_2_the_upgrade_leaves_the_users_data(self):
        before = self.tree.snapshot(HOME)
        self.tree.put(self.package, "/tmp/repvolta.deb")
        self.tree.install("/tmp/repvolta.deb")
        self.assertEqual(self.tree.snapshot(HOME), before)

    def test_3_the_window_opens_with_the_data_and_changes_none(self):
        before = self.data()
        program = self.start("repvolta")
        wait_for_window(MAIN)
        keys("ctrl+q")
        self.assertEqual(program.wait(60), 0)
        after = self.data()
        self.assertEqual([name for name in before if after.get(name) != before[name]], [])
        own = self.tree.path(DATA + "/voice/exercise/Squat.WAV").read_bytes()
        self.assertEqual(own, self.tree.path(DATA + "/voice/3.wav").read_bytes())
        self.assertIn("My Own Lift",
                      self.tree.path(DATA + "/exercise/Arms.lst").read_text(encoding="utf-8"))

    def test_4_the_recordings_of_version_1_are_known_as_the_programs(self):
        self.tree.as_user("sh", "-c", f"cd '{DATA}' && sed -n 's/^# //p' {LIST} | "
                          "grep -v Squat.WAV | sha256sum --check --quiet")

    def test_5_an_update_goes_on_with_the_data(self):
        workouts = [name for name in self.data() if name.startswith("workouts/")]
        song = self.tree.path(HOME + "/Player/Thursday/RV001-Instructions.mp3")
        song.unlink()
        self.tree.as_user("repvolta-update")
        self.assertTrue(song.exists())
        self.assertEqual([name for name in workouts if name not in self.data()], [])

    def test_6_leaves_the_users_data_when_it_is_removed(self):
        before = self.tree.snapshot(HOME)
        self.tree.as_root("apt-get", "purge", "-y", "-qq", "repvolta")
        self.assert_lacks("/usr/bin/repvolta", "/usr/share/repvolta", "/usr/share/doc/repvolta")
        self.assertEqual(self.tree.snapshot(HOME), before)


if __name__ == "__main__":
    unittest.main(failfast=True, verbosity=0)
