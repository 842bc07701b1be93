"""Every control of the workbench's window: its role, its name, its action, and what that does to the world."""
import os
import tomllib
import unittest

from stage import wait_until
from tree import Program

from desk import ROOT, WORKBENCH

PAD_AREAS = 17
BUTTONS = ("push button", "check box")


def rows():
    with open(os.path.join(ROOT, "tests/accessibility/bench_controls.toml"), "rb") as file:
        return tomllib.load(file)["controls"]


class Controls(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        from desk_case import DeskCase
        cls.stage = DeskCase.stage
        cls.stage.start_workbench()
        cls.addClassCleanup(cls.stage.end_workbench)
        cls.workbench = Program(cls.stage.wait_for_number_of(WORKBENCH))
        cls.known = {}
        cls.read(wait_until(cls.workbench.children, "the workbench's window")[0])

    @classmethod
    def read(cls, container):
        for child in container.children():
            cls.known.setdefault((child.role, child.name), child)
            if child.role != "list" or child.name == "First ten minutes":
                cls.read(child)

    def get(self, role, name):
        self.assertIn((role, name), self.known)
        return self.known[role, name]

    def test_1_nothing_of_the_window_is_missing_from_the_table(self):
        told = {(row["role"], row["name"]) for row in rows()}
        found = {key for key in self.known if key[0] in BUTTONS + ("label", "page tab", "canvas", "dial")}
        self.assertEqual(sorted(found - told), [])

    def test_2_each_control_bears_its_role_and_name_and_can_be_worked(self):
        for row in rows():
            with self.subTest(control=row["name"]):
                control = self.get(row["role"], row["name"])
                at = row.get("begins") or row.get("at", "enabled").replace("menu", "enabled")
                self.assertTrue(control.has(at) and control.has("hidden" if at == "hidden" else "shown"), at)
                if row["role"] in BUTTONS:
                    self.assertEqual(control.actions()[0], "Press")
                elif row["role"] == "label" and ": " not in row["name"]:
                    self.assertNotEqual(control.description, "")

    def test_3_each_action_has_its_effect_in_the_world(self):
        worked = 0
        for row in rows():
            if row.get("at") or row["role"] not in BUTTONS + ("canvas", "dial"):
                continue
            with self.subTest(control=row["name"]):
                self.work(row, self.get(row["role"], row["name"]))
                worked += 1
        print(f"\n  {worked} controls of the workbench worked", flush=True)
        self.assertGreater(worked, 70)

    def work(self, row, control):
        if "first" in row:
            self.say(row["first"])
        if "ask" in row:
            control.press()
            self.wait_for(row["ask"], row["gives"])
            if "then" in row:
                control.press()
                self.wait_for(row["ask"], row["then"])
        elif "does" in row:
            self.do(row["does"], control)
        else:
            control.press()
        self.assertEqual(self.known["filler", "Place under the pointer"].description, "", "a refusal")

    def say(self, line):
        self.stage.ask(line)
        wait_until(lambda: self.stage.ask("world moving") == ["0"] * 4, "the needles at rest")
        for state, half in (("mirror state", 2), ("focus state", 1)):
            wait_until(lambda: self.is_at_rest(state, half) or "4000000" in line, f"the rest of {state}")
        # A switch that shows the world has to have seen it.
        if line.startswith(("hardware", "magnification", "mirror", "fault")):
            self.seen()

    def is_at_rest(self, state, half):
        told = self.stage.ask(state)
        return told[:half] == told[half:2 * half]

    def seen(self):
        """Once the window has read the world anew: its joystick shows what needle 1 has been moved to."""
        self.turn = getattr(self, "turn", 0) ^ 1
        self.stage.ask(f"world move 1 {11000 + self.turn} 12000 12000")
        counts = self.get("label", "Counts X")
        wait_until(lambda: counts.description == str(11000 + self.turn), "the window's next reading")

    def wait_for(self, line, answer):
        wait_until(lambda: " ".join(self.stage.ask(line)) == answer, f"'{line}' giving '{answer}'", 4)
        self.seen()

    def do(self, what, control):
        if what == "toggle":
            before = control.has("checked")
            for state in (not before, before):
                control.press()
                wait_until(lambda: control.has("checked") == state, f"checked {state}")
        elif what == "check":
            control.press()
            wait_until(lambda: control.has("checked"), "checked")
        elif what.startswith("raises "):
            other = self.get("check box", what.split(" ", 1)[1])
            control.press()
            wait_until(lambda: other.has("raised"), what)
            other.press()
            wait_until(lambda: other.has("checked"), "checked again")
        else:
            getattr(self, f"do_{what}")(control)

    def do_settings(self, control):
        path = self.stage.in_folder("TRAVO/KVData.ini")
        if os.path.exists(path):
            os.remove(path)
        control.press()
        wait_until(lambda: os.path.exists(path), "settings anew")

    def do_pad(self, control):
        areas = [action for action in control.actions() if action != "SetFocus"]
        self.assertEqual(len(areas), PAD_AREAS)
        for area in areas:
            self.stage.ask("mirror move 7 7")
            self.assertEqual(self.mirror_goal(), [7, 7])
            control.act(area)
            wait_until(lambda: self.mirror_goal() != [7, 7], f"the mirror moved by '{area}'")

    def mirror_goal(self):
        return [float(count) for count in self.stage.ask("mirror state")[2:4]]

    def do_wheel(self, control):
        for action, way in (("Increase", 1), ("Decrease", -1)):
            before = int(self.stage.ask("focus state")[3])
            control.act(action)
            wait_until(lambda: int(self.stage.ask("focus state")[3]) == before + 100 * way, action)

    def do_stop(self, control):
        control.press()
        wait_until(lambda: self.stage.ask("focus state")[3] != "4000000", "the focus stopped")
        self.stage.ask("focus move 0")

    def do_zero(self, control):
        self.assertNotEqual(float(self.stage.ask("gauge state")[0]), 0)
        control.press()
        wait_until(lambda: float(self.stage.ask("gauge state")[0]) == 0, "the gauge's new zero")

    def do_copy(self, control):
        control.press()

    def do_clear(self, control):
        lines = self.get("list", "Traffic")
        control.press()
        wait_until(lambda: len(lines.children()) == 0, "an empty list")


if __name__ == "__main__":
    unittest.main()
