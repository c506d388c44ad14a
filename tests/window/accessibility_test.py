"""The controls that a screen reader finds and that the keyboard alone reaches."""

import collections

from desktop import Atspi, has_state, heard_name, role_of, showing
from display import keys
from support import WindowTest

TABS = ["Workout Setup/Exercise Selection", "Exercise Setup", "Program Settings"]
# Widgets that only group or fill, and entries of lists, which are read by their text.
NO_CONTROLS = {"filler", "panel", "layered pane", "list item", "table cell", "tree item", "page tab",
               "dialog", "alert", "unknown"}


class Accessibility(WindowTest):
    def setUp(self):
        super().setUp()
        self.program = self.start_set_up()

    def add_workout(self):
        program = self.program
        program.press("Create New Workout")
        program.answer("New Workout", "Monday")
        program.press("Add New Exercise")
        dialog = program.window("Select Exercise")
        self.check(dialog)
        program.select("Exercise type", "Legs", dialog)
        program.select("Exercise name", 0, dialog)
        keys("Return")
        program.wait_for("the exercise", lambda: program.items("Exercises"))
        keys("Up")

    def controls(self, window):
        return [node for node in showing(window)
                if has_state(node, Atspi.StateType.FOCUSABLE)
                and role_of(node) not in NO_CONTROLS]

    def check(self, window):
        """Every control has a role and a name of its own."""
        controls = self.controls(window)
        self.assertNotEqual(controls, [])
        names = collections.Counter(heard_name(control) for control in controls)
        roles = {heard_name(control): role_of(control) for control in controls}
        self.assertNotIn("", names, roles)
        self.assertEqual([name for name, count in names.items() if count > 1], [])
        self.assertNotIn("invalid", roles.values())

    def check_reach(self, window):
        """The Tab key reaches every enabled control; arrow keys choose in a group."""
        wanted = {heard_name(control) for control in self.controls(window)
                  if has_state(control, Atspi.StateType.ENABLED)
                  and role_of(control) != "radio button"}
        reached = {heard_name(node) for node in self.program.focused(window)}
        for _ in range(2 * len(wanted) + 20):
            if wanted <= reached:
                break
            reached |= {heard_name(node) for node in self.program.next_control(window)}
        self.assertEqual(wanted - reached, set())

    def test_names_every_control_and_reaches_it_by_keyboard(self):
        self.add_workout()
        for tab in TABS:
            with self.subTest(tab):
                self.program.tab(tab)
                self.check(self.program.main())
                self.check_reach(self.program.main())

    def test_names_the_controls_of_the_boxes(self):
        program = self.program
        for open_it, title in ((lambda: program.press("Create New Workout"), "New Workout"),
                               (lambda: keys("shift+F1"), "About Repvolta")):
            with self.subTest(title):
                program.main()
                open_it()
                self.check(program.window(title))
                keys("Escape")
        program.main()
        keys("ctrl+shift+r")
        recording = program.window("Record Words")
        self.check(recording)
        self.check_reach(recording)
        keys("Escape")
        program.main()
        program.tab(TABS[2])
        program.press("Change Music Path")
        picker = program.window("Select Directory")
        self.check(picker)
        self.check_reach(picker)
