"""The end of a desktop session, told by its session manager."""
import os

from program import Case, read
from screen import Screen
from session import BOTH, GLOBAL, LOCAL, SessionManager

SAVED = "[User_Value]\r\nXYOffset=100\r\n"


class Session(Case):
    def setUp(self):
        super().setUp()
        self.screen = Screen(self)
        self.manager = SessionManager(self.folder.path)
        self.addCleanup(self.manager.close)
        self.run_ = self.start(environment={"QT_QPA_PLATFORM": None, "DISPLAY": self.screen.name,
                                            "SESSION_MANAGER": self.manager.address})
        self.manager.wait_for_client()
        self.screen.wait_for(1)

    def see_alive(self):
        self.assertIsNone(self.run_.process.poll())
        self.assertEqual(len(self.screen.windows()), 1, "a box asks")

    def test_the_word_to_save_writes_what_closing_writes_and_the_program_goes_on(self):
        for kind in (GLOBAL, LOCAL, BOTH):
            self.manager.save(kind, shutdown=True)
            self.assertIn(SAVED, read(self.folder.settings))
            self.assertIn("[Window]\r\n0=1\r\n", read(self.folder.settings))
            self.see_alive()
            os.remove(self.folder.settings)
        self.assertEqual(self.run_.end(), 0)

    def test_the_word_to_die_closes_without_the_question(self):
        self.manager.save(BOTH, shutdown=True)
        self.manager.die()
        self.assertEqual(self.run_.code(), 0)
        self.assertIn(SAVED, read(self.folder.settings))

    def test_the_word_to_die_closes_also_while_a_box_is_up(self):
        self.driver("fail")
        self.screen.wait_for(2)
        self.manager.die()
        self.assertEqual(self.run_.code(), 0)
        self.assertIn(SAVED, read(self.folder.settings))

    def test_the_loss_of_the_session_after_its_word_to_save_closes_the_program(self):
        self.manager.save(GLOBAL, shutdown=True)
        os.remove(self.folder.settings)
        self.manager.lose()
        self.assertEqual(self.run_.code(), 0)
        self.assertIn(SAVED, read(self.folder.settings))

    def test_the_loss_of_a_session_that_has_said_nothing_leaves_the_program_running(self):
        self.manager.lose()
        # Whoever closes it now closes it as ever.
        main, = self.screen.wait_for(1)
        self.screen.ask_to_close(main)
        question = self.screen.wait_for(2)[1]
        self.screen.ask_to_close(question)
        self.screen.wait_for(1)
        self.assertEqual(self.run_.end(), 0)
