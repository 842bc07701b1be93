"""What all cases share: the program on the stage, with all instruments connected and 2x."""
import contextlib
import unittest

import table
from stage import Failure, wait_until
from tree import Program

NEEDLES = tuple(f"Needle {number}" for number in range(1, 5))
VIEW = "View"
TABS = [place.tab for place in table.read() if place.tab]


def human_name(place, seen):
    """The accessible name; of a label that shows one of the place's values, whose name is its text, the
    description."""
    values = {row.name for row in place.rows if row.role == "value"}
    is_value = seen.role == "label" and seen.description in values
    return seen.description if is_value else seen.name


class Case(unittest.TestCase):
    """Each class has a program of its own; its cases follow each other on it in the order of their names."""

    stage = None  # the runner's
    worked = set()  # (place, name, action) of all that a case has seen to work
    further_settings = ""
    with_windows = False  # whether the class looks at the small windows as well

    @classmethod
    def setUpClass(cls):
        cls.addClassCleanup(cls.end_program)
        cls.program = Program(cls.stage.start_program(cls.further_settings))
        cls.places = {place.name: place for place in table.read() if cls.with_windows or not place.window}
        cls.frame = wait_until(lambda: cls.program.windows_on_show("frame"), "the main window on show")[0]
        cls.panels = {}
        cls.windows = {}
        cls.found = {}
        cls.find_places()
        cls.come_to_rest()

    @classmethod
    def end_program(cls):
        code = cls.stage.end_program()
        if code != 0:
            raise Failure(f"the program ends with {code}")

    @classmethod
    def find_places(cls):
        """The controls of each place by their human names, those of one name together, each with a look."""
        for place in cls.places.values():
            if place.window:
                continue
            container = cls.frame
            if place.tab:
                container = cls.panels[place.name] = cls.find_panel(place.tab)
            cls.find_controls(place, container)
        for place in cls.places.values():
            if place.window:
                cls.find_window(place)
        cls.choose("Experiment")

    @classmethod
    def find_panel(cls, name):
        found = [child for child in cls.frame.children() if child.role == "panel" and child.name == name]
        if len(found) != 1:
            raise Failure(f"{len(found)} panels of the main window are the panel '{name}'")
        return found[0]

    @classmethod
    def find_window(cls, place):
        """A window comes into the tree when it is opened for the first time."""
        cls.choose("User")
        button = cls.get("User", place.window)
        button.press()
        window = cls.windows[place.name] = cls.wait(
            lambda: next((window for window in cls.program.windows_on_show("frame")
                          if window.name == place.name), None), f"the window '{place.name}'")
        cls.find_controls(place, window)
        button.press()
        cls.wait(lambda: window.has("hidden"), f"the end of the window '{place.name}'")

    @classmethod
    def find_controls(cls, place, container):
        named = cls.found[place.name] = {}
        for control, seen in cls.looks_at(container, place.window is not None):
            named.setdefault(human_name(place, seen), []).append((control, seen))

    @staticmethod
    def looks_at(container, with_panels):
        """Without what has neither a name nor a way to be worked: it is a mere picture. In a small window
        most controls stand in a panel within it; those of the main window are places of their own."""
        controls = []
        for child in container.children():
            if child.role != "panel":
                controls.append(child)
            elif with_panels:
                controls += child.children()
        all_of = ((control, control.look()) for control in controls)
        return [(control, seen) for control, seen in all_of
                if seen.role not in ("filler", "image") or seen.name or "focusable" in seen.states]

    @classmethod
    def come_to_rest(cls):
        """The watches of the stored ports have ended, and the mirror may move."""
        for row in ("Mirror", "Magnescale", "Motor", "Manipulator"):
            cls.wait(lambda row=row: cls.get("Connection", f"{row} state").name == "Connected",
                     f"the state of {row}")
        # The program asks for 0.35x itself when it has opened the mirror's port.
        cls.wait(lambda: cls.stage.ask("magnification") == ["1"], "0.35x")
        cls.stage.ask("magnification 2")
        cls.wait(lambda: cls.get("Experiment", "Direct").has("enabled"), "the mirror's buttons at 2x")

    @staticmethod
    def wait(condition, what):
        return wait_until(condition, what)

    @classmethod
    def driver_calls(cls, name):
        """How many calls of that name the driver library has passed to the workbench."""
        told = cls.stage.ask("counters")
        return int(told[told.index(name) + 1]) if name in told else 0

    @classmethod
    def wait_for_a_read(cls, chosen):
        """A needle's button selects it at the hardware; the program goes by what it reads there next."""
        if chosen in NEEDLES + (VIEW,):
            before = cls.driver_calls("getposition")
            # The one under way may have begun before.
            cls.wait(lambda: cls.driver_calls("getposition") >= before + 2, "a read of the manipulators")
        if chosen == VIEW:
            # The press disables it, and asks the mirror for a report, which enables it again.
            cls.wait(lambda: cls.get("Experiment", "Needle escape").has("enabled"), "the mirror's report")

    @classmethod
    def get(cls, place, name):
        """The control of that human name; of several the one that is on show."""
        controls = [control for control, _ in cls.found[place].get(name, [])]
        if len(controls) > 1:
            controls = [control for control in controls if control.has("shown")]
        if len(controls) != 1:
            raise Failure(f"{len(controls)} controls '{name}' are on show in '{place}'")
        return controls[0]

    def become(self, place, name, *words):
        """Waits until the control is as said, each a word of the table's column `at`."""
        control = self.get(place, name)
        self.wait(lambda: control.has(*words), f"'{name}' of '{place}' {' '.join(words)}")

    def press(self, place, name):
        """Presses and counts the button as one that works; its effect is for the case to see."""
        control = self.get(place, name)
        self.assertTrue(control.has("shown", "enabled"), f"'{name}' of '{place}' cannot be pressed now")
        control.press()
        self.worked.add((place, name, table.PRESS))

    def act(self, place, name, action):
        """As `press`, for one of a control's own actions."""
        control = self.get(place, name)
        self.assertTrue(control.has("shown", "enabled"), f"'{name}' of '{place}' cannot be worked now")
        control.act(action)
        self.worked.add((place, name, action))

    def press_for_box(self, place, name, text, answer="OK"):
        """Presses what ends in a message box, reads the box and answers it."""
        control = self.get(place, name)
        self.assertTrue(control.has("shown", "enabled"), f"'{name}' of '{place}' cannot be pressed now")
        control.press_and_go_on()
        self.answer_box(text, answer)
        self.worked.add((place, name, table.PRESS))

    def answer_box(self, text, answer="OK"):
        box = self.wait(self.find_box, f"a message box '{text}'")
        texts = [below.name for below in box.all_below() if below.role == "label"]
        self.assertTrue(any(text in read for read in texts), f"a box with {texts}, not with '{text}'")
        self.close_box(box, answer)

    def close_box(self, box, answer):
        button = next(below for below in box.all_below()
                      if below.role == "push button" and below.name.replace("&", "") == answer)
        button.press_and_go_on()
        self.wait(lambda: self.find_box() is None, f"the end of '{box.name}'")

    def find_box(self):
        """The message box or dialog that is on show."""
        return next(iter(self.program.windows_on_show("alert", "dialog")), None)

    @classmethod
    def choose(cls, tab):
        """Has the panel of a tab on show."""
        if cls.panels[tab].has("hidden"):
            cls.get(table.MAIN_WINDOW, tab).press()
        cls.wait(lambda: cls.panels[tab].has("shown"), f"the panel '{tab}'")

    @contextlib.contextmanager
    def on_show(self, name):
        """Has a place on show: a panel from now on, a small window for that long."""
        place = self.places[name]
        if place.tab:
            self.choose(place.tab)
        if not place.window:
            yield
            return
        self.turn_window(place, "shown")
        try:
            yield
        finally:
            self.turn_window(place, "hidden")

    def turn_window(self, place, word):
        """Opens or closes a small window by its button of the user panel."""
        if not self.windows[place.name].has(word):
            self.choose("User")
            self.press("User", place.window)
            self.wait(lambda: self.windows[place.name].has(word), f"'{place.name}' {word}")

    def shown_panels(self):
        return [name for name, panel in self.panels.items() if panel.has("shown")]
