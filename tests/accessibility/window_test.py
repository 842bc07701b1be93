"""The main window's own buttons: tabs, steps and size; and that a press does what a click of the mouse does."""
from case import TABS, Case
from stage import Failure
from table import MAIN_WINDOW

STEPS = ("Connection", "Calibration", "Escape", "Cell position", "Experiment")
UNITS = 15  # of the settings file, to a pixel
DESIGN_SIZE = (520, 624)
STORED_SIZE = (700, 800)
# Panel, button, and what undoes it.
TWINS = (("User", "Contact check off", "Contact check off"),
         ("User", "Offset minimum off", "Offset minimum off"),
         ("Cell position", "Page E to H", "Page E to H"),
         ("Experiment", "Direct", "Direct"),
         ("Experiment", "Synchro", "Synchro"),
         ("Experiment", "Needle 2", "Needle 1"),
         ("Experiment", "View", "Needle 1"),
         ("Calibration", "Re-calibration", "Full calibration"),
         ("Calibration", "Needle 2", "Needle 1"),
         ("Connection", "Mirror port up", "Mirror port down"),
         ("Connection", "Motor port down", "Motor port up"))


class Window(Case):
    further_settings = (f"[FormMain_Position]\nTop={100 * UNITS}\nLeft={100 * UNITS}\n"
                        f"Width={STORED_SIZE[0] * UNITS}\nHeight={STORED_SIZE[1] * UNITS}\n")

    def pictures(self):
        return [child for child in self.frame.children() if child.role == "page tab"]

    def see_tab(self, tab):
        """Exactly that panel is on show, and of each tab exactly one picture."""
        self.wait(lambda: self.shown_panels() == [tab], f"the panel '{tab}' alone")
        shown = [picture.name for picture in self.pictures() if picture.has("shown")]
        self.assertEqual(sorted(shown), sorted(TABS))

    def test_every_picture_of_the_unselected_tabs_changes_the_panel(self):
        self.get(MAIN_WINDOW, "Experiment").press()
        self.see_tab("Experiment")
        missing = {index: picture for index, picture in enumerate(self.pictures()) if index >= 6}
        # From one tab to another until each picture of both rows has been pressed where it was on show.
        while missing:
            index = next((i for i, picture in missing.items() if picture.has("shown")), None)
            if index is None:
                other = next(p for p in self.pictures() if p.has("shown") and p.name not in self.shown_panels())
                self.press(MAIN_WINDOW, other.name)
                self.see_tab(other.name)
                continue
            tab = missing.pop(index).name
            self.press(MAIN_WINDOW, tab)
            self.see_tab(tab)
        self.assertEqual(len(self.panels), len(TABS))

    def test_the_selected_tab_stays_when_it_is_pressed(self):
        for tab in TABS:
            self.choose(tab)
            before = [picture.has("shown") for picture in self.pictures()]
            self.get(MAIN_WINDOW, tab).press()
            self.see_tab(tab)
            self.assertEqual([picture.has("shown") for picture in self.pictures()], before)

    def test_a_picture_that_is_not_on_show_does_not_change_the_panel(self):
        self.choose("Experiment")
        for picture in self.pictures():
            if picture.has("hidden"):
                picture.press()
                self.assertEqual(self.shown_panels(), ["Experiment"])

    def test_step_mode_goes_through_the_panels_and_back(self):
        self.choose("User")
        self.press("User", "Step mode")
        self.see_step("Connection", previous="disabled", following="enabled")
        self.assertFalse([picture.name for picture in self.pictures() if picture.has("shown")])
        for step in STEPS[1:]:
            self.press(MAIN_WINDOW, "Next")
            self.see_step(step, previous="enabled", following="disabled" if step == STEPS[-1] else "enabled")
        for step in reversed(STEPS[:-1]):
            self.press(MAIN_WINDOW, "Previous")
            self.see_step(step, previous="disabled" if step == STEPS[0] else "enabled", following="enabled")
        self.press(MAIN_WINDOW, "User settings")
        self.see_step("User", previous="disabled", following="disabled")
        self.assertTrue(self.get(MAIN_WINDOW, "User settings").has("checked"))
        self.press(MAIN_WINDOW, "User settings")
        self.see_step("Connection", previous="disabled", following="enabled")
        self.assertTrue(self.get(MAIN_WINDOW, "User settings").has("raised"))
        self.leave_step_mode()

    def see_step(self, panel, previous, following):
        self.wait(lambda: self.shown_panels() == [panel], f"the step '{panel}'")
        self.become(MAIN_WINDOW, "Previous", "shown", previous)
        self.become(MAIN_WINDOW, "Next", "shown", following)
        self.become(MAIN_WINDOW, "User settings", "shown", "enabled")

    def leave_step_mode(self):
        self.get(MAIN_WINDOW, "User settings").press()
        self.assertTrue(self.get("User", "Step mode").has("checked"))
        self.press("User", "Tab mode")
        self.see_tab("Experiment")
        for name in ("Previous", "Next", "User settings"):
            self.assertTrue(self.get(MAIN_WINDOW, name).has("hidden"), name)
        self.choose("User")
        self.assertTrue(self.get("User", "Tab mode").has("checked"))
        self.assertTrue(self.get("User", "Step mode").has("raised"))

    def test_the_size_button_brings_the_window_back_to_its_design_size(self):
        self.wait(lambda: self.frame.size() == STORED_SIZE, f"a window of {STORED_SIZE}")
        self.press(MAIN_WINDOW, "Design size")
        self.wait(lambda: self.frame.size() == DESIGN_SIZE, f"a window of {DESIGN_SIZE}")

    def test_press_does_what_a_click_of_the_mouse_does(self):
        for tab, name, opposite in TWINS:
            with self.subTest(tab=tab, name=name):
                self.choose(tab)
                control, back = self.get(tab, name), self.get(tab, opposite)
                # The first round brings about what happens only once.
                for _ in range(2):
                    control.press()
                    self.wait_for_a_read(name)
                    pressed = self.picture_of(tab)
                    back.press()
                    self.wait_for_a_read(name)
                self.assertNotEqual(self.picture_of(tab), pressed)
                control.click()
                self.see_picture(tab, pressed)
                self.wait_for_a_read(name)
                back.press()

    def see_picture(self, tab, wanted):
        try:
            self.wait(lambda: self.picture_of(tab) == wanted, "what the press did")
        except Failure:
            self.assertEqual(self.picture_of(tab), wanted)

    def picture_of(self, place):
        """All that the tree says of the buttons and boxes of a place, the focus among it."""
        worked = [row.name for row in self.places[place].rows if row.is_button or row.role == "text"]
        controls = [(name, control) for name in worked for control, _ in self.found[place][name]]
        return {(name, control.text, control.states()) for name, control in controls}

    def test_a_click_on_a_tab_does_what_its_press_does(self):
        for tab in ("Calibration", "Escape", "User", "Cell position", "Connection", "Experiment"):
            self.choose("Connection" if tab == "Experiment" else "Experiment")
            self.get(MAIN_WINDOW, tab).press()
            self.see_tab(tab)
            pressed = [picture.has("shown") for picture in self.pictures()]
            self.choose("Connection" if tab == "Experiment" else "Experiment")
            self.get(MAIN_WINDOW, tab).click()
            self.see_tab(tab)
            self.assertEqual([picture.has("shown") for picture in self.pictures()], pressed)
