"""Every control stands in the tree by name, role, help and state."""
from case import TABS, Case
from table import PRESS
from tree import is_true


class Tree(Case):
    with_windows = True

    def differences(self, place):
        """What the tree says now of the controls of a place against the table's first states."""
        # Those of one name, as the three pictures of a tab, stand in the table in the tree's order.
        left = {name: [control for control, _ in all_of] for name, all_of in self.found[place].items()}
        for row in self.places[place].rows:
            seen = left[row.name].pop(0).look()
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
            self.choose("Experiment")
            with self.subTest(place.name), self.on_show(place.name):
                try:
                    self.wait(lambda: not list(self.differences(place.name)), place.name)
                finally:
                    self.assertEqual(list(self.differences(place.name)), [])

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
            with self.on_show(place.name):
                shown = [name for name, all_of in self.found[place.name].items()
                         for control, _ in all_of if control.has("shown")]
            self.assertEqual(len(shown), len(set(shown)), place.name)
            self.assertNotIn("", shown)
            self.assertGreaterEqual(len(shown), 5, place.name)

    def test_every_value_on_show_has_a_text(self):
        for place in self.places.values():
            with self.on_show(place.name):
                for row in place.rows:
                    if row.role == "value" and "shown" in row.at:
                        seen = self.get(place.name, row.name).look()
                        self.assertNotEqual(seen.text, "", row.name)
                        self.assertEqual(seen.name, seen.text, row.name)
                        self.assertEqual(seen.description, row.name)

    def test_each_small_window_is_a_frame_with_its_title_and_enabled(self):
        for name, window in self.windows.items():
            with self.on_show(name):
                self.assertEqual((window.role, window.name), ("frame", name))
                self.assertTrue(window.has("shown", "enabled"))
                titled = [seen.name for seen in self.program.windows_on_show("frame")]
                self.assertEqual(sorted(titled), sorted([self.frame.name, name]))

    def test_the_tab_on_show_is_selected_and_every_tab_can_be(self):
        for tab in TABS:
            self.choose(tab)
            states = [(control.name, control.states()) for control in self.tab_pictures()]
            self.assertTrue(all("selectable" in seen for _, seen in states))
            self.assertEqual([name for name, seen in states if "selected" in seen], [tab])

    def test_assistive_programs_are_told_of_the_tab_that_is_selected_now(self):
        self.choose("Experiment")
        with self.program.events("object:state-changed:selected") as told:
            self.choose("Calibration")
            self.wait(told, "word of a tab")
            self.assertEqual(told(), [("page tab", "Calibration", 1)])

    def test_the_first_actions_are_those_of_the_tables_and_nothing_else_can_be_pressed(self):
        for place in self.places.values():
            for row in place.rows:
                for control, _ in self.found[place.name][row.name]:
                    with self.subTest(place=place.name, name=row.name):
                        actions = list(row.actions)
                        self.assertEqual(control.actions()[:len(actions)], actions)
                        self.assertEqual(control.localized_actions()[:len(actions)], actions)
                        if not row.is_button:
                            self.assertNotIn(PRESS, control.actions())

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
