"""What the operator presses and types while the program stands still for a needle's travel: through the X
server, as the operator does it."""
from case import NEEDLES, VIEW
from tree import Atspi
from work_test import Work

# Of the manipulator: further than the presses below take.
FAR = 9000
SPACE = 0x20  # the key, in the X server's numbers


class Presses(Work):

    def setUp(self):
        self.choose("Experiment")
        for name in ("Needle 1", "Present view"):
            self.get("Experiment", name).press()
        self.wait_for_a_read("Needle 1")

    def click_at(self, place):
        """Without a word to the program, which may stand still."""
        x, y, width, height = place
        self.assertTrue(Atspi.generate_mouse_event(x + width // 2, y + height // 2, "b1c"))

    def press_space(self):
        self.assertTrue(Atspi.generate_keyboard_event(SPACE, None, Atspi.KeySynthType.SYM))

    def is_travelling(self, needle):
        tip = self.tip(needle)
        return tip[:3] != tip[3:]

    def where_are(self, *names):
        return {name: self.get("Experiment", name).place() for name in names}

    def calls(self):
        return {name: self.driver_calls(name) for name in ("moveto", "select")}

    def start_travel(self, place):
        """A click on it sends the needle, which is far from where it goes."""
        before = self.calls()
        self.click_at(place)
        self.wait(lambda: self.driver_calls("moveto") == before["moveto"] + 1, "the needle sent")

    def test_1_presses_made_while_a_needle_travels_are_dropped_and_the_next_one_acts(self):
        self.stage.ask(f"world jog 1 -{FAR} 0 0")
        self.rest(1)
        self.wait_for_a_read("Needle 1")
        place = self.where_are("Move", "Needle 2", "Needle 3", "Synchro")
        self.start_travel(place["Move"])
        sent = self.calls()
        mirror = self.stage.ask("world view")
        for name in ("Needle 2", "Synchro", "Needle 3", "Move", "Move"):
            self.click_at(place[name])
        self.press_space()
        self.assertTrue(self.is_travelling(1), "the presses came too late to be made in the travel")
        self.rest(1)
        # As after every move, and as if nobody had pressed anything.
        self.only("Experiment", VIEW, NEEDLES + (VIEW,))
        self.wait_for_a_read("Needle 1")
        self.only("Experiment", VIEW, NEEDLES + (VIEW,))
        self.become("Experiment", "Synchro", "raised")
        self.assertEqual(self.calls(), sent)
        self.assertEqual(self.stage.ask("world view"), mirror)
        self.click_at(place["Needle 3"])
        self.only("Experiment", "Needle 3", NEEDLES + (VIEW,))
        self.wait(lambda: self.driver_calls("select") == sent["select"] + 1, "needle 3 selected")
        self.wait_for_a_read("Needle 3")

    def test_2_presses_made_on_the_way_home_are_dropped(self):
        self.choose("Escape")
        self.get("Escape", "Set objective").press()
        self.get("Escape", "Set needle 1").press()
        self.choose("Experiment")
        self.stage.ask(f"world jog 1 -{FAR} 0 0")
        self.rest(1)
        self.wait_for_a_read("Needle 1")
        place = self.where_are("Needle escape", "Needle 4")
        self.start_travel(place["Needle escape"])
        sent = self.calls()
        self.click_at(place["Needle 4"])
        self.assertTrue(self.is_travelling(1), "the press came too late to be made in the travel")
        self.rest(1)
        self.wait_for_a_read("Needle 1")
        self.only("Experiment", "Needle 1", NEEDLES + (VIEW,))
        self.assertEqual(self.calls(), sent)

    def test_3_a_press_made_in_the_synchronised_mode_is_the_way_out(self):
        place = self.where_are("Needle 2")
        self.press("Experiment", "Synchro")
        self.become("Experiment", "Move", "disabled")
        moves = self.driver_calls("moveto")
        self.stage.ask("focus jog 300000")
        self.wait(lambda: self.driver_calls("moveto") > moves, "the needle follows")
        self.click_at(place["Needle 2"])
        self.only("Experiment", "Needle 2", NEEDLES + (VIEW,))
        self.become("Experiment", "Synchro", "raised")
