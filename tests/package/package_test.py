"""Installs the package into a fresh Debian tree and uses it there as an ordinary user does: first
start, update, upgrade, removal; then the portable archive. tools/check-package runs it."""

import os
import shutil
import signal
import time
import unittest

from tree_test_case import DATA, HOME, WORK, TreeTest, keys, made, run, set_up, wait_for


def make_newer(package, newer):
    """The package with a higher version, a changed clip and a new list."""
    shutil.rmtree(newer.with_suffix(""), ignore_errors=True)
    folder = newer.with_suffix("")
    run("dpkg-deb", "--raw-extract", package, folder)
    control = folder / "DEBIAN/control"
    lines = control.read_text(encoding="utf-8").splitlines(keepends=True)
    control.write_text("".join(
        line.rstrip("\n") + "+newer\n" if line.startswith("Version: ") else line for line in lines),
        encoding="utf-8")
    (folder / "DEBIAN/md5sums").unlink()
    shared = folder / "usr/share/repvolta"
    shutil.copy(shared / "voice/1.wav", shared / "voice/2.wav")
    (shared / "exercise/Logs.lst").write_text("Log Lift\n", encoding="utf-8")
    run("dpkg-deb", "--root-owner-group", "--build", folder, newer)
    shutil.rmtree(folder)


class Package(TreeTest):
    @classmethod
    def setUpClass(cls):
        cls.archive = made("portable", "repvolta-*.tar.xz")
        super().setUpClass()

    def test_1_is_installed_alone_without_what_it_recommends(self):
        self.tree.put(self.package, "/tmp/repvolta.deb")
        self.tree.as_root("apt-get", "update", "-qq")
        self.tree.install("/tmp/repvolta.deb")
        self.assert_has(*(f"/usr/bin/{name}" for name in
                          ("repvolta", "repvolta-update", "repvolta-voice")),
                        "/usr/share/applications/repvolta.desktop",
                        "/usr/share/icons/hicolor/48x48/apps/repvolta.png",
                        "/usr/share/doc/repvolta/guide/index.html",
                        "/usr/share/doc/repvolta/guide/pictures/exercise.png",
                        "/usr/share/doc/repvolta/guide/formats/plan.schema.json",
                        *(f"/usr/share/repvolta/words/{name}.txt" for name in
                          ("english", "french", "german", "spanish")))
        # There are no settings yet.
        self.tree.as_user("repvolta-update", status=2)
        self.assert_lacks(DATA)

    def test_2_fills_the_users_data_folder_and_waits_with_its_first_question(self):
        program = self.start("QT_QPA_PLATFORM=offscreen", "repvolta")
        wait_for("the link to the encoder", lambda: self.tree.has(DATA + "/lame.exe"))
        time.sleep(2)  # in which it would go on, did it not wait
        self.assertIsNone(program.poll())
        program.terminate()
        self.assertEqual(program.wait(60), -signal.SIGTERM)
        self.assert_lacks(DATA + "/settings.dat")
        self.assert_same_folders("/usr/share/repvolta/voice", DATA + "/voice")
        self.assert_same_folders("/usr/share/repvolta/exercise", DATA + "/exercise")
        self.tree.as_user("sh", "-c", f"cd '{DATA}' && sha256sum --check --quiet brought.sha256")
        self.assertEqual(os.readlink(self.tree.path(DATA + "/lame.exe")), "/usr/bin/lame")

    def test_3_is_set_up_by_keyboard_at_the_first_start(self):
        self.put_sample()
        self.set_up_with_workout("Sunday")
        listed = self.tree.path(DATA + "/musiclist.txt").read_bytes().count(b"\n")
        self.assertEqual(listed, len(list(self.tree.path(HOME + "/Music").rglob("*.mp3"))))

    def test_4_updates_with_recorded_names_and_with_one_that_flite_speaks(self):
        self.tree.as_user("cp", "-r", HOME + "/sample/program/workouts/.", DATA + "/workouts")
        self.tree.as_user("repvolta-update", "Monday")
        self.assert_has(HOME + "/Player/Monday/Monday.M3U",
                        HOME + "/Player/Monday/RV001-Instructions.mp3")
        self.assert_lacks(HOME + "/Player/Thursday")
        self.tree.install("flite")
        self.tree.as_user("repvolta-update")
        self.assert_has(HOME + "/Player/Thursday/Thursday.M3U",
                        DATA + "/voice/exercise/Dwarf Tossing.WAV")

    def test_5_keeps_the_users_clips_lists_settings_and_workouts_in_an_upgrade(self):
        self.tree.as_user("cp", DATA + "/voice/3.wav", DATA + "/voice/exercise/Squat.WAV")
        self.tree.as_user("sh", "-c", f"echo 'My Own Lift' >>'{DATA}/exercise/Arms.lst'")
        before = self.tree.snapshot(DATA)
        make_newer(self.package, WORK / "newer.deb")
        self.tree.put(WORK / "newer.deb", "/tmp/newer.deb")
        self.tree.install("/tmp/newer.deb")
        self.tree.as_user("repvolta-update", "Sunday")
        after = self.tree.snapshot(DATA)
        self.assertEqual(after.pop("exercise/Logs.lst", None), b"Log Lift\n")
        self.assertEqual(sorted(after), sorted(before))
        self.assertEqual([name for name in before if after[name] != before[name]], [])

    def test_6_leaves_the_users_data_when_it_is_removed(self):
        self.tree.as_root("apt-get", "purge", "-y", "-qq", "repvolta")
        self.assert_lacks("/usr/bin/repvolta", "/usr/share/repvolta", "/usr/share/doc/repvolta")
        self.assert_has(DATA + "/settings.dat", DATA + "/workouts/Monday.RPV",
                        DATA + "/voice/exercise/Squat.WAV", HOME + "/Player/Monday/Monday.M3U")

    def test_7_stays_in_its_folder_as_the_portable_archive(self):
        shutil.rmtree(self.tree.path(DATA))
        shutil.rmtree(self.tree.path(HOME + "/Player"))
        self.tree.as_user("mkdir", HOME + "/stick", HOME + "/Player")
        run("tar", "--extract", f"--file={self.archive}",
            f"--directory={self.tree.path(HOME + '/stick')}")
        self.tree.as_root("chown", "-R", "tester:tester", HOME + "/stick")
        portable = f"{HOME}/stick/{self.archive.name.removesuffix('.tar.xz')}"
        self.assert_has(portable + "/guide/index.html", portable + "/words/german.txt")
        self.assert_same_folders(portable + "/program-voice", portable + "/voice")
        before = self.tree.snapshot(HOME, without=("stick",))
        program = self.start(portable + "/repvolta")
        set_up()
        keys("ctrl+q")
        self.assertEqual(program.wait(60), 0)
        self.tree.as_user("cp", "-r", HOME + "/sample/program/workouts", portable)
        self.tree.as_user(portable + "/repvolta-update", "Monday")
        self.assert_has(HOME + "/Player/Monday/Monday.M3U", portable + "/settings.dat")
        after = self.tree.snapshot(HOME, without=("stick", "Player/Monday"))
        self.assertEqual(sorted(after), sorted(before))


if __name__ == "__main__":
    unittest.main(failfast=True, verbosity=0)
