"""The first ten minutes, played: the eight steps as the card says them, by pointer and keys alone."""
import math
import re

from stage import wait_until

from desk_case import DeskCase
from seat import Plan, number

MARKS = {"A": (0, -60), "B": (-80, 60), "C": (80, 60)}  # from the view's centre, common units
CELL = (-470, 190.7)  # the fourth, as the plan shows it
VIEW_RIGHT = 121.45  # of the field of view at 2x, from its centre
MOST_PRESSES = 60
LARGEST_ERROR = 3  # common units, in plan
LOOKS = 3  # at a mark
FEW = 3  # steps that are struck one by one; more are held


class TenMinutes(DeskCase):

    def test_the_eight_steps_are_ticked_by_a_hand_that_does_what_the_card_says(self):
        hand = self.seat.hand
        for step, play in enumerate((self.connect, self.pick, self.touch_marks, self.store_focus, self.aim, self.send,
                                     self.look, self.close), 1):
            play()
            self.seat.wait_for_tick(step)
            print(f"  step {step} ticked: {hand.presses} presses, {hand.seconds():.1f} s", flush=True)
        self.assertIn("Done in", self.seat.next_step() + self.over())
        print(f"  ten minutes: {hand.presses} presses, {hand.seconds():.1f} s, landing {self.landing}", flush=True)
        self.assertLessEqual(hand.presses, MOST_PRESSES)
        self.assertLessEqual(number(re.match(r"[\d.]+", self.landing)[0]), LARGEST_ERROR)
        self.assertEqual((self.seat.read("Crossings"), self.seat.read("Refusals")), ("0", "0"))

    def over(self):
        return " ".join(item.name for item in self.seat.bench("First ten minutes", "list").children())

    def connect(self):
        """It connects by itself."""

    def pick(self):
        seat = self.seat
        seat.click(seat.in_window("Magnification", "Magnification 2x"))
        seat.choose("Calibration")
        seat.click(seat.panel("Calibration", "Needle 1", "check box"))
        seat.click(seat.bench("Needle 1", "check box"))

    def touch_marks(self):
        seat = self.seat
        seat.click(seat.bench("View", "check box"))
        seat.click(seat.bench("Step 1"))
        for name, place in MARKS.items():
            self.bring_tip(place)
            seat.click(seat.panel("Calibration", f"Position {name}"))

    def store_focus(self):
        seat = self.seat
        seat.answer()
        self.bring_tip(MARKS["A"])
        seat.click(seat.bench("Step 100"))
        seat.hand.strike("Page_Up")
        wait_until(lambda: seat.tip()[0][2] == 100, "the tip 100 higher")
        self.wait_for_program()
        seat.click(seat.panel("Calibration", "Position Z"))
        seat.click(seat.panel("Calibration", "Set", "push button"))

    def bring_tip(self, place):
        """Coarse by a double click beside the mark, which would be in the way of nothing; then along and across."""
        seat = self.seat
        target = Plan(seat).pixel(*place)
        seat.hand.double_click(target[0] + 2, target[1] - 3)
        wait_until(lambda: math.dist(seat.tip()[0][:2], place) < 12, "the tip near the mark")
        # Whoever sees that it is not there yet does it once more.
        for _ in range(LOOKS):
            self.wait_for_rest()
            if math.dist(seat.tip()[0][:2], place) < 1:
                break
            along, across = self.way_to(place)
            self.step(along, "Up", "Down", "X")
            self.step(across, "Right", "Left", "Y")
        self.wait_for_rest()
        self.assertLess(math.dist(seat.tip()[0][:2], place), 1)
        self.wait_for_program()

    def way_to(self, place):
        """Whole counts along and across the shaft, which comes from the upper left at 45 degrees."""
        (x, y, _), _ = self.seat.tip()
        return (round(((place[0] - x) + (place[1] - y)) / math.sqrt(2)),
                round(((place[0] - x) - (place[1] - y)) / math.sqrt(2)))

    def step(self, counts, forward, back, axis):
        """The key held until the display says that it is nearly there, then struck."""
        seat, key, way = self.seat, forward if counts > 0 else back, 1 if counts > 0 else -1
        display = f"Counts {axis}"
        wanted = int(seat.read(display)) + counts
        if abs(counts) > FEW:
            seat.hand.hold(key)
            wait_until(lambda: (wanted - int(seat.read(display))) * way <= 1, f"{display} near {wanted}")
            seat.hand.let_go(key)
            self.wait_for_rest()
        while (left := wanted - int(seat.read(display))) != 0:
            before = seat.read(display)
            seat.hand.strike(forward if left > 0 else back)
            wait_until(lambda: seat.read(display) != before, "a step")

    def wait_for_rest(self):
        """Until what the joystick shows stays the same."""
        last = []

        def is_still():
            last.append(self.seat.tip())
            return len(last) > 8 and all(tip == last[-1] for tip in last[-8:])
        wait_until(is_still, "the needle at rest")

    def wait_for_program(self):
        """It reads the needle some times a second and stores what it has read last: until the traffic shows the
        reading of where the needle is now."""
        counts = " ".join(map(str, self.seat.tip()[1]))

        def has_read():
            asked = [item.name for item in self.seat.bench("Traffic", "list").children()
                     if "\tgetposition\t" in item.name]
            return asked and asked[-1].split("\t")[-1].startswith(counts)
        wait_until(has_read, f"the program's reading of {counts}")

    def aim(self):
        seat = self.seat
        seat.click(seat.bench("Dish", "check box"))
        plan = Plan(seat)
        seat.hand.drag(plan.pixel(VIEW_RIGHT, 0), plan.pixel(CELL[0] + VIEW_RIGHT, CELL[1]))
        wait_until(lambda: (seat.read("Mirror X"), seat.read("Mirror Y")) == ("94", "\u221238"),
                   "the view on the cell")
        seat.choose("Cell position")
        seat.click(seat.panel("Cell position", "Set row 1"))

    def send(self):
        seat = self.seat
        seat.choose("Experiment")
        seat.click(seat.panel("Experiment", "Needle 1", "check box"))
        seat.click(seat.panel("Experiment", "Cell A", "check box"))
        self.wait_for_program()
        seat.click(seat.panel("Experiment", "Move", "push button"))

    def look(self):
        seat = self.seat
        self.landing = wait_until(lambda: seat.read("Last landing") not in ("none yet", "") and
                                  seat.read("Last landing"), "a landing")
        seat.click(next(item for item in seat.bench("First ten minutes", "list").all_below()
                        if (item.role, item.name) == ("push button", "Look")))

    def close(self):
        seat = self.seat
        x, y, width, _ = seat.frame.place()
        seat.hand.click(x + width // 2, y - 8)  # its title bar
        seat.hand.strike("Alt_L", "F4")
        seat.answer()
        wait_until(lambda: self.stage.number_of("TRAVO") is None, "the end of TRAVO")
        self.assertIsNone(self.stage.desk.poll(), "the desk ends before the workbench is closed")
