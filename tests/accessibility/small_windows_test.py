"""The four small windows: opened and closed, brought back to their size, and worked by their own controls."""
import table
from case import Case

UNITS = 15  # of the settings file, to a pixel
BIRD, MIRROR, NEEDLES, MAGNIFICATION = (place.name for place in table.read() if place.window)
# Section of the settings file; where the window stands at first, and its design size.
SIZES = {BIRD: ("FormBirdView_Position", (100, 50, 500, 600), (410, 483)),
         MIRROR: ("FormMirror_Position", (700, 50, 400, 300), (276, 222)),
         NEEDLES: ("FormManiInfo_Position", (1200, 50, 400, 400), (340, 300)),
         MAGNIFICATION: ("FormMirror2_Position", (1700, 50, 400, 300), (276, 192))}
LOWER_PANEL = 95  # pixels of height
DARK = 40  # of 255: only the lines of needles and view and the edges of markers are
CORAL = (0x86, 0x99, 0xFF)  # blue, green, red of the picture's ground

# Of the bird's-eye picture, in parts of its size: its left upper corner, beyond the still, where the shaft of
# needle 1 comes in; a part of the still without lines; and what is the still's only while it is not shifted,
# where the question does not cover it.
CORNER = (0.01, 0.01, 0.13, 0.13)
STILL = (0.65, 0.6, 0.85, 0.75)
LOWER_EDGE = (0.1, 0.76, 0.2, 0.8)

RING = {"top": (0, 1), "upper right": (-1, 1), "right": (-1, 0), "lower right": (-1, -1), "bottom": (0, -1),
        "lower left": (1, -1), "left": (1, 0), "upper left": (1, 1)}
FOCUS = {"Focus up 1000": 1000, "Focus up 100": 100, "Focus down 100": -100, "Focus down 1000": -1000}
# As the mirror controller counts them; 2x comes last, where it was at first.
MAGNIFICATIONS = {"Magnification 0.35x": "1", "Magnification 4x": "3", "Magnification 2x": "2"}


class Windows(Case):
    with_windows = True
    further_settings = "".join(
        f"[{section}]\nLeft={left * UNITS}\nTop={top * UNITS}\nWidth={width * UNITS}\nHeight={height * UNITS}\n"
        for section, (left, top, width, height), _ in SIZES.values())

    def test_each_window_opens_by_its_button_and_closes_by_it_and_by_close(self):
        self.choose("User")
        for name, window in self.windows.items():
            button = self.places[name].window
            for place, closing in ((name, "Close"), ("User", button)):
                self.press("User", button)
                self.wait(lambda: window.has("shown"), name)
                self.become("User", button, "checked")
                self.press(place, closing)
                self.wait(lambda: window.has("hidden"), f"the end of '{name}'")
                self.become("User", button, "raised")

    def test_each_size_button_brings_its_window_back_to_its_design_size(self):
        self.assertEqual(sorted(self.windows), sorted(SIZES))
        for name, (_, (left, top, *stored), design) in SIZES.items():
            window = self.windows[name]
            with self.on_show(name):
                self.wait(lambda: window.place() == (left, top, *stored), f"'{name}' where it was")
                self.press(name, "Design size")
                self.wait(lambda: window.size() == design, f"'{name}' of {design}")

    def test_the_needles_window_forgets_the_time_of_a_calibration_that_is_cleared(self):
        times = [self.get(NEEDLES, f"Needle {number} calibration time") for number in range(1, 5)]
        with self.on_show(NEEDLES):
            before = [time.text for time in times]
            self.assertNotIn("", before)
            self.choose("Calibration")
            self.get("Calibration", "Reset").press()
            self.wait(lambda: [time.text for time in times] == [""] + before[1:], "needle 1 without a time")


class BirdView(Case):
    with_windows = True

    def setUp(self):
        self.enterContext(self.on_show(BIRD))
        self.picture = self.get(BIRD, "Picture")

    def open_lower_panel(self):
        self.get(BIRD, "Adjust panel").press()
        self.become(BIRD, "Brightness", "shown")
        self.addCleanup(self.get(BIRD, "Adjust panel").press)

    def pixels(self, part):
        return self.stage.screen.pixels(self.picture.place(), part)

    def red(self, part):
        """On the average."""
        pixels = self.pixels(part)
        return sum(red for _, _, red in pixels) / len(pixels)

    def is_ground(self, part):
        return all(pixel == CORAL for pixel in self.pixels(part))

    def is_still(self, part):
        return CORAL not in self.pixels(part)

    def test_1_adjust_opens_and_closes_the_lower_panel(self):
        width, height = self.windows[BIRD].size()
        lower = [row.name for row in self.places[BIRD].rows if "hidden" in row.at]
        self.assertEqual(len(lower), 9)
        for word, state, wanted in (("shown", "checked", height + LOWER_PANEL), ("hidden", "raised", height)):
            self.press(BIRD, "Adjust panel")
            self.become(BIRD, "Adjust panel", state)
            self.wait(lambda: self.windows[BIRD].size() == (width, wanted), f"a height of {wanted}")
            for name in lower:
                self.become(BIRD, name, word, "enabled")

    def test_2_the_shafts_are_hidden_and_drawn_again(self):
        self.open_lower_panel()
        self.stage.ask("world move 1 12500 12500 12500")
        self.see_shaft(True)
        for state, seen in (("checked", False), ("raised", True)):
            self.press(BIRD, "Hide needle lines")
            self.become(BIRD, "Hide needle lines", state)
            self.see_shaft(seen)

    def see_shaft(self, seen):
        self.wait(lambda: any(max(pixel) < DARK for pixel in self.pixels(CORNER)) == seen,
                  f"{'the' if seen else 'no'} shaft in the corner of the picture")

    def test_3_the_bars_change_the_still_by_step_and_by_value(self):
        self.show_a_still()
        self.open_lower_panel()
        for name, value in (("Brightness", -120), ("Contrast", -120)):
            bar = self.get(BIRD, name)
            at_rest = self.red(STILL)
            for action, wanted in (("Increase", 1), ("Decrease", 0), ("Decrease", -1), ("Increase", 0)):
                self.act(BIRD, name, action)
                self.assertEqual(bar.value, wanted, name)
            # The first move of a bar has made it a still of greys, which are its reds.
            self.wait(lambda: self.is_grey() and self.red(STILL) == at_rest, "a still of its reds")
            bar.value = value
            self.assertEqual(bar.value, value)
            self.wait(lambda: self.red(STILL) < at_rest - 15, f"a darker still by {name}")
            bar.value = 0
            self.wait(lambda: self.red(STILL) == at_rest, f"the still as it was, {name} at rest")
        self.see_ends()

    def is_grey(self):
        return all(max(pixel) == min(pixel) for pixel in self.pixels(STILL))

    def show_a_still(self):
        """The camera's own button saves it; the program then shows it."""
        self.wait(lambda: self.is_ground(STILL), "a picture without a still")
        self.choose("Connection")
        self.get("Connection", "Connect camera").press()
        self.wait(lambda: self.get("Connection", "Live camera state").name == "Connected", "the camera")
        self.stage.ask_camera("save")
        self.wait(lambda: self.is_still(STILL), "a still")

    def see_ends(self):
        for name, ends in (("Brightness", (-255, 255)), ("Contrast", (-256, 255))):
            bar = self.get(BIRD, name)
            self.assertEqual(bar.range(), ends)
            for end in ends:
                bar.value = end * 2
                self.assertEqual(bar.value, end, name)
            bar.value = 0

    def test_4_the_still_is_shifted_to_the_point_that_is_pressed(self):
        self.open_lower_panel()
        self.wait(lambda: self.is_still(LOWER_EDGE), "the still")
        self.press(BIRD, "Shift picture")
        self.become(BIRD, "Shift picture", "checked")
        for answer, state, seen in (("No", "checked", self.is_still), ("Yes", "raised", self.is_ground)):
            # The window system has taken away the question of the round before.
            self.wait(lambda: "active" in self.windows[BIRD].states(), "the window active")
            self.picture.click(across=0.25, down=0.85)
            self.wait(lambda: self.is_ground(LOWER_EDGE), "the still shifted up and to the right")
            self.answer_box("Did you set it at this position?", answer)
            self.become(BIRD, "Shift picture", state)
            self.wait(lambda: seen(LOWER_EDGE), f"the still after {answer}")
        self.press(BIRD, "Shift picture")
        self.wait(lambda: self.is_still(LOWER_EDGE), "the still where it was")
        self.press(BIRD, "Shift picture")
        self.become(BIRD, "Shift picture", "raised")


class Optics(Case):
    with_windows = True

    def setUp(self):
        self.enterContext(self.on_show(MIRROR))
        self.become(MIRROR, "Mirror pad", "enabled")

    def see_mirror(self, x, y):
        """At rest there, and the program has been told: a step goes from the place last reported."""
        self.wait(lambda: self.mirror() == [x, y] * 2, f"the mirror at {x}, {y}")
        view = [float(number) for number in self.stage.ask("world view")[:2]]
        wanted = [view[0], -view[1]]  # the readout counts Y upwards

        def is_read():
            shown = [self.get(BIRD, f"View {axis}").name for axis in "XY"]
            return all(abs(int(text) - place) < 2 for text, place in zip(shown, wanted))
        self.wait(is_read, f"a readout of {wanted}")

    def mirror(self):
        """Counts now and at rest, X and Y of each."""
        return [float(number) for number in self.stage.ask("mirror state")[:4]]

    def test_every_area_of_the_pad_moves_the_mirror(self):
        self.see_mirror(0, 0)
        x = y = 0
        for ring, step in (("Outer", 10), ("Inner", 1)):
            for way, (across, up) in RING.items():
                self.act(MIRROR, "Mirror pad", f"{ring} {way}")
                x, y = x + across * step, y + up * step
                self.see_mirror(x, y)
        self.act(MIRROR, "Mirror pad", "Outer upper left")
        self.see_mirror(10, 10)
        self.act(MIRROR, "Mirror pad", "Centre")
        self.see_mirror(0, 0)

    def test_every_focus_button_moves_the_focus(self):
        counts = self.focus()[1]
        for name, way in FOCUS.items():
            counts += way
            self.press(MIRROR, name)
            self.wait(lambda: self.focus() == [counts] * 2, f"the focus at {counts}")

    def focus(self):
        """The motor's counts, now and at rest."""
        return [int(number) for number in self.stage.ask("focus state")[2:]]

    def test_every_magnification_is_chosen_by_its_button(self):
        with self.on_show(MAGNIFICATION):
            for name, index in MAGNIFICATIONS.items():
                self.press(MAGNIFICATION, name)
                self.wait(lambda: self.stage.ask("magnification") == [index], name)
                self.wait(lambda: [other for other in MAGNIFICATIONS
                                   if self.get(MAGNIFICATION, other).has("checked")] == [name], f"{name} alone")
                self.become(MIRROR, "Mirror pad", "disabled" if index == "1" else "enabled")
                self.see_pad_at_rest(index)

    def see_pad_at_rest(self, index):
        """At 0.35x the mirror is not moved, whatever is asked of the pad."""
        if index == "1":
            before = self.stage.ask("mirror state")
            self.get(MIRROR, "Mirror pad").act("Outer top")
            self.assertEqual(self.stage.ask("mirror state"), before)

    def test_the_motors_are_switched_off_and_on(self):
        with self.on_show(MAGNIFICATION):
            for name, other, motors, state in (("Motors off", "Motors on", "0", "disabled"),
                                               ("Motors on", "Motors off", "1", "enabled")):
                self.press(MAGNIFICATION, name)
                self.wait(lambda: self.stage.ask("mirror state")[4] == motors, name)
                self.become(MAGNIFICATION, name, "enabled", "checked")
                self.become(MAGNIFICATION, other, "enabled", "raised")
                for magnification in MAGNIFICATIONS:
                    self.become(MAGNIFICATION, magnification, state)
                self.become(MIRROR, "Mirror pad", state)
