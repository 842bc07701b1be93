"""Every control stands in the tree by name, role, help and state."""
from case import Case
from table import MAIN_WINDOW
from tree import is_true


class Tree(Case):

    def differences(self, place):
        """What the tree says now of the controls of a place against the table's first states."""
        for row in self.places[place].rows:
            found = [control.look() for control, _ in self.found[place].get(row.name, [])]
            if place == MAIN_WINDOW and row.role == "page tab":
                continue  # three pictures of one name; a case of their own
            for seen in found:
                wrong = [word for word in row.at if word != "moving" and not is_true(word, seen.states)]
                if wrong:
                    yield f"'{row.name}' is not {', '.join(wrong)}"
                if row.text is not None and seen.text != row.text:
                    yield f"'{row.name}' shows '{seen.text}', not '{row.text}'"

    def test_the_main_window_is_a_frame_with_the_name_of_the_program(self):
        windows = self.program.windows_on_show("frame", "filler", "dialog", "alert")
        self.assertEqual([(window.role, window.name) for window in windows], [("frame", "TRAVO")])
        self.assertTrue(self.frame.has("shown", "enabled"))

    def test_every_control_of_the_tables_is_in_the_tree_and_nothing_else(self):
        for place in self.places.values():
            with self.subTest(place.name):
                self.assertGreater(len(place.rows), 0)
                wanted = sorted(row.name for row in place.rows)
                found = sorted(name for name, all_of in self.found[place.name].items() for _ in all_of)
                self.assertEqual(found, wanted)

    def test_every_control_has_its_role_and_its_help(self):
        for place in self.places.values():
            for row in place.rows:
                with self.subTest(place=place.name, name=row.name):
                    for _, seen in self.found[place.name][row.name]:
                        if row.role == "value":
                            self.assertEqual((seen.role, seen.description), ("label", row.name))
                        else:
                            self.assertEqual((seen.role, seen.description), (row.role, row.help))

    def test_every_control_is_at_first_as_the_tables_say(self):
        for place in self.places.values():
            with self.subTest(place.name):
                if place.tab:
                    self.choose(place.tab)
                try:
                    self.wait(lambda: not list(self.differences(place.name)), place.name)
                finally:
                    self.assertEqual(list(self.differences(place.name)), [])
        self.choose("Experiment")

    def test_one_picture_of_each_tab_is_on_show(self):
        self.choose("Experiment")
        shown = [index for index, control in enumerate(self.tab_pictures()) if control.has("shown", "enabled")]
        self.assertEqual(shown, [0, 7, 8, 15, 16, 17])
        hidden = [index for index, control in enumerate(self.tab_pictures()) if control.has("hidden")]
        self.assertEqual(hidden, [index for index in range(18) if index not in shown])

    def tab_pictures(self):
        return [child for child in self.frame.children() if child.role == "page tab"]

    def test_names_are_unique_among_what_is_on_show(self):
        for place in self.places.values():
            if place.tab:
                self.choose(place.tab)
            shown = [name for name, all_of in self.found[place.name].items()
                     for control, _ in all_of if control.has("shown")]
            self.assertEqual(len(shown), len(set(shown)), place.name)
            self.assertNotIn("", shown)
            self.assertGreater(len(shown), 5, place.name)

    def test_every_value_on_show_has_a_text(self):
        for place in self.places.values():
            if place.tab:
                self.choose(place.tab)
            for row in place.rows:
                if row.role == "value" and "shown" in row.at:
                    seen = self.get(place.name, row.name).look()
                    self.assertNotEqual(seen.text, "", row.name)
                    self.assertEqual(seen.name, seen.text, row.name)
                    self.assertEqual(seen.description, row.name)

    def test_the_first_action_of_every_button_is_press_and_nothing_else_can_be_pressed(self):
        for place in self.places.values():
            for row in place.rows:
                for control, _ in self.found[place.name][row.name]:
                    with self.subTest(place=place.name, name=row.name):
                        if row.is_button:
                            self.assertEqual(control.actions()[:1], ["Press"])
                            self.assertEqual(control.localized_actions()[:1], ["Press"])
                        else:
                            self.assertNotIn("Press", control.actions())

    def test_a_button_that_is_disabled_or_hidden_does_not_answer_to_press(self):
        self.choose("Experiment")
        cell = self.get("Experiment", "Cell B")
        self.assertTrue(cell.has("disabled", "raised"))
        cell.press()
        self.assertTrue(cell.has("raised"))
        self.assertTrue(self.get("Experiment", "Cell A").has("checked"))
        switch = self.get("User", "Contact check off")
        self.assertTrue(switch.has("hidden", "raised"))
        switch.press()
        self.assertTrue(switch.has("raised"))
