"""No button of the tables is left out."""
import unittest

import table
from case import Case


class Coverage(unittest.TestCase):

    def test_every_button_of_the_tables_has_been_worked_by_press(self):
        buttons = {(place.name, row.name) for place in table.read() for row in place.rows if row.is_button}
        self.assertGreaterEqual(len(buttons), 80)
        self.assertEqual(sorted(buttons - Case.pressed), [])
