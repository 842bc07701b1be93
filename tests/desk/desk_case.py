"""What all cases at the desk share: a desk as new, and a seat at it."""
import os
import unittest

from stage import wait_until

from seat import Seat


class DeskCase(unittest.TestCase):
    """Each class has a desk of its own; its cases follow each other on it in the order of their names."""

    stage = None  # the runner's

    @classmethod
    def setUpClass(cls):
        cls.stage.start_desk()
        cls.addClassCleanup(cls.stage.end_desk)
        cls.seat = Seat(cls.stage)
        cls.addClassCleanup(cls.seat.hand.close)
        wait_until(lambda: cls.seat.ticked() >= 1, "the three ports open")
        # The program asks for 0.35x itself when it has opened the mirror's port.
        wait_until(lambda: cls.seat.bench("Objective 0.35x").has("checked"), "0.35x")

    def tearDown(self):
        if self._outcome.result.failures or self._outcome.result.errors:
            folder = os.path.join(self.stage.build, "pictures")
            os.makedirs(folder, exist_ok=True)
            self.stage.picture(os.path.join(folder, f"{self.id()}.png"))
