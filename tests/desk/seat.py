"""The operator's seat at the desk: what program and workbench show, read from the accessibility tree, and their
controls worked by pointer and keys alone."""
import re

from stage import Failure, wait_until
from tree import Program

from desk import PROGRAM, WORKBENCH
from hand import Hand

MINUS = "\u2212"  # as the workbench writes it


def number(text):
    return float(text.replace(MINUS, "-"))


class Seat:
    """At a desk that has just been started."""

    def __init__(self, stage):
        self.stage = stage
        self.workbench = Program(stage.wait_for_number_of(WORKBENCH))
        self.program = Program(stage.wait_for_number_of(PROGRAM))
        self.window = wait_until(lambda: self._windows(self.workbench), "the workbench's window")[0]
        self.frame = wait_until(lambda: [window for window in self._windows(self.program)
                                         if window.children() and window.name.startswith("TRAVO")],
                                "the main window")[0]
        self.known = {}
        self._read_workbench(self.window)
        self._read_program()
        self.hand = Hand()

    @staticmethod
    def _windows(program):
        return [child for child in program.children() if child.role in ("frame", "filler", "dialog")]

    def _read_workbench(self, container):
        for child in container.children():
            self.known.setdefault(("Workbench", child.role, child.name), child)
            if child.role != "list":
                self._read_workbench(child)

    def _read_program(self):
        for child in self.frame.children():
            if child.role == "panel":
                for control in child.children():
                    # A value is told apart by its description: its name is what it shows.
                    name = control.description if control.role == "label" else control.name
                    self.known.setdefault((child.name, control.role, name), control)

    def bench(self, name, *roles):
        """The control of the workbench's window that bears this name and one of these roles, or any."""
        found = [control for (place, role, known), control in self.known.items()
                 if place == "Workbench" and known == name and (not roles or role in roles)]
        if len(found) != 1:
            raise Failure(f"{len(found)} controls of the workbench are '{name}'")
        return found[0]

    def read(self, name):
        """What a display of the workbench shows."""
        return self.bench(name, "label").description

    def panel(self, panel, name, *roles):
        """A control of one of the program's panels."""
        return next(control for (place, role, known), control in self.known.items()
                    if (place, known) == (panel, name) and (not roles or role in roles))

    def tab(self, name):
        return next(child for child in self.frame.children()
                    if child.role == "page tab" and child.name == name and child.has("shown"))

    def in_window(self, title, name):
        """A control of one of the program's small windows."""
        window = next(child for child in self.program.children() if child.name == title)
        return next(control for control in window.all_below() if control.name == name)

    def click(self, control):
        """Once it can be pressed."""
        wait_until(lambda: control.has("shown", "enabled"), f"'{control.name}' that can be pressed")
        self.hand.click(*self.middle(control))

    @staticmethod
    def middle(control):
        x, y, width, height = control.place()
        return x + width // 2, y + height // 2

    def choose(self, name):
        """The program's panel of that tab."""
        self.click(self.tab(name))
        panel = next(child for child in self.frame.children() if (child.role, child.name) == ("panel", name))
        wait_until(lambda: panel.has("shown"), f"the panel '{name}'")

    def box(self):
        """The program's message box that is on show, or None."""
        return next(iter(self.program.windows_on_show("alert", "dialog")), None)

    def answer(self, button="OK", limit=15):
        """Presses a button of the message box that comes; what the box said."""
        box = wait_until(self.box, "a message box", limit)
        texts = [below.name for below in box.all_below() if below.role == "label" and below.name]
        found = next(below for below in box.all_below()
                     if below.role == "push button" and below.name.replace("&", "") == button)
        wait_until(lambda: found.size()[0] > 0, "the box in its place")
        self.click(found)
        wait_until(lambda: not self.stands(box), f"the end of the box {texts}", limit)
        return " / ".join(texts)

    def stands(self, box):
        present = self.box()
        return present is not None and present.accessible == box.accessible

    def ticked(self):
        """How many steps of the first ten minutes are ticked: both the item's name and its state say so."""
        steps = [item for item in self.bench("First ten minutes", "list").children()
                 if re.match(r"Step \d of 8", item.name)]
        return sum(", done: " in item.name and item.has("checked") for item in steps)

    def wait_for_tick(self, step, limit=15):
        wait_until(lambda: self.ticked() >= step, f"the tick of step {step}: {self.next_step()}", limit)

    def next_step(self):
        return next((f"{item.name}. {item.description}" for item in
                     self.bench("First ten minutes", "list").children() if ", next: " in item.name), "over")

    def tip(self):
        """The picked tip in the common frame, and its counts, as the joystick's displays show them."""
        return ([number(self.read(f"Common {axis}")) for axis in "XYZ"],
                [int(self.read(f"Counts {axis}")) for axis in "XYZ"])


class Plan:
    """The workbench's plan as it lies now: where on the display a place of the common frame is. It is found as a
    hand finds it, from what the line under the plan says of the pointer."""

    def __init__(self, seat):
        self.seat = seat
        self.line = seat.bench("Place under the pointer")
        x, y, width, height = seat.bench("True plan").place()
        first, second = (x + 20, y + 20), (x + width - 20, y + height - 20)
        begin, end = self.look(first), self.look(second)
        self.scale = (second[0] - first[0]) / (end[0] - begin[0])
        self.origin = [first[axis] - begin[axis] * self.scale for axis in (0, 1)]

    def look(self, pixel):
        """The place that the line tells once the pointer is there."""
        # From a place aside, so that what is read is not of a pointer that stood there before.
        self.seat.hand.move(pixel[0] - 7, pixel[1])
        before = self._wait_for_place(lambda place: True)
        self.seat.hand.move(*pixel)
        return self._wait_for_place(lambda place: place != before)

    def _wait_for_place(self, is_it):
        def read():
            found = re.match(rf"X ([{MINUS}\d.]+) +Y ([{MINUS}\d.]+)", self.line.description)
            place = tuple(map(number, found.groups())) if found else None
            return place if place and is_it(place) else None
        return wait_until(read, f"the place under the pointer, which is told as '{self.line.description}'")

    def pixel(self, x, y):
        return self.origin[0] + x * self.scale, self.origin[1] + y * self.scale
