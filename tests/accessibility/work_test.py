"""The buttons of the panels that move: experiment and calibration, and what truly happens in the world."""
import configparser

from case import NEEDLES, VIEW, Case
from titles import window_titles

CELLS = "ABCDEFGH"
# Of the marks, from the centre of the view, and the raised objective's height.
MARKS = {"Position A": (0, -60, 0), "Position B": (-80, 60, 0), "Position C": (80, 60, 0)}
RAISED = (0, -60, 100)
LANDING_ERROR = 3  # common units, of an exact calibration
NOT_CALIBRATED = "-1"


class Work(Case):

    def only(self, panel, chosen, among):
        self.wait(lambda: [name for name in among if self.get(panel, name).has("checked")] == [chosen],
                  f"'{chosen}' alone")

    def tip(self, needle):
        return [float(number) for number in self.stage.ask(f"world tip {needle}")]

    def rest(self, needle):
        """Where the needle's tip is, once it stands still."""
        self.wait(lambda: self.tip(needle)[:3] == self.tip(needle)[3:], f"needle {needle} at rest")
        return self.tip(needle)[:3]


class Experiment(Work):

    def test_1_each_needle_and_the_view_are_chosen_by_their_buttons(self):
        self.choose("Experiment")
        for name in NEEDLES[1:] + NEEDLES[:1] + (VIEW, NEEDLES[0]):
            self.press("Experiment", name)
            self.only("Experiment", name, NEEDLES + (VIEW,))
            self.become("Experiment", f"{name} lamp", "shown")
            self.wait_for_a_read(name)
            self.only("Experiment", name, NEEDLES + (VIEW,))
            self.become("Experiment", "Present view", "hidden" if name == VIEW else "shown")

    def test_2_each_cell_and_the_present_view_are_chosen_by_their_buttons(self):
        self.store_cells()
        self.choose("Experiment")
        for name in [f"Cell {cell}" for cell in CELLS] + ["Present view", "Cell A"]:
            self.press("Experiment", name)
            self.only("Experiment", name, [f"Cell {cell}" for cell in CELLS] + ["Present view"])
            self.become("Experiment", f"{name} lamp", "shown")

    def store_cells(self):
        self.choose("Cell position")
        for _ in range(2):
            for row in range(1, 5):
                self.get("Cell position", f"Set row {row}").press()
            self.get("Cell position", "Page E to H").press()

    def test_3_move_brings_the_chosen_needle_to_the_chosen_cell(self):
        self.store_cells()
        self.choose("Experiment")
        self.get("Experiment", "Needle 1").press()
        self.wait_for_a_read("Needle 1")
        self.get("Experiment", "Cell A").press()
        self.press("Experiment", "Move")
        view = [float(number) for number in self.stage.ask("world view")[:2]] + [0.0]
        for where, wanted in zip(self.rest(1), view):
            self.assertAlmostEqual(where, wanted, delta=LANDING_ERROR)
        self.only("Experiment", VIEW, NEEDLES + (VIEW,))

    def test_4_synchro_and_direct_toggle_once_with_each_press(self):
        self.choose("Experiment")
        self.get("Experiment", "Needle 1").press()
        self.wait_for_a_read("Needle 1")
        for name in ("Synchro", "Direct"):
            for state in ("checked", "raised", "checked", "raised"):
                self.press("Experiment", name)
                self.assertTrue(self.get("Experiment", name).has(state), f"{name} {state}")
                if name == "Synchro":
                    self.assertTrue(self.get("Experiment", "Move").has(
                        "disabled" if state == "checked" else "enabled"))

    def test_5_the_escapes_go_to_where_they_were_set(self):
        self.choose("Escape")
        self.get("Escape", "Set objective").press()
        self.get("Escape", "Set needle 1").press()
        height, place = self.focus(), self.rest(1)
        self.stage.ask("focus jog -5000")
        self.wait(lambda: self.focus() == height - 50, "the objective lowered")
        self.wait_for_the_height(height - 50)
        self.choose("Experiment")
        self.get("Experiment", "Needle 1").press()
        self.press("Experiment", "Objective escape")
        self.wait(lambda: self.focus() == height, "the objective at its escape height")
        self.stage.ask("world jog 1 -400 0 0")
        self.assertNotEqual(self.rest(1), place)
        self.wait_for_a_read("Needle 1")
        moves = self.driver_calls("moveto")
        self.press("Experiment", "Needle escape")
        self.assertGreater(self.driver_calls("moveto"), moves)
        for where, wanted in zip(self.rest(1), place):
            self.assertAlmostEqual(where, wanted, delta=LANDING_ERROR)

    def wait_for_the_height(self, height):
        """Until the program has read it from the gauge: a row shows what is known when it is stored."""
        self.choose("Cell position")

        def is_known():
            self.get("Cell position", "Set row 4").press()
            return self.get("Cell position", "Cell D Z").name == str(round(height))
        self.wait(is_known, f"the height {height}")

    def focus(self):
        return float(self.stage.ask("focus state")[0])


class Calibration(Work):

    def stored_time(self, needle, key="Time"):
        settings = configparser.ConfigParser(delimiters=("=",), interpolation=None, strict=False)
        settings.read(self.stage.in_folder("TRAVO/KVData.ini"), encoding="cp1252")
        return settings[f"Manipulator Calibration:{needle - 1}"][key]

    def put_tip(self, needle, place):
        counts = self.stage.ask(f"world aim {needle} {' '.join(map(str, place))}")[:3]
        self.stage.ask(f"world move {needle} {' '.join(counts)}")
        self.rest(needle)

    def test_1_each_mode_and_each_needle_is_chosen_by_its_button(self):
        self.choose("Calibration")
        modes = ("Full calibration", "Re-calibration")
        for mode, picture in zip(modes[::-1], ("Centre picture", "Marks picture")):
            self.press("Calibration", mode)
            self.only("Calibration", mode, modes)
            self.become("Calibration", picture, "shown")
        for name in NEEDLES[1:] + NEEDLES[:1]:
            self.press("Calibration", name)
            self.wait_for_a_read(name)
            self.only("Calibration", name, NEEDLES)

    def test_2_a_needle_is_cleared_calibrated_and_calibrated_anew(self):
        self.choose("Calibration")
        self.press("Calibration", "Reset")
        self.assertEqual(self.stored_time(1), NOT_CALIBRATED)
        self.assertNotEqual(self.stored_time(2), NOT_CALIBRATED)
        self.see_title("TRAVO")
        self.record_marks()
        self.see_title("TRAVO - objective raised for the Z point")
        self.assertTrue(self.get("Calibration", "Set").has("disabled"))
        self.become("Calibration", "Focus picture", "shown")
        self.put_tip(1, RAISED)
        self.press("Calibration", "Position Z")
        self.press("Calibration", "Set")
        self.see_title("TRAVO")
        self.assertNotEqual(self.stored_time(1), NOT_CALIBRATED)
        self.become("Calibration", "Marks picture", "shown")
        self.calibrate_anew()

    def see_title(self, title):
        self.wait(lambda: title in window_titles(), f"a window titled '{title}'")

    def record_marks(self):
        for name, place in MARKS.items():
            self.put_tip(1, place)
            if name == "Position C":
                self.press_for_box("Calibration", name,
                                   "Adjust manipulator Z axis until needle tip is in focus.")
            else:
                self.press("Calibration", name)
                self.assertTrue(self.get("Calibration", name).has("checked"))

    def calibrate_anew(self):
        self.get("Calibration", "Re-calibration").press()
        self.put_tip(1, (0, 0, 0))
        self.assertEqual(self.stored_time(1, "ReTime"), NOT_CALIBRATED)
        self.press("Calibration", "Position centre")
        self.become("Calibration", "Set", "enabled")
        self.get("Calibration", "Set").press()
        self.assertNotEqual(self.stored_time(1, "ReTime"), NOT_CALIBRATED)
        self.get("Calibration", "Full calibration").press()

    def test_3_all_needles_are_cleared(self):
        self.choose("Calibration")
        self.press("Calibration", "Reset all")
        self.assertEqual([self.stored_time(needle) for needle in range(1, 5)], [NOT_CALIBRATED] * 4)
