"""The buttons of the panels that keep values: connection, cell position, escape, user."""
import table
from case import Case
from tree import is_true

# Box, a number to begin with, and the highest that its arrow reaches.
TEXT_BOXES = (("Mirror port", 1, 99), ("Magnescale port", 2, 99), ("Motor port", 3, 99),
              ("Manipulator number", 1, 4))


class Connection(Case):

    def test_the_arrows_change_the_number_boxes_by_one(self):
        self.choose("Connection")
        for box, value, highest in TEXT_BOXES:
            self.get("Connection", box).write(str(value))
            for step in (1, 1, 1, 1, -1, -1, -1, -1, -1):
                value = min(highest, max(1, value + step))
                self.press("Connection", f"{box} {'up' if step > 0 else 'down'}")
                self.assertEqual(self.get("Connection", box).text, str(value), box)

    def test_the_boxes_take_a_text(self):
        self.choose("Connection")
        for box, text in (("Mirror port", "7"), ("Magnescale port", "12"), ("Motor port", "300"),
                          ("Manipulator number", "3")):
            self.get("Connection", box).write(text)
            self.assertEqual(self.get("Connection", box).text, text)

    def test_each_instrument_is_connected_and_tested(self):
        self.choose("Connection")
        for instrument, port in (("Mirror", "1"), ("Magnescale", "2"), ("Motor", "3")):
            self.get("Connection", f"{instrument} port").write(port)
            name = instrument if instrument == "Magnescale" else instrument.lower()
            self.press("Connection", f"Connect {name}")
            self.assertEqual(self.get("Connection", f"{instrument} state").name, "Waiting for an answer")
            self.wait(lambda: self.get("Connection", f"{instrument} state").name == "Connected", name)
            self.become("Connection", f"Test {name}", "enabled")
        self.see_tests()

    def see_tests(self):
        before = int(self.stage.ask("magnification")[0])
        self.press("Connection", "Test mirror")
        self.wait(lambda: self.stage.ask("magnification") == [str(before % 3 + 1)], "the next magnification")
        counts = int(self.stage.ask("focus state")[3])
        self.press("Connection", "Test motor")
        self.wait(lambda: abs(int(self.stage.ask("focus state")[3]) - counts) == 1000, "the focus moved")
        self.press_for_box("Connection", "Test Magnescale", "The value of Magnescal is")
        self.get("Connection", "Manipulator number").write("2")
        moves = self.driver_calls("moveto")
        self.press("Connection", "Test manipulator")
        self.wait(lambda: self.driver_calls("moveto") > moves, "a jog")

    def test_the_list_of_serial_ports_opens(self):
        self.choose("Connection")
        self.press("Connection", "Show serial ports")
        window = self.wait(self.find_box, "the window with the serial ports")
        place, = table.dialogs()
        self.assertEqual((window.name, place.dialog), (place.name, "Show serial ports"))
        below = list(window.all_below())
        for row in place.rows:
            found = [control.look() for control in below if control.name == row.name]
            self.assertEqual([(seen.role, seen.description) for seen in found], [(row.role, row.help)])
            self.assertTrue(all(is_true(word, seen.states) for seen in found for word in row.at), row.name)
        self.close_box(window, "Close")

    def test_the_camera_is_connected(self):
        self.choose("Connection")
        self.press("Connection", "Connect camera")
        self.wait(lambda: self.get("Connection", "Live camera state").name == "Connected", "the camera")


class Positions(Case):

    def values(self, panel, what):
        return [self.get(panel, f"{what} {axis}").name for axis in "XYZ"]

    def test_each_row_of_both_pages_stores_the_view(self):
        self.choose("Cell position")
        for page, cells in (("raised", "ABCD"), ("checked", "EFGH")):
            self.become("Cell position", "Page E to H", page)
            for row, cell in enumerate(cells, 1):
                self.become("Cell position", f"Cell {cell} X", "shown")
                self.assertEqual(self.values("Cell position", f"Cell {cell}"), ["N/A"] * 3)
                self.press("Cell position", f"Set row {row}")
                for value in self.values("Cell position", f"Cell {cell}"):
                    self.assertRegex(value, "^-?[0-9]+$")
            self.press("Cell position", "Page E to H")
        self.choose("Experiment")
        for cell in "ABCDEFGH":
            self.become("Experiment", f"Cell {cell}", "enabled")

    def test_the_zero_point_becomes_the_present_height(self):
        self.choose("Cell position")
        self.stage.ask("focus move 20000")
        self.wait(lambda: self.gauge() == 200, "the focus at 200")
        self.press("Cell position", "Reset zero point")
        self.wait(lambda: self.gauge() == 0, "the gauge at its new zero")

    def gauge(self):
        return float(self.stage.ask("gauge state")[0])

    def test_each_needle_and_the_objective_get_their_escape_position(self):
        self.choose("Escape")
        for number in range(1, 5):
            self.assertEqual(self.values("Escape", f"Needle {number}"), ["N/A"] * 3)
            self.press("Escape", f"Set needle {number}")
            for value in self.values("Escape", f"Needle {number}"):
                self.assertRegex(value, "^-?[0-9]+$")
        self.assertEqual(self.get("Escape", "Objective Z").name, "N/A")
        self.press("Escape", "Set objective")
        self.assertRegex(self.get("Escape", "Objective Z").name, "^-?[0-9]+$")


class User(Case):

    def offsets(self):
        return [self.get("User", name).text for name in ("XY offset", "Z offset")]

    def come_back(self):
        self.choose("Experiment")
        self.choose("User")

    def test_set_applies_the_offsets_and_nothing_else_does(self):
        self.choose("User")
        self.write_offsets("70", "150")
        self.come_back()
        self.assertEqual(self.offsets(), ["0", "0"])
        self.write_offsets("70", "150")
        self.press("User", "Apply offsets")
        self.come_back()
        self.assertEqual(self.offsets(), ["70", "150"])

    def write_offsets(self, *texts):
        for name, text in zip(("XY offset", "Z offset"), texts):
            self.get("User", name).write(text)
            self.assertEqual(self.get("User", name).text, text)

    def test_too_small_an_offset_is_told_in_a_box_that_can_be_read_and_answered(self):
        self.choose("User")
        self.write_offsets("70", "99")
        self.press_for_box("User", "Apply offsets", "Z Offset changes to minimum value")
        self.assertEqual(self.offsets(), ["70", "100"])

    def test_two_state_buttons_toggle_once_with_each_press(self):
        for panel, name in (("User", "Offset minimum off"), ("User", "Contact check off"),
                            ("User", "Bird's-eye window"), ("User", "Mirror window"), ("User", "Needle window"),
                            ("User", "Magnification window"), ("User", "Camera window")):
            self.choose(panel)
            for state in ("checked", "raised", "checked", "raised"):
                self.press(panel, name)
                self.assertTrue(self.get(panel, name).has(state), f"{name} {state}")

    def test_the_two_modes_stay_exclusive(self):
        self.choose("User")
        self.press("User", "Tab mode")
        self.choose("User")
        self.assertTrue(self.get("User", "Tab mode").has("checked"))
        self.assertTrue(self.get("User", "Step mode").has("raised"))
