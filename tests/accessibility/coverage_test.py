"""No action of the tables is left out."""
import unittest

import table
from case import Case


class Coverage(unittest.TestCase):

    def test_every_action_of_the_tables_has_been_worked(self):
        actions = {(place.name, row.name, action) for place in table.read() for row in place.rows
                   for action in row.actions}
        self.assertGreaterEqual(len(actions), 120)
        self.assertEqual(sorted(actions - Case.worked), [])
